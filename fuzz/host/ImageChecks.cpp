// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ImageChecks.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "FuzzCheck.h"

using kxdrawing::Affine;
using kxdrawing::CircleShape;
using kxdrawing::LineShape;
using kxdrawing::PointShape;
using kxdrawing::Shape;

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr int kSamples = 8;

/// An arc of an ellipse or a circle, a straight line when it has no axes.
struct Strip {
    kxVector3 first;
    kxVector3 last;
    kxVector3 center;
    kxVector3 u;
    kxVector3 v;
    double start = 0;
    double sweep = 0;

    bool isBent() const { return sweep != 0; }
    kxVector3 at(double fraction) const {
        if (!isBent()) {
            return {first.x + fraction * (last.x - first.x),
                    first.y + fraction * (last.y - first.y), 0};
        }
        const double c = std::cos(start + fraction * sweep);
        const double s = std::sin(start + fraction * sweep);
        return {center.x + c * u.x + s * v.x, center.y + c * u.y + s * v.y, 0};
    }
    double size() const {
        double greatest = 0;
        for (const kxVector3& p : {first, last, center, u, v}) {
            greatest = std::max({greatest, std::abs(p.x), std::abs(p.y)});
        }
        return greatest;
    }
};

double flatDistance(const kxVector3& a, const kxVector3& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

double distanceToLine(const Strip& line, const kxVector3& p) {
    const double x = line.last.x - line.first.x;
    const double y = line.last.y - line.first.y;
    const double length2 = x * x + y * y;
    const double along = (p.x - line.first.x) * x + (p.y - line.first.y) * y;
    return flatDistance(p, line.at(length2 > 0 ? std::clamp(along / length2, 0.0, 1.0) : 0));
}

/// 0 on the strip. Beside a bent one it is how far the point lies from that at the same angle.
double distanceTo(const Strip& strip, const kxVector3& p) {
    if (!strip.isBent()) {
        return distanceToLine(strip, p);
    }
    const double det = strip.u.x * strip.v.y - strip.u.y * strip.v.x;
    const double x = p.x - strip.center.x;
    const double y = p.y - strip.center.y;
    const double angle =
        std::atan2((strip.u.x * y - strip.u.y * x) / det, (x * strip.v.y - y * strip.v.x) / det);
    double turn = std::fmod(angle - strip.start, kTwoPi);
    turn += turn < 0 ? kTwoPi : 0;
    const double ends = std::min(flatDistance(p, strip.at(0)), flatDistance(p, strip.at(1)));
    return turn <= strip.sweep ? std::min(ends, flatDistance(p, strip.at(turn / strip.sweep)))
                               : ends;
}

double sweepOf(double start, double end) {
    const double sweep = end - start;
    return sweep > 0 ? sweep : sweep + kTwoPi;
}

Strip segment(const kxVector3& a, const kxVector3& b, double bulge) {
    Strip strip;
    strip.first = a;
    strip.last = b;
    if (bulge == 0 || flatDistance(a, b) == 0) {
        return strip;
    }
    const double offset = (1 - bulge * bulge) / (4 * bulge);
    strip.center = {(a.x + b.x) / 2 - offset * (b.y - a.y), (a.y + b.y) / 2 + offset * (b.x - a.x),
                    0};
    const kxVector3& from = bulge > 0 ? a : b;
    strip.u = {from.x - strip.center.x, from.y - strip.center.y, 0};
    strip.v = {-strip.u.y, strip.u.x, 0};
    strip.sweep = 4 * std::atan(std::abs(bulge));
    return strip;
}

struct StripMaker {
    std::vector<Strip> operator()(const LineShape& line) const {
        return {segment(line.first, line.second, 0)};
    }
    std::vector<Strip> operator()(const CircleShape& circle) const {
        return {bent(circle.center, {circle.radius, 0, 0}, {0, circle.radius, 0}, 0, kTwoPi)};
    }
    std::vector<Strip> operator()(const kxCircleArcData& arc) const {
        return {bent(arc.center, {arc.radius, 0, 0}, {0, arc.radius, 0}, arc.startParameter,
                     sweepOf(arc.startParameter, arc.endParameter))};
    }
    std::vector<Strip> operator()(const kxEllipseArcData& arc) const {
        return {bent(arc.center, arc.majorAxis, arc.minorAxis, arc.startParameter,
                     sweepOf(arc.startParameter, arc.endParameter))};
    }
    std::vector<Strip> operator()(const kxPolyLineData& polyline) const {
        std::vector<Strip> strips;
        const std::size_t count = polyline.vertices.size();
        for (std::size_t i = 0; i + (polyline.closed ? 0 : 1) < count; ++i) {
            const kxPolyLineVertex& vertex = polyline.vertices[i];
            strips.push_back(
                segment(vertex.point, polyline.vertices[(i + 1) % count].point, vertex.bulge));
        }
        return strips;
    }
    template <class Other>
    std::vector<Strip> operator()(const Other&) const {
        return {};
    }

    static Strip bent(const kxVector3& center, const kxVector3& u, const kxVector3& v, double start,
                      double sweep) {
        return {{}, {}, center, u, v, start, sweep};
    }
};

std::vector<Strip> stripsOf(const Shape& shape) {
    return std::visit(StripMaker(), shape);
}

double sizeOf(const std::vector<Strip>& strips) {
    double size = 0;
    for (const Strip& strip : strips) {
        size = std::max(size, strip.size());
    }
    return size;
}

/// Whether an angle can be told on all of them: they are wide enough and begin within some turns.
bool areClear(const std::vector<Strip>& strips) {
    return std::all_of(strips.begin(), strips.end(), [](const Strip& strip) {
        const double u = std::hypot(strip.u.x, strip.u.y);
        const double v = std::hypot(strip.v.x, strip.v.y);
        return !strip.isBent() ||
               (std::min(u, v) > 1e-3 * std::max({u, v, 1.0}) && std::abs(strip.start) < 1e3);
    });
}

bool isOn(const std::vector<Strip>& strips, const kxVector3& p, double bound) {
    return std::any_of(strips.begin(), strips.end(),
                       [&](const Strip& strip) { return distanceTo(strip, p) <= bound; });
}

kxVector3 mapped(const Affine& map, const kxVector3& p) {
    return {map.xx * p.x + map.xy * p.y + map.shift.x, map.yx * p.x + map.yy * p.y + map.shift.y,
            0};
}

/// Nothing where it can't be turned round without losing digits.
bool invert(const Affine& map, Affine* inverse) {
    const double det = map.determinant();
    const double size =
        std::max({std::abs(map.xx), std::abs(map.xy), std::abs(map.yx), std::abs(map.yy)});
    if (!(std::abs(det) > 1e-3 * size * size) || size < 1e-3 || size > 1e3) {
        return false;
    }
    *inverse = {map.yy / det, -map.xy / det, -map.yx / det, map.xx / det, 1, {}};
    const kxVector3 shift = mapped(*inverse, map.shift);
    inverse->shift = {-shift.x, -shift.y, 0};
    return true;
}

void checkAllOn(const std::vector<Strip>& from, const Affine& map, const std::vector<Strip>& onto,
                double bound) {
    for (const Strip& strip : from) {
        for (int i = 0; i <= kSamples; ++i) {
            FUZZ_CHECK(isOn(onto, mapped(map, strip.at(static_cast<double>(i) / kSamples)), bound));
        }
    }
}

}  // namespace

void checkImages(const Shape& shape, const Affine& map, const std::vector<Shape>& images) {
    Affine inverse;
    const std::vector<Strip> before = stripsOf(shape);
    std::vector<Strip> after;
    for (const Shape& image : images) {
        const std::vector<Strip> strips = stripsOf(image);
        after.insert(after.end(), strips.begin(), strips.end());
    }
    const double size =
        std::max({sizeOf(before), sizeOf(after), std::abs(map.shift.x), std::abs(map.shift.y)});
    // What is flat, tiny or far off loses the digits that this looks at.
    if (before.empty() || !(size < 1e6) || !areClear(before) || !areClear(after) ||
        !invert(map, &inverse)) {
        return;
    }
    checkAllOn(before, map, after, 1e-6);
    checkAllOn(after, inverse, before, 1e-3);
}
