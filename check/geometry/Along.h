// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Curve.h"

namespace gcode_check {

// Which way a curve must go to run along another one: in nearly the same one, or roughly when it
// lies beside it over a good part of its own length.
struct AlongBounds {
    double parallel = 1e-3;  // sine
    double rough = 0;        // sine
    double part = 1;         // of its own length
};

// Whether `other` may run along a part of `curve` within the reach. Cheap; says yes too often, but
// never no when it does.
bool mayRunAlong(const Curve& curve, const Curve& other, double reach, const AlongBounds& bounds);

}  // namespace gcode_check
