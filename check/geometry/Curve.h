// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "findings/Shape.h"

namespace gcode_check {

constexpr double kPi = 3.14159265358979323846;

// A point, a segment or a circular arc, seen from above. Its parameter runs from 0 to 1.
struct Curve {
    enum class Kind : std::uint8_t { Point, Segment, Arc };
    Kind kind = Kind::Point;
    PlanePoint a;  // a point's place; a segment's first end
    PlanePoint b;  // a segment's second end
    PlanePoint centre;
    double radius = 0;
    double start = 0;  // radians
    double sweep = 0;  // counter-clockwise, above 0, at most a full turn
};

struct PlaneBox {
    double minX = 1;
    double minY = 1;
    double maxX = -1;
    double maxY = -1;
    bool empty() const { return minX > maxX; }
};

Curve pointCurve(const PlanePoint& place);
// A point when both ends are equal.
Curve segmentCurve(const PlanePoint& a, const PlanePoint& b);
// Angles in radians; a sweep below 0 is clockwise, beyond a full turn a circle. A point when the
// radius or the sweep is 0.
Curve arcCurve(const PlanePoint& centre, double radius, double start, double sweep);
Curve curveOf(const Shape& shape);

// Whether it can be reckoned with: beyond, squares of lengths leave the range of numbers.
inline bool isFinite(const PlanePoint& place) {
    return std::abs(place.x) <= 1e100 && std::abs(place.y) <= 1e100;
}
bool isFinite(const Curve& curve);
double lengthOf(const Curve& curve);
PlanePoint pointAt(const Curve& curve, double t);
// Unit vector along growing parameters; 0, 0 of a point.
PlanePoint directionAt(const Curve& curve, double t);
PlaneBox boxOf(const Curve& curve);
double distance(const PlanePoint& a, const PlanePoint& b);
double distance(const Curve& curve, const PlanePoint& place);
// The part of a curve between two parameters.
Curve partOf(const Curve& curve, double from, double to);
// The parameter of a place on (or close to) the curve, and whether it lies within its ends.
double parameterOf(const Curve& curve, const PlanePoint& place);

// Whether the curve comes within `reach` of the box; may say yes a little too often, never no.
bool mayReach(const Curve& curve, const PlaneBox& box, double reach);

// An angle brought into 0 up to below a full turn.
double wholeTurn(double angle);

}  // namespace gcode_check
