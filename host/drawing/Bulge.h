// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include <kx/host/kxGeometryFactory.h>

namespace kxdrawing {

/// A polyline's segment: its ends and its bulge, the tangent of a quarter of the swept angle,
/// positive counter-clockwise.
struct BulgeSegment {
    kxVector3 first;
    kxVector3 second;
    double bulge = 0;
};

/// The segment's circular arc, counter-clockwise, which evaluates at its ends to the segment's
/// ends exactly; a negative bulge swaps them. Nothing for a straight segment: a bulge of 0, equal
/// ends, a radius above 1e9 with the arc less than 0.001 from its chord, or any above 1e12.
std::optional<kxCircleArcData> bulgeArc(const BulgeSegment& segment);

/// Whether a segment that can be seen to be bent has a radius above 1e12: a point on such an arc is
/// not exact enough.
bool isTooLarge(const BulgeSegment& segment);

/// The greatest distance of the arc from its chord.
double sagitta(const BulgeSegment& segment);

}  // namespace kxdrawing
