// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

#include "interpreter/Motion.h"

namespace gcode_check {

// X, Y, Z, A, B, C in the unit in force (rotary axes in degrees).
using Axes = std::array<double, 6>;

constexpr char kAxisLetters[] = "XYZABC";
constexpr std::size_t kLinearAxes = 3;

// Arcs turn from the first to the second and rise along the third, in which cycles drill.
struct PlaneAxes {
    std::size_t first;
    std::size_t second;
    std::size_t third;
};

inline const PlaneAxes& axesOf(Plane plane) {
    static constexpr std::array<PlaneAxes, 3> kAxes = {{{0, 1, 2}, {2, 0, 1}, {1, 2, 0}}};
    return kAxes[static_cast<std::size_t>(plane)];
}

}  // namespace gcode_check
