// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "interpreter/Interpreter.h"

/// "rapid 1 2 3 | feed 4 2 3 F100 | ...": the steps of a program in machine coordinates, then why
/// it stopped.
std::string stepsIn(const gcode_check::Reading& reading);
inline std::string stepsOf(const std::string& program,
                           const gcode_check::MachineOptions& options = {}) {
    return stepsIn(gcode_check::read(program, options));
}

/// "2:4 word-twice": line, column and rule of the first diagnostic; "" without one.
std::string stopOf(const std::string& program, const gcode_check::MachineOptions& options = {});
