// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <optional>

#include "drawing/Bulge.h"

namespace kxdrawing {

struct Vector2 {
    double x = 0;
    double y = 0;
};

/// An end of a curve in the plane, with the direction (of length 1) that the curve has there.
struct DirectedPoint {
    kxVector3 point;
    Vector2 direction;
};

/// Two circular arcs that leave the first end and reach the second in its direction, with a
/// common tangent where they meet. Nothing when the ends admit none that turns by half a circle
/// at most per arc.
std::optional<std::array<BulgeSegment, 2>> biarc(const DirectedPoint& first,
                                                 const DirectedPoint& second);

/// Measures distances in the plane to a straight or circular segment.
class SegmentDistance {
public:
    explicit SegmentDistance(const BulgeSegment& segment);
    double to(const kxVector3& point) const;
    /// The point at a fraction of the way, for a fraction in [0, 1].
    kxVector3 at(double fraction) const;

private:
    BulgeSegment m_segment;
    std::optional<kxCircleArcData> m_arc;
};

}  // namespace kxdrawing
