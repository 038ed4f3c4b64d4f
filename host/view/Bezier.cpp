// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/Bezier.h"

#include <algorithm>
#include <cmath>

#include "view/Distance.h"

namespace outline {

WorldBox BezierPiece::hull() const {
    WorldBox box;
    for (std::uint32_t i = 0; i < count; ++i) {
        box.add(points[i].point());
    }
    return box;
}

double BezierPiece::deviation() const {
    const Segment chord{first(), last()};
    double farthest = 0;
    for (std::uint32_t i = 1; i + 1 < count; ++i) {
        farthest = std::max(farthest, distance(chord, points[i].point()));
    }
    return farthest;
}

void halve(const BezierPiece& piece, WeightedPoint* left, WeightedPoint* right) {
    const std::uint32_t last = piece.count - 1;
    std::copy(piece.points, piece.points + piece.count, right);
    for (std::uint32_t i = 0; i <= last; ++i) {
        left[i] = right[0];
        for (std::uint32_t k = 0; k < last - i; ++k) {
            right[k] = {right[k].x / 2 + right[k + 1].x / 2, right[k].y / 2 + right[k + 1].y / 2,
                        right[k].w / 2 + right[k + 1].w / 2};
        }
    }
}

WorldBox boxOf(const BezierPiece& curve) {
    WorldBox box;
    box.add(curve.first());
    box.add(curve.last());
    const WorldBox whole = curve.hull();
    const double small = 1e-13 * std::max(whole.width(), whole.height());
    BezierWalk().walk(curve, [&](const BezierPiece& piece) {
        box.add(piece.first());
        box.add(piece.last());
        const WorldBox hull = piece.hull();
        const double outside = std::max({box.minX - hull.minX, box.minY - hull.minY,
                                         hull.maxX - box.maxX, hull.maxY - box.maxY});
        return outside > small;
    });
    return box;
}

}  // namespace outline
