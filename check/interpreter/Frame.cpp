// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cmath>

#include "interpreter/Motion.h"

namespace gcode_check {
namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180;

Point turned(const Point& point, double angleDeg) {
    if (angleDeg == 0) {
        return point;
    }
    const double cosine = std::cos(angleDeg * kRadiansPerDegree);
    const double sine = std::sin(angleDeg * kRadiansPerDegree);
    return {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine, point.z};
}

}  // namespace

Point toProgram(const Frame& frame, const Point& machine) {
    const Point& offset = frame.offset;
    return turned({machine.x - offset.x, machine.y - offset.y, machine.z - offset.z},
                  -frame.rotationDeg);
}

Point toMachine(const Frame& frame, const Point& program) {
    const Point point = turned(program, frame.rotationDeg);
    const Point& offset = frame.offset;
    return {point.x + offset.x, point.y + offset.y, point.z + offset.z};
}

}  // namespace gcode_check
