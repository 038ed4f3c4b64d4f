// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "interpreter/Motion.h"

namespace gcode_check {

// Program coordinates; min above max when there is nothing.
struct Box {
    Point min{1, 1, 1};
    Point max{-1, -1, -1};
    bool empty() const { return min.x > max.x; }
};

// What a program amounts to. Lengths in the program's unit.
struct Figures {
    Box moves;                // of all moves from the first known place on
    Box cutting;              // of what feeds below the surface
    double cuttingDepth = 0;  // the surface minus the lowest cut
    double cutLength = 0;     // along the path, at feed below the surface, strokes included
    double feedLength = 0;    // at feed, below the surface and above
    double rapidLength = 0;
    std::size_t strokes = 0;    // straight down and out again: drilled holes, each once
    std::size_t toolDowns = 0;  // from above the surface to below
    std::size_t toolUps = 0;
    std::size_t dwells = 0;
    std::size_t toolChanges = 0;
    double feedSeconds = 0;  // at the programmed feeds, without the time to speed up and slow down
    double rapidSeconds = 0;
    double dwellSeconds = 0;
    double seconds() const { return feedSeconds + rapidSeconds + dwellSeconds; }
};

}  // namespace gcode_check
