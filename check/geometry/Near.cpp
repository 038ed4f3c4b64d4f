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

double cross(const PlanePoint& a, const PlanePoint& b) {
    return a.x * b.y - a.y * b.x;
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

void crossAll(Crossings& crossings, const Curve& other, double reach) {
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
    const PlanePoint a{segment.a.x - arc.centre.x, segment.a.y - arc.centre.y};
    const PlanePoint b{segment.b.x - arc.centre.x, segment.b.y - arc.centre.y};
    const double slack =
        slackFor(std::abs(a.x) + std::abs(a.y) + std::abs(b.x) + std::abs(b.y) + arc.radius);
    const double squareA = a.x * a.x + a.y * a.y;
    const double squareB = b.x * b.x + b.y * b.y;
    const double inside = arc.radius - reach - slack;
    if (inside > 0 && std::max(squareA, squareB) < inside * inside) {
        return true;
    }
    const double outside = arc.radius + reach + slack;
    if (std::min(squareA, squareB) <= outside * outside) {
        return false;
    }
    const double dx = segment.b.x - segment.a.x;
    const double dy = segment.b.y - segment.a.y;
    const double across = a.x * dy - a.y * dx;
    // The line misses the circle, or the segment ends before it.
    return across * across > outside * outside * (dx * dx + dy * dy) ||
           distance(segment, arc.centre) > outside;
}

bool areCirclesClear(const Curve& a, const Curve& b, double reach) {
    const double apart = distance(a.centre, b.centre);
    const double slack = slackFor(apart + a.radius + b.radius);
    return apart > a.radius + b.radius + reach + slack ||
           apart + reach + slack < std::abs(a.radius - b.radius);
}

CentredPlace seenFrom(const PlanePoint& centre, const PlanePoint& place) {
    const PlanePoint out{place.x - centre.x, place.y - centre.y};
    return {out, out.x * out.x + out.y * out.y};
}

// Whether a segment with these ends stays between two circles.
bool staysBetween(const Curve& segment, const CentredPlace& a, const CentredPlace& b, double least,
                  double most) {
    if (!(least > 0) || a.square > most * most || b.square > most * most ||
        a.square < least * least || b.square < least * least) {
        return false;
    }
    const double dx = segment.b.x - segment.a.x;
    const double dy = segment.b.y - segment.a.y;
    const double square = dx * dx + dy * dy;
    const double foot = -(a.out.x * dx + a.out.y * dy);
    if (foot > 0 && foot < square) {
        const double across = a.out.x * dy - a.out.y * dx;
        return across * across >= least * least * square;
    }
    return true;
}

// Whether such a segment, whose ends are seen at these parameters, stays within the arc's ends.
// Otherwise it goes the other way round, through the arc's opening.
bool staysWithinEnds(const Curve& arc, double from, double to) {
    return isFullTurn(arc) ||
           (from >= 0 && from <= 1 && to >= 0 && to <= 1 && std::abs(to - from) * arc.sweep < kPi);
}

bool staysNearArc(const Curve& segment, const Curve& arc, double reach) {
    return staysBetween(segment, seenFrom(arc.centre, segment.a), seenFrom(arc.centre, segment.b),
                        arc.radius - reach, arc.radius + reach) &&
           (isFullTurn(arc) ||
            staysWithinEnds(arc, parameterOf(arc, segment.a), parameterOf(arc, segment.b)));
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

}  // namespace

ChordsOfArc::ChordsOfArc(const Curve& arc, double reach, std::vector<Interval>& parts)
    : m_arc(arc),
      m_reach(reach),
      m_isFullTurn(isFullTurn(arc)),
      m_begin{std::cos(arc.start), std::sin(arc.start)},
      m_leanPerOff(1.5 / (arc.radius * arc.sweep)),
      m_parts(parts) {
    m_parts.clear();
}

ChordsOfArc::End ChordsOfArc::endAt(const PlanePoint& place, const CentredPlace& seen) const {
    End end;
    end.place = place;
    end.seen = seen;
    end.radius = std::sqrt(seen.square);
    end.lean = std::abs(end.radius - m_arc.radius) / end.radius * m_leanPerOff;
    end.isBefore = cross(m_begin, seen.out) < 0;
    return end;
}

// By how much, as parameter of the arc, what lies square beside the end of a segment may be off the
// end itself. Below 0: it can't be told easily.
double ChordsOfArc::slackAt(const End& end, const PlanePoint& along) const {
    const double across = std::abs(end.seen.out.x * along.x + end.seen.out.y * along.y);
    const double off = std::abs(end.radius - m_arc.radius);
    if (across > 0.5 * end.radius || off > 0.1 * m_arc.radius) {
        return -1;
    }
    return across * end.lean + 1e-9 / m_arc.sweep;
}

bool ChordsOfArc::add(const Curve& segment) {
    if (segment.kind != Curve::Kind::Segment) {
        return false;
    }
    const PlanePoint& from = m_row.last.place;
    const bool goesOn = m_row.isOpen && from.x == segment.a.x && from.y == segment.a.y;
    const CentredPlace seenA = goesOn ? m_row.last.seen : seenFrom(m_arc.centre, segment.a);
    const CentredPlace seenB = seenFrom(m_arc.centre, segment.b);
    if (!staysBetween(segment, seenA, seenB, m_arc.radius - m_reach, m_arc.radius + m_reach)) {
        return false;
    }
    const End first = goesOn ? m_row.last : endAt(segment.a, seenA);
    const End last = endAt(segment.b, seenB);
    const PlanePoint along = directionAt(segment, 0);
    const double before = slackAt(first, along);
    const double behind = slackAt(last, along);
    if (before < 0 || behind < 0) {
        return false;
    }
    const bool isReversed = cross(seenA.out, seenB.out) < 0;
    if (!goesOn || isReversed != m_row.isReversed) {
        close();
        m_row = {true, isReversed, 0, first, last};
    }
    m_row.last = last;
    // It turns by less than half a turn.
    const bool passes =
        isReversed ? !first.isBefore && last.isBefore : first.isBefore && !last.isBefore;
    m_row.passes += passes ? 1 : 0;
    if (!m_isFullTurn && !close()) {
        return false;
    }
    m_slack += 2 * std::max(before, behind);
    return true;
}

// Rounding may put what lies where a full turn begins to its other end.
double ChordsOfArc::parameterAt(const End& end) const {
    const double t = parameterOf(m_arc, end.place);
    if (m_isFullTurn && end.isBefore != (t > 0.5) && std::abs(t - 0.5) > 0.25) {
        return end.isBefore ? 1 : 0;
    }
    return t;
}

// False: it leaves the arc's ends.
bool ChordsOfArc::close() {
    if (!m_row.isOpen) {
        return true;
    }
    m_row.isOpen = false;
    double from = parameterAt(m_row.first);
    double to = parameterAt(m_row.last);
    if (m_row.isReversed) {
        std::swap(from, to);
    }
    if (!m_isFullTurn) {
        if (staysWithinEnds(m_arc, from, to)) {
            m_parts.push_back({std::min(from, to), std::max(from, to)});
            return true;
        }
        return false;
    }
    if (m_row.passes == 0) {
        m_parts.push_back({from, to});
        return true;
    }
    m_parts.push_back({from, 1});
    m_parts.insert(m_parts.end(), static_cast<std::size_t>(m_row.passes - 1), Interval{0, 1});
    m_parts.push_back({0, to});
    return true;
}

bool areClear(const Curve& curve, const Curve& other, double reach) {
    if (curve.kind == Curve::Kind::Point) {
        return false;
    }
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
    crossAll(crossings, other, reach);
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
