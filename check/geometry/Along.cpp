// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Along.h"

#include <algorithm>
#include <cmath>

namespace gcode_check {
namespace {

// Rounding: added to a cosine it makes the sine too small.
constexpr double kSlack = 1e-9;

double sineFor(double cosine) {
    const double most = std::min(cosine + kSlack, 1.0);
    return std::sqrt((1 - most) * (1 + most));
}

double sineOfSegments(const Curve& a, const Curve& b) {
    const PlanePoint own = directionAt(a, 0);
    const PlanePoint its = directionAt(b, 0);
    return std::max(std::abs(own.x * its.y - own.y * its.x) - kSlack, 0.0);
}

// From the centre to the line through the segment.
double offLine(const Curve& segment, const PlanePoint& centre) {
    const PlanePoint along = directionAt(segment, 0);
    return std::abs((centre.x - segment.a.x) * along.y - (centre.y - segment.a.y) * along.x);
}

// At a place of the first circle, so far from the centre of the second one.
double cosineBetween(double radius, double otherRadius, double apart) {
    return std::abs((radius - apart) * (radius + apart) + otherRadius * otherRadius) /
           (2 * radius * otherRadius);
}

// The least sine between the two directions at any place of the curve that is within reach.
double leastSine(const Curve& curve, const Curve& other, double reach) {
    const bool isArc = curve.kind == Curve::Kind::Arc;
    if (other.kind == Curve::Kind::Segment) {
        return isArc ? sineFor((offLine(other, curve.centre) + reach) / curve.radius)
                     : sineOfSegments(curve, other);
    }
    const double least = other.radius - reach;
    if (!(least > 0)) {
        return 0;
    }
    if (!isArc) {
        return sineFor(offLine(curve, other.centre) / least);
    }
    // Between the two the cosine has no maximum.
    const double apart = distance(curve.centre, other.centre);
    return sineFor(std::max(cosineBetween(curve.radius, least, apart),
                            cosineBetween(curve.radius, other.radius + reach, apart)));
}

}  // namespace

bool mayRunAlong(const Curve& curve, const Curve& other, double reach, const AlongBounds& bounds) {
    if (curve.kind == Curve::Kind::Point || other.kind == Curve::Kind::Point) {
        return true;
    }
    const double sine = leastSine(curve, other, reach);
    if (sine <= bounds.parallel) {
        return true;
    }
    const bool areStraight =
        curve.kind == Curve::Kind::Segment && other.kind == Curve::Kind::Segment;
    const double longest = areStraight ? 2 * reach / sine : lengthOf(curve);
    return sine <= bounds.rough && longest * (1 + kSlack) + kSlack >= bounds.part * lengthOf(other);
}

}  // namespace gcode_check
