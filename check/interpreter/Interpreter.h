// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "interpreter/Progress.h"
#include "interpreter/Reading.h"

namespace gcode_check {

// Executes a program as an RS-274/NGC controller does: see docs/dev/check.md. One pass over its
// bytes; never throws for what a program holds; memory in proportion to the program's size. When
// the progress is stopped, what was read up to there.
Reading read(std::string_view program, const MachineOptions& options = {},
             Progress* progress = nullptr);

}  // namespace gcode_check
