// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "findings/Step.h"
#include "geometry/Curve.h"

namespace gcode_check {

// One stretch at feed in the material, seen from above. Program coordinates and unit.
struct Cut {
    Curve curve;
    bool reversed = false;  // the tool runs against the curve's parameter
    double startZ = 0;      // where the curve begins
    double endZ = 0;
    std::uint32_t motion = 0;  // of Reading::motions
    std::uint32_t line = 0;
};

// Straight down and out again.
struct Hole {
    PlanePoint place;
    double bottom = 0;
    std::uint32_t motion = 0;
    std::uint32_t line = 0;
    bool inCycle = false;
};

// All that a program cuts, in its order.
struct CutList {
    std::vector<Cut> cuts;
    std::vector<Hole> holes;
};

enum class Heights : std::uint8_t {
    BelowSurface,  // what feeds below the surface cuts
    Any,           // what feeds cuts: the heights are known to be wrong
};

// What lies on infinite or unusable places is left out.
CutList cutsOf(const Setting& setting, Heights heights);

}  // namespace gcode_check
