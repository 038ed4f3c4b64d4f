// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

namespace GCode {

/// A 3-D point in drawing units. Two points are equal when all three coordinates are exactly equal,
/// without a tolerance; a point with a NaN coordinate differs from every point, itself included.
class Point {
public:
    Point() = default;
    Point(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}

    void SetPoint(double x, double y, double z) {
        m_x = x;
        m_y = y;
        m_z = z;
    }

    /// Writes the coordinates through the pointers, of which none may be null.
    void GetPoint(double* x, double* y, double* z) const {
        *x = m_x;
        *y = m_y;
        *z = m_z;
    }

    bool operator==(const Point& other) const {
        return m_x == other.m_x && m_y == other.m_y && m_z == other.m_z;
    }
    bool operator!=(const Point& other) const {
        return m_x != other.m_x || m_y != other.m_y || m_z != other.m_z;
    }

    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

}  // namespace GCode
