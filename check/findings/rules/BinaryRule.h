// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "findings/Findings.h"

namespace gcode_check {

// No text: at least four bytes, and one in a hundred, are none that a text has.
bool isBinary(std::string_view program);
void findBinary(std::string_view program, Findings& findings);

}  // namespace gcode_check
