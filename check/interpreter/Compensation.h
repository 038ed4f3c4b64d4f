// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "interpreter/CompensationGeometry.h"

namespace gcode_check {

// How a machine stands with radius compensation. Lengths are in the program's unit.
struct Compensation {
    bool isOn = false;
    bool isEntered = false;  // its first move was made
    bool isLeaving = false;  // behind G40, before the next move
    double left = 0;         // see CompensationGeometry.h, in the program's unit
    AxisPair shift;          // from the tool's centre to what is moved to a place: of a lathe tool
    // The last move in the plane. The next one says where it ends.
    bool hasPending = false;
    bool isUnchecked = false;  // it may begin behind its end, as a first move may
    std::size_t pending = 0;   // its index
    ProgrammedPath path;
    AxisPair from;  // of the tool
    AxisPair to;    // of the tool, also when nothing is pending
};

}  // namespace gcode_check
