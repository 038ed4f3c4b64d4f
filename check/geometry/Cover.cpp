// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Cover.h"

namespace gcode_check {
namespace {

constexpr double kGap = 1e-7;

double leastGapOf(const Curve& curve) {
    const double length = lengthOf(curve);
    return length > 0 ? kGap / length + 1e-10 : 0.5;
}

}  // namespace

Cover::Cover(const Curve& curve, double reach)
    : m_curve(curve), m_reach(reach), m_least(leastGapOf(curve)) {}

bool Cover::isWhole(const Curve& curve, std::vector<Interval>& parts) {
    return gapsOf(parts, leastGapOf(curve)).empty();
}

bool Cover::covers() {
    return gapsOf(m_covered, m_least).empty();
}

}  // namespace gcode_check
