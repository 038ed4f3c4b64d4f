// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/Flatten.h"

#include <algorithm>
#include <cmath>

namespace outline {

namespace {

constexpr int kMaxDepth = 48;
constexpr double kQuarter = 1.5707963267948966;
/// How near to an axis an arc ends that runs on into a line along the other.
constexpr double kOnAxis = 1e-3;

bool holds(const WorldBox& box, const QPointF& point) {
    return box.minX <= point.x() && point.x() <= box.maxX && box.minY <= point.y() &&
           point.y() <= box.maxY;
}

/// Cuts the range of a line's parameter at one side: where `from + t * step >= 0`.
bool cut(double from, double step, double* low, double* high) {
    if (step == 0) {
        return from >= 0;
    }
    const double t = -from / step;
    if (step > 0) {
        *low = std::max(*low, t);
    } else {
        *high = std::min(*high, t);
    }
    return *low <= *high;
}

}  // namespace

std::optional<QLineF> clipped(const QLineF& line, const WorldBox& box) {
    const bool firstInside = holds(box, line.p1());
    const bool secondInside = holds(box, line.p2());
    if (firstInside && secondInside) {
        return line;
    }
    const double dx = line.dx();
    const double dy = line.dy();
    double low = 0;
    double high = 1;
    if (!std::isfinite(dx) || !std::isfinite(dy) || !cut(line.x1() - box.minX, dx, &low, &high) ||
        !cut(box.maxX - line.x1(), -dx, &low, &high) ||
        !cut(line.y1() - box.minY, dy, &low, &high) ||
        !cut(box.maxY - line.y1(), -dy, &low, &high)) {
        return std::nullopt;
    }
    const auto at = [&](double t) {
        return QPointF(std::clamp(line.x1() + t * dx, box.minX, box.maxX),
                       std::clamp(line.y1() + t * dy, box.minY, box.maxY));
    };
    return QLineF(firstInside ? line.p1() : at(low), secondInside ? line.p2() : at(high));
}

void Flattener::add(const Outlines& outlines, std::size_t object) {
    const Begin& begin = outlines.begins[object];
    const Begin& end = outlines.begins[object + 1];
    for (std::size_t i = begin.segment; i < end.segment; ++i) {
        add(outlines.segments[i]);
    }
    for (std::size_t i = begin.arc; i < end.arc; ++i) {
        add(outlines.arcs[i]);
    }
    for (std::size_t i = begin.bezier; i < end.bezier; ++i) {
        const Bezier& bezier = outlines.beziers[i];
        add(BezierPiece{outlines.bezierPoints.data() + bezier.first, bezier.count});
    }
}

void Flattener::addLine(const QPointF& first, const QPointF& second) {
    if (const std::optional<QLineF> line = clipped({first, second}, m_clip)) {
        m_straight.push_back(*line);
    }
}

void Flattener::addChord(const QPointF& first, const QPointF& second) {
    if (const std::optional<QLineF> line = clipped({first, second}, m_clip)) {
        m_curved.push_back(*line);
    }
}

void Flattener::add(const Segment& segment) {
    addLine(m_map.map(segment.first), m_map.map(segment.second));
}

QPointF Flattener::pixelAt(const Arc& arc, double angle) const {
    const QPointF center = m_map.map(arc.center);
    const double radius = arc.radius * m_map.scale;
    const double share = arc.sweep > 0 ? (angle - arc.start) / arc.sweep : 0;
    return QPointF(center.x() + radius * std::cos(angle), center.y() - radius * std::sin(angle)) +
           m_bend.at(share);
}

QPointF Flattener::moveOf(const Arc& arc, double angle) const {
    const double quarters = angle / kQuarter;
    if (std::abs(quarters - std::round(quarters)) * kQuarter > kOnAxis) {
        return {};
    }
    const QPointF center = m_map.map(arc.center);
    const double x = center.x() + arc.radius * m_map.scale * std::cos(angle);
    const double y = center.y() - arc.radius * m_map.scale * std::sin(angle);
    const bool endsUpright = std::abs(std::cos(angle)) > 0.5;
    return endsUpright ? QPointF(m_snap->x(x) - x, 0) : QPointF(0, m_snap->y(y) - y);
}

Flattener::Bend Flattener::bendOf(const Arc& arc) const {
    if (!m_snap || arc.isFull() || arc.sweep <= 0) {
        return {};
    }
    return {moveOf(arc, arc.start), moveOf(arc, arc.start + arc.sweep)};
}

void Flattener::add(const Arc& arc) {
    m_bend = bendOf(arc);
    const QPointF center = m_map.map(arc.center);
    const double radius = arc.radius * m_map.scale;
    if (m_clip.contains(WorldBox{center.x() - radius, center.y() - radius, center.x() + radius,
                                 center.y() + radius})) {
        addWholeArc(arc, radius);
        return;
    }
    const double count = std::max(1.0, std::ceil(arc.sweep / kQuarter - 1e-9));
    ArcEnd from{arc.start, pixelAt(arc, arc.start)};
    const QPointF start = from.pixel;
    for (double i = 1; i <= count; ++i) {
        const double angle = arc.start + arc.sweep * i / count;
        const bool closes = i == count && arc.isFull();
        const ArcEnd to{angle, closes ? start : pixelAt(arc, angle)};
        addVisibleArc(arc, from, to, 0);
        from = to;
    }
}

void Flattener::addWholeArc(const Arc& arc, double radius) {
    // The greatest step whose chord leaves the arc by no more than the tolerance.
    const double most = radius > m_tolerance ? 2 * std::acos(1 - m_tolerance / radius) : 3;
    const double count = std::max(arc.isFull() ? 4.0 : 1.0, std::ceil(arc.sweep / most));
    const double step = arc.sweep / count;
    const double c = std::cos(step);
    const double s = std::sin(step);
    const QPointF center = m_map.map(arc.center);
    QPointF spoke(radius * std::cos(arc.start), -radius * std::sin(arc.start));
    const QPointF start = center + spoke + m_bend.start;
    const QPointF end = arc.isFull() ? start : pixelAt(arc, arc.start + arc.sweep);
    QPointF from = start;
    for (double i = 1; i < count; ++i) {
        spoke = {spoke.x() * c + spoke.y() * s, spoke.y() * c - spoke.x() * s};
        const QPointF to = center + spoke + m_bend.at(i / count);
        m_curved.emplace_back(from, to);
        from = to;
    }
    m_curved.emplace_back(from, end);
}

void Flattener::addVisibleArc(const Arc& arc, const ArcEnd& from, const ArcEnd& to, int depth) {
    const double quarter = std::sin((to.angle - from.angle) / 4);
    const double sagitta = 2 * arc.radius * m_map.scale * quarter * quarter;
    WorldBox box;
    box.add(from.pixel);
    box.add(to.pixel);
    // The arc is no farther than its sagitta from the chord.
    if (!m_clip.meets(WorldBox{box.minX - sagitta, box.minY - sagitta, box.maxX + sagitta,
                               box.maxY + sagitta})) {
        return;
    }
    if (sagitta <= m_tolerance || depth == kMaxDepth) {
        addChord(from.pixel, to.pixel);
        return;
    }
    const double angle = from.angle + (to.angle - from.angle) / 2;
    const ArcEnd middle{angle, pixelAt(arc, angle)};
    addVisibleArc(arc, from, middle, depth + 1);
    addVisibleArc(arc, middle, to, depth + 1);
}

void Flattener::add(const BezierPiece& curve) {
    const double tolerance = m_tolerance / m_map.scale;
    m_walk.walk(curve, [&](const BezierPiece& piece) {
        WorldBox box;
        const WorldBox hull = piece.hull();
        box.add(m_map.map({hull.minX, hull.minY}));
        box.add(m_map.map({hull.maxX, hull.maxY}));
        if (!m_clip.meets(box)) {
            return false;
        }
        if (piece.deviation() > tolerance) {
            return true;
        }
        addChord(m_map.map(piece.first()), m_map.map(piece.last()));
        return false;
    });
}

}  // namespace outline
