// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Near.h"

#include <algorithm>
#include <cmath>

namespace gcode_check {
namespace {

bool isFullTurn(const Curve& arc) {
    return arc.sweep >= 2 * kPi;
}

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
        addBoth({dx, dy}, cosine);
    }

    void arcWithLine(const PlanePoint& place, const PlanePoint& normal) {
        const double off =
            (place.x - m_curve.centre.x) * normal.x + (place.y - m_curve.centre.y) * normal.y;
        addBoth(normal, off / m_curve.radius);
    }

    // At the angles with this cosine to the direction.
    void addBoth(const PlanePoint& direction, double cosine) {
        if (std::abs(cosine) > 1) {
            return;
        }
        const double middle = std::atan2(direction.y, direction.x);
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
    if (isFullTurn(other)) {
        return;
    }
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

// What rounding may add to lengths of this size.
double slackFor(double size) {
    return 1e-12 * size;
}

bool isNear(const Curve& other, const PlanePoint& place, double reach, Ends ends) {
    if (other.kind == Curve::Kind::Arc) {
        const double middle = distance(other.centre, place);
        const double off = std::abs(middle - other.radius);
        if (isFullTurn(other) || off > reach + slackFor(middle + other.radius)) {
            return off <= reach;
        }
    }
    if (ends == Ends::Square) {
        const double t = parameterOf(other, place);
        if (t < 0 || t > 1) {
            return false;
        }
    }
    return distance(other, place) <= reach;
}

// On one side of the line through the segment `other`, beyond the reach.
bool liesAside(const Curve& curve, const Curve& other, double reach) {
    const double dx = other.b.x - other.a.x;
    const double dy = other.b.y - other.a.y;
    const auto sideOf = [&](const PlanePoint& place) {
        return (place.x - other.a.x) * dy - (place.y - other.a.y) * dx;
    };
    const double length = std::sqrt(dx * dx + dy * dy);
    const double size = std::max(distance(curve.a, other.a), distance(curve.b, other.a)) + length;
    const double bound = (reach + slackFor(size)) * length;
    const double first = sideOf(curve.a);
    const double second = sideOf(curve.b);
    return (first > bound && second > bound) || (first < -bound && second < -bound);
}

// The segment lies outside of the circle or inside of it, beyond the reach.
bool isClearOfCircle(const Curve& segment, const Curve& arc, double reach) {
    const double first = distance(arc.centre, segment.a);
    const double second = distance(arc.centre, segment.b);
    const double slack = slackFor(first + second + arc.radius);
    if (std::max(first, second) < arc.radius - reach - slack) {
        return true;
    }
    const double outside = arc.radius + reach + slack;
    return std::min(first, second) > outside && distance(segment, arc.centre) > outside;
}

bool areCirclesClear(const Curve& a, const Curve& b, double reach) {
    const double apart = distance(a.centre, b.centre);
    const double slack = slackFor(apart + a.radius + b.radius);
    return apart > a.radius + b.radius + reach + slack ||
           apart + reach + slack < std::abs(a.radius - b.radius);
}

// Whether nothing of one is within reach of the other. Cheap; false too often, never true when
// something is.
bool areClear(const Curve& curve, const Curve& other, double reach) {
    const bool isSegment = curve.kind == Curve::Kind::Segment;
    switch (other.kind) {
        case Curve::Kind::Segment:
            return isSegment ? liesAside(curve, other, reach) || liesAside(other, curve, reach)
                             : isClearOfCircle(other, curve, reach);
        case Curve::Kind::Arc:
            return isSegment ? isClearOfCircle(curve, other, reach)
                             : areCirclesClear(curve, other, reach);
        case Curve::Kind::Point:
            break;
    }
    return false;
}

// Whether a segment stays between two circles around the arc, and within the arc's ends.
bool staysNearArc(const Curve& segment, const Curve& arc, double reach) {
    const double dx = segment.b.x - segment.a.x;
    const double dy = segment.b.y - segment.a.y;
    const PlanePoint a{segment.a.x - arc.centre.x, segment.a.y - arc.centre.y};
    const PlanePoint b{segment.b.x - arc.centre.x, segment.b.y - arc.centre.y};
    const double most = arc.radius + reach;
    const double least = arc.radius - reach;
    const double squareA = a.x * a.x + a.y * a.y;
    const double squareB = b.x * b.x + b.y * b.y;
    if (!(least > 0) || squareA > most * most || squareB > most * most || squareA < least * least ||
        squareB < least * least) {
        return false;
    }
    const double square = dx * dx + dy * dy;
    const double foot = -(a.x * dx + a.y * dy);
    if (foot > 0 && foot < square) {
        const double across = a.x * dy - a.y * dx;
        if (across * across < least * least * square) {
            return false;
        }
    }
    if (isFullTurn(arc)) {
        return true;
    }
    const double from = parameterOf(arc, segment.a);
    const double to = parameterOf(arc, segment.b);
    // Otherwise it goes the other way round, through the arc's opening.
    return from >= 0 && from <= 1 && to >= 0 && to <= 1 && std::abs(to - from) * arc.sweep < kPi;
}

// What is within reach of a segment or point is convex: a segment with both ends in it lies in it.
bool whollyNear(const Curve& curve, const Curve& other, double reach, Ends ends) {
    if (curve.kind != Curve::Kind::Segment) {
        return false;
    }
    if (other.kind == Curve::Kind::Arc) {
        return staysNearArc(curve, other, reach);
    }
    return isNear(other, curve.a, reach, ends) && isNear(other, curve.b, reach, ends);
}

// The angle at the arc's centre by which what lies square beside the end of a segment may be off
// the end itself. Below 0: it can't be told easily.
double slackAt(const Curve& arc, const PlanePoint& end, const PlanePoint& along) {
    const PlanePoint out{end.x - arc.centre.x, end.y - arc.centre.y};
    const double radius = std::sqrt(out.x * out.x + out.y * out.y);
    const double sine = std::abs(out.x * along.x + out.y * along.y) / radius;
    const double off = std::abs(radius - arc.radius);
    if (sine > 0.5 || off > 0.1 * arc.radius) {
        return -1;
    }
    return 1.5 * off * sine / arc.radius + 1e-9;
}

}  // namespace

std::optional<Beside> besideSegment(const Curve& arc, const Curve& segment, double reach) {
    if (segment.kind != Curve::Kind::Segment || arc.kind != Curve::Kind::Arc ||
        !staysNearArc(segment, arc, reach)) {
        return std::nullopt;
    }
    const PlanePoint along = directionAt(segment, 0);
    const double before = slackAt(arc, segment.a, along);
    const double behind = slackAt(arc, segment.b, along);
    if (before < 0 || behind < 0) {
        return std::nullopt;
    }
    Beside beside;
    beside.slack = std::max(before, behind) / arc.sweep;
    const double a = std::clamp(parameterOf(arc, segment.a), 0.0, 1.0);
    const double b = std::clamp(parameterOf(arc, segment.b), 0.0, 1.0);
    if (std::abs(a - b) * arc.sweep < kPi) {
        beside.parts[0] = {std::min(a, b), std::max(a, b)};
        beside.count = 1;
    } else {
        // Over the begin of a full turn.
        beside.parts = {Interval{0, std::min(a, b)}, Interval{std::max(a, b), 1}};
        beside.count = 2;
    }
    return beside;
}

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
    if (areClear(curve, other, reach)) {
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
