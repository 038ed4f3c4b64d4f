// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "view/Outline.h"
#include "view/WorldBox.h"

namespace outline {

/// A part of a rational Bezier curve as its own control points, whose hull holds it.
struct BezierPiece {
    const WeightedPoint* points = nullptr;
    std::uint32_t count = 0;

    QPointF first() const { return points[0].point(); }
    QPointF last() const { return points[count - 1].point(); }
    WorldBox hull() const;
    /// No point of the curve is farther from the straight segment between the ends.
    double deviation() const;
};

/// Writes the two halves of a piece, `count` points each.
void halve(const BezierPiece& piece, WeightedPoint* left, WeightedPoint* right);

/// Walks along a curve, halving as asked.
class BezierWalk {
public:
    /// Calls `visit(piece)`, in the direction of the curve, and the same for both halves of each
    /// piece for which it returned true.
    template <class Visit>
    void walk(const BezierPiece& curve, Visit&& visit) {
        m_room.resize(std::size_t{curve.count} * 2 * (kMaxDepth + 1));
        step(curve, 0, visit);
    }

private:
    static constexpr int kMaxDepth = 48;

    template <class Visit>
    void step(const BezierPiece& piece, int depth, Visit&& visit) {
        if (!visit(piece) || depth == kMaxDepth) {
            return;
        }
        WeightedPoint* left =
            m_room.data() + std::size_t{piece.count} * 2 * static_cast<std::size_t>(depth);
        WeightedPoint* right = left + piece.count;
        halve(piece, left, right);
        step(BezierPiece{left, piece.count}, depth + 1, visit);
        step(BezierPiece{right, piece.count}, depth + 1, visit);
    }

    std::vector<WeightedPoint> m_room;
};

/// The tight box of a curve: exact to about 1e-12 of its size, never larger than the curve.
WorldBox boxOf(const BezierPiece& curve);

}  // namespace outline
