// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "geometry/Curve.h"
#include "geometry/Intervals.h"

namespace gcode_check {

enum class Ends : std::uint8_t {
    Round,   // all that is within reach of the other curve
    Square,  // only what lies beside it, not what lies beyond its ends
};

// Appends the parts of `curve` within `reach` of `other`. Exact: the parts end where the distance
// is the reach, apart from rounding. A point has the part 0 to 1 or none.
void appendNear(const Curve& curve, const Curve& other, double reach, Ends ends,
                std::vector<Interval>& parts);

}  // namespace gcode_check
