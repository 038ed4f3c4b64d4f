// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// A vertex colour as it goes to OpenGL; components are not limited to 0 ... 1.
struct Color {
    constexpr Color() = default;
    constexpr Color(float red, float green, float blue, float alpha)
        : r(red), g(green), b(blue), a(alpha) {}

    float r = 0;
    float g = 0;
    float b = 0;
    float a = 0;
};

/// Exact: -0 equals 0, and NaN equals nothing.
inline bool operator==(const Color& a, const Color& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}
inline bool operator!=(const Color& a, const Color& b) {
    return !(a == b);
}

Q_DECLARE_TYPEINFO(Color, Q_PRIMITIVE_TYPE);
