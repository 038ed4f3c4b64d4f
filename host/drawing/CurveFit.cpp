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
/// What counts as straight, as a part of the tolerance.
constexpr double kStraightness = 1e-3;

double distance(const kxVector3& a, const kxVector3& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
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
    using Samples = std::array<kxVector3, kSamples + 2>;

    void measure();
    kxVector3 point(double parameter) const;
    void fitSpan(const Span& span, int depth);
    Samples sample(const Span& span) const;
    bool isStraight(const Samples& samples) const;
    bool turnsBack(const Span& span) const;
    std::optional<Vector2> direction(const Span& span, bool atEnd) const;
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

kxVector3 ArcFitter::point(double parameter) const {
    kxVector3 p = m_curve.at(parameter).position;
    if (m_planar) {
        p.z = m_height;
    }
    return p;
}

ArcFitter::Samples ArcFitter::sample(const Span& span) const {
    Samples samples;
    samples.front() = span.first;
    samples.back() = span.last;
    for (std::size_t i = 1; i <= kSamples; ++i) {
        samples[i] = point(span.at(static_cast<double>(i) / (kSamples + 1)));
    }
    return samples;
}

bool ArcFitter::isStraight(const Samples& samples) const {
    const double bound = m_tolerance * (m_planar ? kStraightness : kSafety);
    return std::all_of(samples.begin(), samples.end(), [&](const kxVector3& p) {
        return chordDistance(p, samples.front(), samples.back()) <= bound;
    });
}

/// Whether the curve may run on beyond an end of its chord, along the same line, and come back
/// before the sample beside it.
bool ArcFitter::turnsBack(const Span& span) const {
    const kxVector3 v{span.last.x - span.first.x, span.last.y - span.first.y,
                      span.last.z - span.first.z};
    const double length = distance(span.first, span.last);
    const double step = (span.end - span.start) / (kSamples + 1);
    // From inside: at a corner the derivative belongs to either side.
    const auto runsBack = [&](double fraction) {
        const kxVector3 d = m_curve.at(span.at(fraction)).derivative;
        const double along = d.x * v.x + d.y * v.y + d.z * v.z;
        return -along * step > m_tolerance * kSafety * length;
    };
    return runsBack(1e-6) || runsBack(1 - 1e-6);
}

void ArcFitter::fitSpan(const Span& span, int depth) {
    const Samples samples = sample(span);
    const double middle = span.at(0.5);
    // A span may also be too short for its parameters to be told apart.
    const bool exhausted = depth >= kGreatestDepth || m_chain.size() >= kGreatestCount ||
                           !(middle > span.start && middle < span.end);
    const bool straight = isStraight(samples);
    const bool comesBack = straight && turnsBack(span);
    if (exhausted || (straight && !comesBack)) {
        m_chain.push_back({span.last, 0});
        return;
    }
    if (m_planar && !comesBack && append(span, samples)) {
        return;
    }
    const kxVector3 p = point(middle);
    fitSpan({span.start, middle, span.first, p}, depth + 1);
    fitSpan({middle, span.end, p, span.last}, depth + 1);
}

bool ArcFitter::append(const Span& span, const Samples& samples) {
    const std::optional<Vector2> start = direction(span, false);
    const std::optional<Vector2> end = direction(span, true);
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
std::optional<Vector2> ArcFitter::direction(const Span& span, bool atEnd) const {
    const kxVector3 own = m_curve.at(atEnd ? span.end : span.start).derivative;
    const std::optional<Vector2> there = directionOf(own.x, own.y);
    const CurvePoint inside = m_curve.at(span.at(atEnd ? 1 - 1e-6 : 1e-6));
    const std::optional<Vector2> near = directionOf(inside.derivative.x, inside.derivative.y);
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
    for (const kxVector3& p : samples) {
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
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        if (distance(p, samples[i]) < distance(p, samples[nearest])) {
            nearest = i;
        }
    }
    double best = distance(p, samples[nearest]);
    const double step = (span.end - span.start) / (kSamples + 1);
    const double middle = span.start + static_cast<double>(nearest) * step;
    double t = middle;
    for (int i = 0; i < 4 && best > m_tolerance * 0.1; ++i) {
        const CurvePoint c = m_curve.at(t);
        const double slope2 = c.derivative.x * c.derivative.x + c.derivative.y * c.derivative.y;
        if (!(slope2 > 0)) {
            break;
        }
        const double gap =
            (p.x - c.position.x) * c.derivative.x + (p.y - c.position.y) * c.derivative.y;
        t = std::clamp(t + gap / slope2, std::max(span.start, middle - step),
                       std::min(span.end, middle + step));
        best = std::min(best, distance(p, point(t)));
    }
    return best;
}

}  // namespace

std::vector<kxPolyLineVertex> fitArcs(const Curve& curve, double tolerance) {
    return ArcFitter(curve, tolerance).fit();
}

}  // namespace kxdrawing
