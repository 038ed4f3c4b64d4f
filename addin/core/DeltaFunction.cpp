// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/DeltaFunction.h"

#include <cmath>

namespace GCode {

double roundedDifference(double a, double b) {
    constexpr double kFactor = 10000.0;
    constexpr double kDeadBand = 0.01;
    const double difference = std::ceil(a * kFactor) / kFactor - std::ceil(b * kFactor) / kFactor;
    if (-kDeadBand <= difference && difference <= kDeadBand) {
        return 0.0;
    }
    return difference;
}

}  // namespace GCode
