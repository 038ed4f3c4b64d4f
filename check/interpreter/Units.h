// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "interpreter/Machine.h"

namespace gcode_check {

constexpr double kMmPerInch = 25.4;
constexpr double kLargestWhole = 2147483647.0;
constexpr double kPi = 3.14159265358979323846;
constexpr double kRadiansPerDegree = kPi / 180;

inline Axes axesOf(const Point& mm, double mmPerUnit) {
    return {mm.x / mmPerUnit, mm.y / mmPerUnit, mm.z / mmPerUnit, 0, 0, 0};
}

inline Point pointOf(const Axes& axes, double mmPerUnit) {
    return {axes[0] * mmPerUnit, axes[1] * mmPerUnit, axes[2] * mmPerUnit};
}

}  // namespace gcode_check
