// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Bulge.h"

#include <cmath>
#include <utility>

namespace kxdrawing {

namespace {

/// Beyond this radius an arc counts as straight, unless it leaves its chord visibly.
constexpr double kGreatestRadius = 1e9;
constexpr double kVisibleSagitta = 1e-3;
constexpr double kGreatestExactRadius = 1e12;

double chordLength(const BulgeSegment& segment) {
    return std::hypot(segment.second.x - segment.first.x, segment.second.y - segment.first.y);
}

double radiusOf(const BulgeSegment& segment) {
    const double b = segment.bulge;
    return chordLength(segment) * (1 + b * b) / (4 * std::abs(b));
}

}  // namespace

bool isTooLarge(const BulgeSegment& segment) {
    return segment.bulge != 0 && radiusOf(segment) > kGreatestExactRadius &&
           sagitta(segment) >= kVisibleSagitta;
}

std::optional<kxCircleArcData> bulgeArc(const BulgeSegment& segment) {
    const double b = segment.bulge;
    const double chord = chordLength(segment);
    const double radius = radiusOf(segment);
    const bool hardlyBent = radius > kGreatestRadius && sagitta(segment) < kVisibleSagitta;
    if (b == 0 || chord == 0 || hardlyBent || !(radius <= kGreatestExactRadius)) {
        return std::nullopt;
    }
    const double dx = segment.second.x - segment.first.x;
    const double dy = segment.second.y - segment.first.y;
    const double offset = (1 - b * b) / (4 * b);
    kxCircleArcData arc;
    arc.center = {segment.first.x + dx / 2 - offset * dy, segment.first.y + dy / 2 + offset * dx,
                  segment.first.z};
    arc.radius = radius;
    arc.exactStart = segment.first;
    arc.exactEnd = segment.second;
    if (b < 0) {
        std::swap(arc.exactStart, arc.exactEnd);
    }
    arc.startParameter =
        std::atan2(arc.exactStart->y - arc.center.y, arc.exactStart->x - arc.center.x);
    // From the bulge, not from the other end: it can't be mistaken by a turn on a tiny arc.
    arc.endParameter = arc.startParameter + 4 * std::atan(std::abs(b));
    return arc;
}

double sagitta(const BulgeSegment& segment) {
    return std::abs(segment.bulge) * chordLength(segment) / 2;
}

}  // namespace kxdrawing
