// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/PixelSnap.h"

#include <cmath>

namespace {

/// So that what lies on a pixel's edge but for rounding is moved the same way.
constexpr double kRounding = 1e-6;

}  // namespace

PixelSnap::PixelSnap(const QPointF& shift, double width)
    : m_shift(shift), m_odd(std::lround(width) % 2 != 0) {}

double PixelSnap::snapped(double at, double shift) const {
    const double device = at + shift + kRounding;
    return (m_odd ? std::floor(device) + 0.5 : std::round(device)) - shift;
}
