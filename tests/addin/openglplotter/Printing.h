// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

#include "openglplotter/Color.h"
#include "openglplotter/Point3d.h"

/// How the tests' messages show them.
inline std::ostream& operator<<(std::ostream& out, const Point3d& p) {
    return out << "(" << p.x << ", " << p.y << ", " << p.z << ")";
}

inline std::ostream& operator<<(std::ostream& out, const Color& c) {
    return out << "(" << c.r << ", " << c.g << ", " << c.b << ", " << c.a << ")";
}
