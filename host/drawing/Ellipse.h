// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <kx/host/kxGeometryFactory.h>

namespace kxdrawing {

/// The same curve with perpendicular half axes, the major one first, run counter-clockwise:
/// center + cos(t) u + sin(t) v for the parameters of `data`, where the half axes given are any
/// two conjugate half-diameters u and v. What has that form already is not disturbed.
kxEllipseArcData principalForm(const kxEllipseArcData& data);

/// Whether both half axes are equally long within 1e-12 relative.
bool isCircular(const kxEllipseArcData& data);

}  // namespace kxdrawing
