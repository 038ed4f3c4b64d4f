// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <kx/host/kxGeometryFactory.h>

namespace kxdrawing {

/// A point of a parametric curve and the derivative by the parameter there.
struct CurvePoint {
    kxVector3 position;
    kxVector3 derivative;
};

struct Curve {
    std::function<CurvePoint(double)> at;
    /// The ends and, between them, each parameter where the curve may have a corner; increasing.
    std::vector<double> breaks;
    /// Whether the last point is to be the first one exactly.
    bool closed = false;
};

/// A chain of straight and circular segments along the curve: pairs of arcs with common tangents,
/// halved until both the curve lies within the tolerance of the chain and the chain within that of
/// the curve. A tolerance finer than a thousand-millionth of the curve's size counts as that. A
/// curve that leaves the plane z = constant gets straight segments only. The chain starts and ends
/// at the curve's ends exactly; from 50,000 segments on what is left is straight and as coarse as
/// it must be. The last vertex has no bulge.
std::vector<kxPolyLineVertex> fitArcs(const Curve& curve, double tolerance);

}  // namespace kxdrawing
