// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>
#include <string_view>

/// The number of a word, from a text of digits, points and signs only and without the process's
/// locale: read as double, then narrowed. What is no number or vanishes in a float is 0, what
/// exceeds one is infinite.
float wordNumber(std::string_view text);

/// The value as a float: infinite beyond its range, and 0 when it vanishes.
inline float narrowNumber(double value) {
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
        return std::copysign(std::numeric_limits<float>::infinity(),
                             static_cast<float>(value < 0 ? -1 : 1));
    }
    const float narrowed = static_cast<float>(value);
    // What vanishes loses its sign too; a zero that was written keeps it.
    return narrowed == 0 && value != 0 ? 0.0F : narrowed;
}

/// `value` without its fraction; beyond 32 bits the nearest limit, and 0 for NaN.
inline int truncateToInt(float value) {
    using Limits = std::numeric_limits<int>;
    if (std::isnan(value)) {
        return 0;
    }
    // The largest int is no float; the next float above it is the first one out of range.
    if (value >= -static_cast<float>(Limits::min())) {
        return Limits::max();
    }
    return value <= static_cast<float>(Limits::min()) ? Limits::min() : static_cast<int>(value);
}
