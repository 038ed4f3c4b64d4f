// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cmath>

namespace kxdrawing {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2 * kPi;
constexpr double kRadPerDeg = kPi / 180;

/// Two angles in one unit.
struct AngleSpan {
    double start = 0;
    double end = 0;
};

/// The span with its end in (start, start + turn]; an end that lies there, or that one turn
/// brings there, is not disturbed further.
inline AngleSpan withinOneTurn(AngleSpan span, double turn) {
    const double sweep = span.end - span.start;
    if (sweep > turn || sweep <= -turn) {
        const double rest = std::fmod(sweep, turn);
        span.end = span.start + (rest > 0 ? rest : rest + turn);
    } else if (!(sweep > 0)) {
        span.end += turn;
    }
    return span;
}

/// The span turned by an angle. One that is too short for the sum to tell its ends apart stays as
/// short as can be: with equal ends it would count as a full turn.
inline AngleSpan turnedBy(const AngleSpan& span, double angle) {
    AngleSpan turned{span.start + angle, span.end + angle};
    if (span.end > span.start && !(turned.end > turned.start)) {
        turned.end = std::nextafter(turned.start, HUGE_VAL);
    }
    return turned;
}

}  // namespace kxdrawing
