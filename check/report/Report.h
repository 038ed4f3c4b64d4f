// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "findings/Check.h"

namespace gcode_check {

// What stands above a report; empty texts are left out. File names as they are to be shown.
struct ReportHead {
    std::string program;
    std::string drawing;
    // Whether somebody said where the surface is; it is 0 otherwise
    bool surfaceGiven = true;
};

}  // namespace gcode_check
