// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "interpreter/Block.h"

namespace gcode_check {

// Reads the words of a line without its end into `block`, as far as they can be read. False: the
// line is rejected or not interpreted, `fault` says why.
bool readLine(std::string_view line, Block& block, Fault& fault);

}  // namespace gcode_check
