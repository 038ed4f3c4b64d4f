// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace gcode_check {

// Part of a curve's parameter range, 0 to 1.
struct Interval {
    double from = 0;
    double to = 0;
};

// Sorted and without overlap; parts that touch become one.
void unite(std::vector<Interval>& intervals);

// Of united parts, those at most `gap` apart become one when both are much longer than that.
void joinAcross(std::vector<Interval>& united, double gap);

// What of 0 to 1 no interval covers, apart from gaps of at most `least`. Unites them.
std::vector<Interval> gapsOf(std::vector<Interval>& intervals, double least);

// Together, of intervals that do not overlap.
double widthOf(const std::vector<Interval>& intervals);

}  // namespace gcode_check
