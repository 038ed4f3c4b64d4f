// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "findings/Check.h"

namespace gcode_check {

// Lines without an end, for people.

// "No findings", "No errors, 2 warnings", "1 error, 2 warnings"
std::string verdictText(const CheckResult& result);
// How many objects are cut entirely, or why that is not known.
std::string coverageText(const CheckResult& result);
// "1 h 2 min 3 s", whole seconds
std::string timeText(double seconds);

}  // namespace gcode_check
