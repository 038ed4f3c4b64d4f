// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Intervals.h"

#include <algorithm>

namespace gcode_check {

void unite(std::vector<Interval>& intervals) {
    const auto before = [](const Interval& a, const Interval& b) {
        return a.from < b.from || (a.from == b.from && a.to < b.to);
    };
    // They often come in order, those of a full turn beginning anywhere in it.
    std::rotate(intervals.begin(), std::is_sorted_until(intervals.begin(), intervals.end(), before),
                intervals.end());
    if (!std::is_sorted(intervals.begin(), intervals.end(), before)) {
        std::sort(intervals.begin(), intervals.end(), before);
    }
    std::size_t kept = 0;
    for (std::size_t next = 1; next < intervals.size(); ++next) {
        if (intervals[next].from <= intervals[kept].to) {
            intervals[kept].to = std::max(intervals[kept].to, intervals[next].to);
        } else {
            intervals[++kept] = intervals[next];
        }
    }
    if (!intervals.empty()) {
        intervals.resize(kept + 1);
    }
}

void joinAcross(std::vector<Interval>& united, double gap) {
    constexpr double kMuchLonger = 10;
    const auto width = [](const Interval& part) { return part.to - part.from; };
    std::size_t kept = 0;
    double lastWidth = united.empty() ? 0 : width(united.front());
    for (std::size_t next = 1; next < united.size(); ++next) {
        const double missing = united[next].from - united[kept].to;
        const double shorter = std::min(lastWidth, width(united[next]));
        lastWidth = width(united[next]);
        if (missing <= gap && missing * kMuchLonger <= shorter) {
            united[kept].to = united[next].to;
        } else {
            united[++kept] = united[next];
        }
    }
    if (!united.empty()) {
        united.resize(kept + 1);
    }
}

std::vector<Interval> gapsOf(std::vector<Interval>& intervals, double least) {
    unite(intervals);
    std::vector<Interval> gaps;
    double reached = 0;
    for (const Interval& covered : intervals) {
        if (covered.from - reached > least) {
            gaps.push_back({reached, covered.from});
        }
        reached = std::max(reached, covered.to);
    }
    if (1 - reached > least) {
        gaps.push_back({reached, 1});
    }
    return gaps;
}

double widthOf(const std::vector<Interval>& intervals) {
    double width = 0;
    for (const Interval& interval : intervals) {
        width += interval.to - interval.from;
    }
    return width;
}

}  // namespace gcode_check
