// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>

#include <kx/host/kxVector3.h>

constexpr double kPi = 3.141592653589793238462643383279;

/// The bits of a number, to tell apart what `==` does not.
inline std::uint64_t bitsOf(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// A point of a curve with its derivatives, as the curve writes them into arrays.
struct Evaluated {
    double point[3] = {-7, -7, -7};
    double first[3] = {-7, -7, -7};
    double second[3] = {-7, -7, -7};
};

template <class Curve>
Evaluated evaluate(const Curve& curve, double parameter) {
    Evaluated result;
    curve.EvaluateAtParameter(parameter, result.point, result.first, result.second);
    return result;
}
