// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "geometry/Curve.h"
#include "geometry/Intervals.h"

namespace gcode_check {

enum class Ends : std::uint8_t {
    Round,   // all that is within reach of the other curve
    Square,  // only what lies beside it, not what lies beyond its ends
};

// Where a segment stays within reach of an arc: the part of the arc between the ends of the
// segment, as seen from the centre, all of which is within reach of it. Often two parts, as an arc
// of a full turn has a begin.
struct Beside {
    std::array<Interval, 2> parts;
    std::size_t count = 0;
    // So far beyond their ends may lie what is beside the segment, as parameter of the arc
    double slack = 0;
};

// Cheap; none: it is to be looked at by `appendNear`.
std::optional<Beside> besideSegment(const Curve& arc, const Curve& segment, double reach);

// Appends the parts of `curve` within `reach` of `other`. Exact: the parts end where the distance
// is the reach, apart from rounding. A point has the part 0 to 1 or none.
void appendNear(const Curve& curve, const Curve& other, double reach, Ends ends,
                std::vector<Interval>& parts);

}  // namespace gcode_check
