// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Near.h"

#include <algorithm>
#include <cmath>

namespace gcode_check {
namespace {

// Where a curve can enter or leave what is near another one: it crosses circles and lines there.
class Crossings {
public:
    explicit Crossings(const Curve& curve) : m_curve(curve) {
        add(0);
        add(1);
    }

    void withCircle(const PlanePoint& centre, double radius) {
        if (!(radius > 0)) {
            return;
        }
        if (m_curve.kind == Curve::Kind::Segment) {
            segmentWithCircle(centre, radius);
        } else {
            arcWithCircle(centre, radius);
        }
    }

    // The line through a place, square to `normal`, which has length 1.
    void withLine(const PlanePoint& place, const PlanePoint& normal) {
        if (m_curve.kind == Curve::Kind::Segment) {
            segmentWithLine(place, normal);
        } else {
            arcWithLine(place, normal);
        }
    }

    const double* begin() { return m_values.data(); }
    const double* end() {
        std::sort(m_values.begin(), m_values.begin() + static_cast<std::ptrdiff_t>(m_count));
        return m_values.data() + m_count;
    }

private:
    void add(double t) {
        if (t >= 0 && t <= 1 && m_count < m_values.size()) {
            m_values[m_count++] = t;
        }
    }

    void addAngle(double angle) { add(wholeTurn(angle - m_curve.start) / m_curve.sweep); }

    void segmentWithCircle(const PlanePoint& centre, double radius) {
        const double dx = m_curve.b.x - m_curve.a.x;
        const double dy = m_curve.b.y - m_curve.a.y;
        const double square = dx * dx + dy * dy;
        const double foot =
            ((centre.x - m_curve.a.x) * dx + (centre.y - m_curve.a.y) * dy) / square;
        const double off = distance({m_curve.a.x + dx * foot, m_curve.a.y + dy * foot}, centre);
        if (off > radius) {
            return;
        }
        const double half = std::sqrt((radius - off) * (radius + off) / square);
        add(foot - half);
        add(foot + half);
    }

    void segmentWithLine(const PlanePoint& place, const PlanePoint& normal) {
        const double before =
            (m_curve.a.x - place.x) * normal.x + (m_curve.a.y - place.y) * normal.y;
        const double after =
            (m_curve.b.x - place.x) * normal.x + (m_curve.b.y - place.y) * normal.y;
        if (before != after) {
            add(before / (before - after));
        }
    }

    void arcWithCircle(const PlanePoint& centre, double radius) {
        const double dx = centre.x - m_curve.centre.x;
        const double dy = centre.y - m_curve.centre.y;
        const double apart = std::sqrt(dx * dx + dy * dy);
        if (apart == 0) {
            return;
        }
        const double cosine =
            ((m_curve.radius - radius) * (m_curve.radius + radius) + apart * apart) /
            (2 * m_curve.radius * apart);
        addBoth(std::atan2(dy, dx), cosine);
    }

    void arcWithLine(const PlanePoint& place, const PlanePoint& normal) {
        const double off =
            (place.x - m_curve.centre.x) * normal.x + (place.y - m_curve.centre.y) * normal.y;
        addBoth(std::atan2(normal.y, normal.x), off / m_curve.radius);
    }

    void addBoth(double middle, double cosine) {
        if (std::abs(cosine) > 1) {
            return;
        }
        const double half = std::acos(cosine);
        addAngle(middle - half);
        addAngle(middle + half);
    }

    const Curve& m_curve;
    std::array<double, 24> m_values{};
    std::size_t m_count = 0;
};

void crossSegment(Crossings& crossings, const Curve& other, double reach) {
    const PlanePoint along = directionAt(other, 0);
    const PlanePoint across{-along.y, along.x};
    for (const PlanePoint& end : {other.a, other.b}) {
        crossings.withCircle(end, reach);
        crossings.withLine(end, along);
    }
    for (const double side : {reach, -reach}) {
        crossings.withLine({other.a.x + across.x * side, other.a.y + across.y * side}, across);
    }
}

void crossArc(Crossings& crossings, const Curve& other, double reach) {
    crossings.withCircle(other.centre, other.radius + reach);
    crossings.withCircle(other.centre, other.radius - reach);
    for (const double t : {0.0, 1.0}) {
        crossings.withCircle(pointAt(other, t), reach);
        crossings.withLine(other.centre, directionAt(other, t));
    }
}

void cross(Crossings& crossings, const Curve& other, double reach) {
    switch (other.kind) {
        case Curve::Kind::Segment:
            return crossSegment(crossings, other, reach);
        case Curve::Kind::Arc:
            return crossArc(crossings, other, reach);
        case Curve::Kind::Point:
            return crossings.withCircle(other.a, reach);
    }
}

bool isNear(const Curve& other, const PlanePoint& place, double reach, Ends ends) {
    if (ends == Ends::Square) {
        const double t = parameterOf(other, place);
        if (t < 0 || t > 1) {
            return false;
        }
    }
    return distance(other, place) <= reach;
}

// What is within reach of a segment or point is convex: a segment with both ends in it lies in it.
bool whollyNear(const Curve& curve, const Curve& other, double reach, Ends ends) {
    return curve.kind == Curve::Kind::Segment && other.kind != Curve::Kind::Arc &&
           isNear(other, curve.a, reach, ends) && isNear(other, curve.b, reach, ends);
}

}  // namespace

void appendNear(const Curve& curve, const Curve& other, double reach, Ends ends,
                std::vector<Interval>& parts) {
    if (curve.kind == Curve::Kind::Point) {
        if (isNear(other, curve.a, reach, ends)) {
            parts.push_back({0, 1});
        }
        return;
    }
    if (whollyNear(curve, other, reach, ends)) {
        parts.push_back({0, 1});
        return;
    }
    Crossings crossings(curve);
    cross(crossings, other, reach);
    const double* const end = crossings.end();
    bool joined = false;
    for (const double* at = crossings.begin(); at + 1 < end; ++at) {
        const double from = at[0];
        const double to = at[1];
        if (!(to > from)) {
            continue;
        }
        const bool near = isNear(other, pointAt(curve, (from + to) / 2), reach, ends);
        if (near && joined) {
            parts.back().to = to;
        } else if (near) {
            parts.push_back({from, to});
        }
        joined = near;
    }
}

}  // namespace gcode_check
