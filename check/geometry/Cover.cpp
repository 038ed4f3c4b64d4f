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

bool Cover::add(const Curve& other) {
    appendNear(m_curve, other, m_reach, Ends::Round, m_covered);
    return !m_covered.empty() && m_covered.back().from == 0 && m_covered.back().to == 1;
}

bool Cover::addAndJudge(const Curve& other) {
    if (add(other)) {
        return true;
    }
    if (m_covered.size() <= m_judgedAt) {
        return false;
    }
    const bool isCovered = covers();
    m_judgedAt = m_covered.size() * 2 + 8;
    return isCovered;
}

bool Cover::covers() {
    return gapsOf(m_covered, m_least).empty();
}

}  // namespace gcode_check
