// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <kx/host/kxGeometryFactory.h>

namespace kxdrawing {

/// The cubic spline through the points: twice continuously differentiable over the chord lengths,
/// with no curvature at its ends, as Bezier pieces in one B-spline. Equal neighbours count once;
/// nothing when fewer than two points are left. `closed` goes back to the first point.
std::optional<kxSplineData> splineThrough(std::vector<kxVector3> points, bool closed);

}  // namespace kxdrawing
