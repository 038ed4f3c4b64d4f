// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "interpreter/MachineState.h"

namespace gcode_check {

// Tools as people write them, or what is wrong; then there are none.
struct ToolTexts {
    std::vector<Tool> tools;
    std::string error;
};

// Each text is "3=6" or "3=0.25in": a tool's number, not 0 and not there twice, and its diameter,
// not below 0, in millimetres unless it says inches. Numbers have a decimal point.
ToolTexts toolsOf(const std::vector<std::string>& texts);

// The same in one text, "3=6, 7 = 12.5": behind commas, semicolons or blanks. Empty: no tools.
ToolTexts toolsIn(std::string_view list);

}  // namespace gcode_check
