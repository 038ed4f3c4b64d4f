// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/CurveFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "drawing/Biarc.h"

namespace kxdrawing {

namespace {

constexpr std::size_t kSamples = 16;
constexpr int kArcSamples = 6;
constexpr int kGreatestDepth = 24;
constexpr std::size_t kGreatestCount = 50000;
/// Between samples the deviation may be a little greater than at them.
constexpr double kSafety = 0.75;
/// How far inside of a span, as a part of it, its ends' derivatives are taken: at a corner the one
/// at the end itself may belong to the far side.
constexpr double kInside = 1e-6;
/// What counts as straight, as a part of the tolerance.
constexpr double kStraightness = 1e-3;

double distance(const kxVector3& a, const kxVector3& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

double length(const kxVector3& v) {
    return std::hypot(v.x, v.y, v.z);
}

double chordDistance(const kxVector3& p, const kxVector3& a, const kxVector3& b) {
    const kxVector3 v{b.x - a.x, b.y - a.y, b.z - a.z};
    const kxVector3 w{p.x - a.x, p.y - a.y, p.z - a.z};
    const double length2 = v.x * v.x + v.y * v.y + v.z * v.z;
    const double along = length2 > 0 ? (v.x * w.x + v.y * w.y + v.z * w.z) / length2 : 0;
    const double s = std::clamp(along, 0.0, 1.0);
    return std::hypot(w.x - s * v.x, w.y - s * v.y, w.z - s * v.z);
}

std::optional<Vector2> directionOf(double x, double y) {
    const double length = std::hypot(x, y);
    if (!(length > 0)) {
        return std::nullopt;
    }
    return Vector2{x / length, y / length};
}

class ArcFitter {
public:
    ArcFitter(const Curve& curve, double tolerance) : m_curve(curve), m_tolerance(tolerance) {
        measure();
    }

    std::vector<kxPolyLineVertex> fit() {
        const std::vector<double>& breaks = m_curve.breaks;
        const kxVector3 first = point(breaks.front());
        m_chain.push_back({first, 0});
        for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
            const bool closing = m_curve.closed && i + 2 == breaks.size();
            const kxVector3 from = m_chain.back().point;
            fitSpan({breaks[i], breaks[i + 1], from, closing ? first : point(breaks[i + 1])}, 0);
        }
        return std::move(m_chain);
    }

private:
    /// A part of the curve between two of its points.
    struct Span {
        double start;
        double end;
        kxVector3 first;
        kxVector3 last;

        double at(double fraction) const { return start + fraction * (end - start); }
    };
    /// The points of a span, evenly spaced by its parameter, and the derivatives inside of it.
    struct Samples {
        std::array<kxVector3, kSamples + 2> points;
        std::array<kxVector3, kSamples + 2> derivatives;
        double step = 0;
    };

    void measure();
    kxVector3 inPlane(kxVector3 p) const;
    kxVector3 point(double parameter) const { return inPlane(m_curve.at(parameter).position); }
    void fitSpan(const Span& span, int depth);
    Samples sample(const Span& span) const;
    bool isStraight(const Samples& samples) const;
    bool turnsUnseen(const Samples& samples) const;
    std::optional<Vector2> direction(double parameter, const kxVector3& inside) const;
    bool fits(const std::array<BulgeSegment, 2>& arcs, const Samples& samples,
              const Span& span) const;
    double distanceToCurve(const kxVector3& p, const Samples& samples, const Span& span) const;
    bool append(const Span& span, const Samples& samples);

    const Curve& m_curve;
    double m_tolerance;
    bool m_planar = true;
    double m_height = 0;
    std::vector<kxPolyLineVertex> m_chain;
};

/// Finds the curve's size, which bounds the tolerance from below, and whether it is plane.
void ArcFitter::measure() {
    kxVector3 low = m_curve.at(m_curve.breaks.front()).position;
    kxVector3 high = low;
    m_height = low.z;
    for (std::size_t i = 0; i + 1 < m_curve.breaks.size(); ++i) {
        const Span span{m_curve.breaks[i], m_curve.breaks[i + 1], {}, {}};
        for (int step = 1; step <= 8; ++step) {
            const kxVector3 p = m_curve.at(span.at(step / 8.0)).position;
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
    }
    const double size = distance(low, high);
    const double farthest = std::max({std::abs(low.x), std::abs(low.y), std::abs(low.z),
                                      std::abs(high.x), std::abs(high.y), std::abs(high.z)});
    m_tolerance = std::max({m_tolerance, 1e-9 * size, 1e-14 * farthest});
    m_planar = high.z - low.z <= m_tolerance * kStraightness;
}

kxVector3 ArcFitter::inPlane(kxVector3 p) const {
    if (m_planar) {
        p.z = m_height;
    }
    return p;
}

ArcFitter::Samples ArcFitter::sample(const Span& span) const {
    Samples samples;
    samples.step = (span.end - span.start) / (kSamples + 1);
    samples.points.front() = span.first;
    samples.derivatives.front() = m_curve.at(span.at(kInside)).derivative;
    for (std::size_t i = 1; i <= kSamples; ++i) {
        const CurvePoint c = m_curve.at(span.at(static_cast<double>(i) / (kSamples + 1)));
        samples.points[i] = inPlane(c.position);
        samples.derivatives[i] = c.derivative;
    }
    samples.points.back() = span.last;
    samples.derivatives.back() = m_curve.at(span.at(1 - kInside)).derivative;
    return samples;
}

bool ArcFitter::isStraight(const Samples& samples) const {
    const double bound = m_tolerance * (m_planar ? kStraightness : kSafety);
    const auto& points = samples.points;
    return std::all_of(points.begin(), points.end(), [&](const kxVector3& p) {
        return chordDistance(p, points.front(), points.back()) <= bound;
    });
}

/// Whether the curve may run on and come back between two samples, farther than they show. Where
/// the derivative goes evenly from d1 to d2 against it, the turning point is at most
/// step |d1| |d2| / (|d1| + |d2|) / 2 from the nearer one; twice that is asked for.
bool ArcFitter::turnsUnseen(const Samples& samples) const {
    const auto& derivatives = samples.derivatives;
    for (std::size_t i = 0; i + 1 < derivatives.size(); ++i) {
        const kxVector3& d1 = derivatives[i];
        const kxVector3& d2 = derivatives[i + 1];
        const double speed1 = length(d1);
        const double speed2 = length(d2);
        const bool comesBack = d1.x * d2.x + d1.y * d2.y + d1.z * d2.z < 0;
        if (comesBack &&
            samples.step * speed1 * (speed2 / (speed1 + speed2)) > m_tolerance * (1 - kSafety)) {
            return true;
        }
    }
    return false;
}

void ArcFitter::fitSpan(const Span& span, int depth) {
    const Samples samples = sample(span);
    const double middle = span.at(0.5);
    // A span may also be too short for its parameters to be told apart.
    const bool exhausted = depth >= kGreatestDepth || m_chain.size() >= kGreatestCount ||
                           !(middle > span.start && middle < span.end);
    const bool isSeen = !turnsUnseen(samples);
    if (exhausted || (isSeen && isStraight(samples))) {
        m_chain.push_back({span.last, 0});
        return;
    }
    if (isSeen && m_planar && append(span, samples)) {
        return;
    }
    const kxVector3 p = point(middle);
    fitSpan({span.start, middle, span.first, p}, depth + 1);
    fitSpan({middle, span.end, p, span.last}, depth + 1);
}

bool ArcFitter::append(const Span& span, const Samples& samples) {
    const std::optional<Vector2> start = direction(span.start, samples.derivatives.front());
    const std::optional<Vector2> end = direction(span.end, samples.derivatives.back());
    if (!start || !end) {
        return false;
    }
    const auto arcs = biarc({span.first, *start}, {span.last, *end});
    if (!arcs || !fits(*arcs, samples, span)) {
        return false;
    }
    m_chain.back().bulge = (*arcs)[0].bulge;
    m_chain.push_back({(*arcs)[1].first, (*arcs)[1].bulge});
    m_chain.push_back({span.last, 0});
    return true;
}

/// The curve's direction at an end of a span, as seen from inside of the span: the derivative,
/// unless it is 0 there or belongs to the far side of a corner.
std::optional<Vector2> ArcFitter::direction(double parameter, const kxVector3& inside) const {
    const kxVector3 own = m_curve.at(parameter).derivative;
    const std::optional<Vector2> there = directionOf(own.x, own.y);
    const std::optional<Vector2> near = directionOf(inside.x, inside.y);
    if (there && near && there->x * near->x + there->y * near->y > 0.9999) {
        return there;
    }
    return near;
}

bool ArcFitter::fits(const std::array<BulgeSegment, 2>& arcs, const Samples& samples,
                     const Span& span) const {
    const double bound = m_tolerance * kSafety;
    const SegmentDistance first(arcs[0]);
    const SegmentDistance second(arcs[1]);
    for (const kxVector3& p : samples.points) {
        if (!(std::min(first.to(p), second.to(p)) <= bound)) {
            return false;
        }
    }
    for (int i = 1; i <= kArcSamples; ++i) {
        const double fraction = static_cast<double>(i) / kArcSamples;
        if (!(distanceToCurve(first.at(fraction), samples, span) <= bound) ||
            !(distanceToCurve(second.at(fraction), samples, span) <= bound)) {
            return false;
        }
    }
    return true;
}

/// From the nearest sample on, Gauss-Newton steps along the curve.
double ArcFitter::distanceToCurve(const kxVector3& p, const Samples& samples,
                                  const Span& span) const {
    const auto& points = samples.points;
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (distance(p, points[i]) < distance(p, points[nearest])) {
            nearest = i;
        }
    }
    double best = distance(p, points[nearest]);
    const double middle = span.start + static_cast<double>(nearest) * samples.step;
    double t = middle;
    for (int i = 0; i < 4 && best > m_tolerance * 0.1; ++i) {
        const CurvePoint c = m_curve.at(t);
        const double slope2 = c.derivative.x * c.derivative.x + c.derivative.y * c.derivative.y;
        if (!(slope2 > 0)) {
            break;
        }
        const double gap =
            (p.x - c.position.x) * c.derivative.x + (p.y - c.position.y) * c.derivative.y;
        t = std::clamp(t + gap / slope2, std::max(span.start, middle - samples.step),
                       std::min(span.end, middle + samples.step));
        best = std::min(best, distance(p, point(t)));
    }
    return best;
}

}  // namespace

std::vector<kxPolyLineVertex> fitArcs(const Curve& curve, double tolerance) {
    return ArcFitter(curve, tolerance).fit();
}

}  // namespace kxdrawing
