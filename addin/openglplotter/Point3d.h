// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// A point in the file's own length unit.
struct Point3d {
    constexpr Point3d() = default;
    constexpr Point3d(float px, float py, float pz) : x(px), y(py), z(pz) {}

    float x = 0;
    float y = 0;
    float z = 0;
};

/// Exact: -0 equals 0, and NaN equals nothing.
inline bool operator==(const Point3d& a, const Point3d& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}
inline bool operator!=(const Point3d& a, const Point3d& b) {
    return !(a == b);
}

Q_DECLARE_TYPEINFO(Point3d, Q_PRIMITIVE_TYPE);
