// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Cover.h"

namespace gcode_check {
namespace {

constexpr double kGap = 1e-7;

}  // namespace

Cover::Cover(const Curve& curve, double reach) : m_curve(curve), m_reach(reach) {
    const double length = lengthOf(curve);
    m_least = length > 0 ? kGap / length + 1e-10 : 0.5;
}

bool Cover::covers() {
    return gapsOf(m_covered, m_least).empty();
}

}  // namespace gcode_check
