// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "findings/Findings.h"

namespace gcode_check {

// For what is not read to its end. No text: at least four bytes, and one in a hundred, are none
// that a text has. No program: of its lines, but for remarks, fewer than one in ten begin with a
// word or have a G or M code.
bool isNoProgram(std::string_view program);
void findNoProgram(std::string_view program, Findings& findings);

}  // namespace gcode_check
