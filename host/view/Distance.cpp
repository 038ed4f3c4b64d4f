// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/Distance.h"

#include <algorithm>
#include <cmath>

#include "view/Bezier.h"

namespace outline {

namespace {

double length(const QPointF& vector) {
    return std::hypot(vector.x(), vector.y());
}

double cross(const QPointF& a, const QPointF& b) {
    return a.x() * b.y() - a.y() * b.x();
}

bool inside(const WorldBox& box, const QPointF& point) {
    return box.minX <= point.x() && point.x() <= box.maxX && box.minY <= point.y() &&
           point.y() <= box.maxY;
}

bool inside(const Note& note, const QPointF& point) {
    for (std::size_t i = 0; i < 4; ++i) {
        const QPointF& corner = note.corners[i];
        if (cross(note.corners[(i + 1) % 4] - corner, point - corner) < 0) {
            return false;
        }
    }
    return true;
}

double distance(const WorldBox& box, const QPointF& point) {
    const double dx = std::max({box.minX - point.x(), point.x() - box.maxX, 0.0});
    const double dy = std::max({box.minY - point.y(), point.y() - box.maxY, 0.0});
    return std::hypot(dx, dy);
}

BezierPiece pieceOf(const Outlines& outlines, std::size_t index) {
    const Bezier& bezier = outlines.beziers[index];
    return {outlines.bezierPoints.data() + bezier.first, bezier.count};
}

/// The lesser of `best` and the distance from the curve, exact to `precision`.
double nearer(const BezierPiece& curve, const QPointF& point, double best, double precision) {
    BezierWalk().walk(curve, [&](const BezierPiece& piece) {
        if (distance(piece.hull(), point) >= best) {
            return false;
        }
        best = std::min({best, length(piece.first() - point), length(piece.last() - point)});
        const double deviation = piece.deviation();
        const double toChord = distance(Segment{piece.first(), piece.last()}, point);
        if (toChord - deviation >= best) {
            return false;
        }
        if (deviation <= precision) {
            best = std::min(best, toChord);
            return false;
        }
        return true;
    });
    return best;
}

bool touches(const BezierPiece& curve, const WorldBox& box) {
    bool found = false;
    const double precision = 1e-9 * std::max(box.width(), box.height());
    BezierWalk().walk(curve, [&](const BezierPiece& piece) {
        if (found || !box.meets(piece.hull())) {
            return false;
        }
        if (inside(box, piece.first()) || inside(box, piece.last())) {
            found = true;
            return false;
        }
        if (piece.deviation() <= precision) {
            found = touches(Segment{piece.first(), piece.last()}, box);
            return false;
        }
        return true;
    });
    return found;
}

/// One side of the box: where the circle meets the line `offset` from its centre, along the other
/// axis, between `low` and `high` from the centre.
struct Side {
    double offset;
    double low;
    double high;
    bool upright;
};

bool crosses(const Arc& arc, const Side& side) {
    const double square = (arc.radius - side.offset) * (arc.radius + side.offset);
    if (square < 0) {
        return false;
    }
    const double half = std::sqrt(square);
    for (const double along : {-half, half}) {
        const double angle =
            side.upright ? std::atan2(along, side.offset) : std::atan2(side.offset, along);
        if (side.low <= along && along <= side.high && passes(arc, angle)) {
            return true;
        }
    }
    return false;
}

}  // namespace

double distance(const Segment& segment, const QPointF& point) {
    const QPointF direction = segment.second - segment.first;
    const QPointF offset = point - segment.first;
    const double square = QPointF::dotProduct(direction, direction);
    const double t = QPointF::dotProduct(offset, direction);
    if (!(square > 0) || t <= 0) {
        return length(offset);
    }
    if (t >= square) {
        return length(point - segment.second);
    }
    return std::abs(cross(direction, offset)) / std::sqrt(square);
}

double distance(const Arc& arc, const QPointF& point) {
    const QPointF offset = point - arc.center;
    if (passes(arc, std::atan2(offset.y(), offset.x()))) {
        return std::abs(length(offset) - arc.radius);
    }
    return std::min(length(point - arc.at(arc.start)),
                    length(point - arc.at(arc.start + arc.sweep)));
}

double distance(const Note& note, const QPointF& point) {
    if (inside(note, point)) {
        return 0;
    }
    double best = length(point - note.corners[0]);
    for (std::size_t i = 0; i < 4; ++i) {
        best = std::min(best, distance(Segment{note.corners[i], note.corners[(i + 1) % 4]}, point));
    }
    return best;
}

double distance(const Outlines& outlines, std::size_t object, const QPointF& point, double limit,
                double precision) {
    const Begin& begin = outlines.begins[object];
    const Begin& end = outlines.begins[object + 1];
    double best = std::numeric_limits<double>::infinity();
    for (std::size_t i = begin.segment; i < end.segment; ++i) {
        best = std::min(best, distance(outlines.segments[i], point));
    }
    for (std::size_t i = begin.arc; i < end.arc; ++i) {
        best = std::min(best, distance(outlines.arcs[i], point));
    }
    for (std::size_t i = begin.note; i < end.note; ++i) {
        best = std::min(best, distance(outlines.notes[i], point));
    }
    for (std::size_t i = begin.bezier; i < end.bezier; ++i) {
        // What is farther than the limit needs no precise distance.
        const double worse = std::min(best, limit * (1 + 1e-9) + precision);
        const double found = nearer(pieceOf(outlines, i), point, worse, precision);
        best = found < worse ? found : best;
    }
    return best;
}

bool touches(const Segment& segment, const WorldBox& box) {
    WorldBox own;
    own.add(segment.first);
    own.add(segment.second);
    if (!box.meets(own)) {
        return false;
    }
    if (inside(box, segment.first) || inside(box, segment.second)) {
        return true;
    }
    // The boxes meet: the segment does unless all corners lie on one side of it.
    const QPointF direction = segment.second - segment.first;
    bool left = false;
    bool right = false;
    for (const double x : {box.minX, box.maxX}) {
        for (const double y : {box.minY, box.maxY}) {
            const double side = cross(direction, QPointF(x, y) - segment.first);
            left = left || side >= 0;
            right = right || side <= 0;
        }
    }
    return left && right;
}

bool touches(const Arc& arc, const WorldBox& box) {
    if (inside(box, arc.at(arc.start)) || inside(box, arc.at(arc.start + arc.sweep))) {
        return true;
    }
    const WorldBox own{box.minX - arc.center.x(), box.minY - arc.center.y(),
                       box.maxX - arc.center.x(), box.maxY - arc.center.y()};
    return crosses(arc, {own.minX, own.minY, own.maxY, true}) ||
           crosses(arc, {own.maxX, own.minY, own.maxY, true}) ||
           crosses(arc, {own.minY, own.minX, own.maxX, false}) ||
           crosses(arc, {own.maxY, own.minX, own.maxX, false});
}

bool touches(const Note& note, const WorldBox& box) {
    if (inside(note, {box.minX, box.minY})) {
        return true;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        if (touches(Segment{note.corners[i], note.corners[(i + 1) % 4]}, box)) {
            return true;
        }
    }
    return false;
}

bool touches(const Outlines& outlines, std::size_t object, const WorldBox& box) {
    const Begin& begin = outlines.begins[object];
    const Begin& end = outlines.begins[object + 1];
    for (std::size_t i = begin.segment; i < end.segment; ++i) {
        if (touches(outlines.segments[i], box)) {
            return true;
        }
    }
    for (std::size_t i = begin.arc; i < end.arc; ++i) {
        if (touches(outlines.arcs[i], box)) {
            return true;
        }
    }
    for (std::size_t i = begin.note; i < end.note; ++i) {
        if (touches(outlines.notes[i], box)) {
            return true;
        }
    }
    for (std::size_t i = begin.bezier; i < end.bezier; ++i) {
        if (touches(pieceOf(outlines, i), box)) {
            return true;
        }
    }
    return false;
}

}  // namespace outline
