// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Ellipse.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/Angles.h"

namespace kxdrawing {

namespace {

double dot(const kxVector3& a, const kxVector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

double cross(const kxVector3& a, const kxVector3& b) {
    return a.x * b.y - a.y * b.x;
}

kxVector3 combined(double s, const kxVector3& a, double t, const kxVector3& b) {
    return {s * a.x + t * b.x, s * a.y + t * b.y, s * a.z + t * b.z};
}

void turnParameters(kxEllipseArcData& data, double angle) {
    const AngleSpan span = turnedBy({data.startParameter, data.endParameter}, angle);
    data.startParameter = span.start;
    data.endParameter = span.end;
}

/// The axes turned by the parameter `turn`, which then is the new parameter 0.
kxEllipseArcData shifted(kxEllipseArcData data, double turn) {
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const kxVector3 u = data.majorAxis;
    const kxVector3 v = data.minorAxis;
    data.majorAxis = combined(c, u, s, v);
    data.minorAxis = combined(-s, u, c, v);
    turnParameters(data, -turn);
    return data;
}

kxEllipseArcData counterClockwise(kxEllipseArcData data) {
    if (cross(data.majorAxis, data.minorAxis) < 0) {
        data.minorAxis = combined(-1, data.minorAxis, 0, data.minorAxis);
        const double start = data.startParameter;
        data.startParameter = -data.endParameter;
        data.endParameter = -start;
    }
    return data;
}

/// A full ellipse begins at its major axis; the start of a part lies in [0, 2 pi).
kxEllipseArcData normalized(kxEllipseArcData data) {
    const double sweep = data.endParameter - data.startParameter;
    if (std::abs(sweep - kTwoPi) < 1e-9) {
        data.startParameter = 0;
        data.endParameter = kTwoPi;
    } else {
        const double turns = std::floor(data.startParameter / kTwoPi);
        turnParameters(data, -turns * kTwoPi);
    }
    return data;
}

}  // namespace

kxEllipseArcData principalForm(const kxEllipseArcData& data) {
    const double uu = dot(data.majorAxis, data.majorAxis);
    const double vv = dot(data.minorAxis, data.minorAxis);
    const double uv = dot(data.majorAxis, data.minorAxis);
    const bool perpendicular = std::abs(uv) <= 1e-14 * std::sqrt(uu * vv);
    if (perpendicular && uu >= vv * (1 - 1e-12)) {
        const bool clockwise = cross(data.majorAxis, data.minorAxis) < 0;
        return clockwise ? normalized(counterClockwise(data)) : data;
    }
    const double turn = perpendicular ? kPi / 2 : 0.5 * std::atan2(2 * uv, uu - vv);
    return normalized(counterClockwise(shifted(data, turn)));
}

bool isCircular(const kxEllipseArcData& data) {
    const double major = std::sqrt(dot(data.majorAxis, data.majorAxis));
    const double minor = std::sqrt(dot(data.minorAxis, data.minorAxis));
    return std::abs(major - minor) <= 1e-12 * std::max(major, minor);
}

}  // namespace kxdrawing
