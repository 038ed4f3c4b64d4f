// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Biarc.h"

#include <algorithm>
#include <cmath>

#include "drawing/Angles.h"

namespace kxdrawing {

namespace {

double dot(const Vector2& a, const Vector2& b) {
    return a.x * b.x + a.y * b.y;
}

Vector2 between(const kxVector3& from, const kxVector3& to) {
    return {to.x - from.x, to.y - from.y};
}

/// The bulge of the arc that leaves `from` and passes `to`; nothing when it turns by more than
/// half a circle.
std::optional<double> bulgeTo(const DirectedPoint& from, const kxVector3& to) {
    const Vector2 chord = between(from.point, to);
    const double along = dot(from.direction, chord);
    const double across = from.direction.x * chord.y - from.direction.y * chord.x;
    const double half = std::atan2(across, along);
    if (std::abs(half) > kPi / 2 * (1 + 1e-9)) {
        return std::nullopt;
    }
    return std::tan(half / 2);
}

/// The distance from each end to its control point, equal at both: the positive root of
/// 2 (1 - t1 t2) d^2 + 2 (v t) d - v v = 0 with the chord v and t = t1 + t2.
std::optional<double> controlDistance(const Vector2& v, const Vector2& t1, const Vector2& t2) {
    const double vt = dot(v, {t1.x + t2.x, t1.y + t2.y});
    const double vv = dot(v, v);
    const double a = 2 * (1 - dot(t1, t2));
    if (a < 1e-12) {
        const double denominator = 2 * vt;
        return denominator > 0 ? std::optional<double>(vv / denominator) : std::nullopt;
    }
    // Without cancellation when v t is positive.
    const double root = std::sqrt(vt * vt + a * vv);
    return vt > 0 ? vv / (vt + root) : (root - vt) / a;
}

}  // namespace

std::optional<std::array<BulgeSegment, 2>> biarc(const DirectedPoint& first,
                                                 const DirectedPoint& second) {
    const Vector2& t1 = first.direction;
    const Vector2& t2 = second.direction;
    const Vector2 v = between(first.point, second.point);
    const std::optional<double> d = controlDistance(v, t1, t2);
    if (!d || !(*d > 0)) {
        return std::nullopt;
    }
    const kxVector3 middle{first.point.x + (v.x + *d * (t1.x - t2.x)) / 2,
                           first.point.y + (v.y + *d * (t1.y - t2.y)) / 2, first.point.z};
    const std::optional<double> out = bulgeTo(first, middle);
    const std::optional<double> back =
        bulgeTo({second.point, {-second.direction.x, -second.direction.y}}, middle);
    if (!out || !back) {
        return std::nullopt;
    }
    return std::array<BulgeSegment, 2>{
        {{first.point, middle, *out}, {middle, second.point, -*back}}};
}

SegmentDistance::SegmentDistance(const BulgeSegment& segment)
    : m_segment(segment), m_arc(bulgeArc(segment)) {}

double SegmentDistance::to(const kxVector3& p) const {
    const Vector2 chord = between(m_segment.first, m_segment.second);
    const Vector2 offset = between(m_segment.first, p);
    if (!m_arc) {
        const double length2 = dot(chord, chord);
        const double along = length2 > 0 ? std::clamp(dot(chord, offset) / length2, 0.0, 1.0) : 0.0;
        return std::hypot(offset.x - along * chord.x, offset.y - along * chord.y);
    }
    const double dx = p.x - m_arc->center.x;
    const double dy = p.y - m_arc->center.y;
    double turn = std::fmod(std::atan2(dy, dx) - m_arc->startParameter, kTwoPi);
    turn += turn < 0 ? kTwoPi : 0;
    if (turn <= m_arc->endParameter - m_arc->startParameter) {
        return std::abs(std::hypot(dx, dy) - m_arc->radius);
    }
    return std::min(std::hypot(offset.x, offset.y),
                    std::hypot(offset.x - chord.x, offset.y - chord.y));
}

kxVector3 SegmentDistance::at(double fraction) const {
    const kxVector3& a = m_segment.first;
    const kxVector3& b = m_segment.second;
    if (!m_arc) {
        return {a.x + fraction * (b.x - a.x), a.y + fraction * (b.y - a.y), a.z};
    }
    const double angle =
        m_arc->startParameter + fraction * (m_arc->endParameter - m_arc->startParameter);
    return {m_arc->center.x + m_arc->radius * std::cos(angle),
            m_arc->center.y + m_arc->radius * std::sin(angle), a.z};
}

}  // namespace kxdrawing
