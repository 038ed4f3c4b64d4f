// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Curve.h"

#include <algorithm>
#include <cmath>

namespace gcode_check {
namespace {

PlanePoint onCircle(const Curve& arc, double angle) {
    return {arc.centre.x + arc.radius * std::cos(angle),
            arc.centre.y + arc.radius * std::sin(angle)};
}

void widen(PlaneBox& box, const PlanePoint& place) {
    if (box.empty()) {
        box = {place.x, place.y, place.x, place.y};
        return;
    }
    box.minX = std::min(box.minX, place.x);
    box.minY = std::min(box.minY, place.y);
    box.maxX = std::max(box.maxX, place.x);
    box.maxY = std::max(box.maxY, place.y);
}

PlaneBox arcBox(const Curve& arc) {
    PlaneBox box;
    widen(box, onCircle(arc, arc.start));
    widen(box, onCircle(arc, arc.start + arc.sweep));
    const std::array<PlanePoint, 4> axes{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
    for (std::size_t quarter = 0; quarter < axes.size(); ++quarter) {
        const double angle = static_cast<double>(quarter) * kPi / 2;
        if (wholeTurn(angle - arc.start) <= arc.sweep) {
            widen(box, {arc.centre.x + arc.radius * axes[quarter].x,
                        arc.centre.y + arc.radius * axes[quarter].y});
        }
    }
    return box;
}

double segmentParameter(const Curve& segment, const PlanePoint& place) {
    const double dx = segment.b.x - segment.a.x;
    const double dy = segment.b.y - segment.a.y;
    const double square = dx * dx + dy * dy;
    if (square == 0) {
        return 0;
    }
    return ((place.x - segment.a.x) * dx + (place.y - segment.a.y) * dy) / square;
}

double arcParameter(const Curve& arc, const PlanePoint& place) {
    const double angle = std::atan2(place.y - arc.centre.y, place.x - arc.centre.x);
    const double turned = wholeTurn(angle - arc.start);
    if (turned <= arc.sweep) {
        return turned / arc.sweep;
    }
    // Outside: the end that is nearer, just beyond it.
    const double beyond = turned - arc.sweep;
    const double before = 2 * kPi - turned;
    return beyond <= before ? 1 + beyond / arc.sweep : -before / arc.sweep;
}

double arcDistance(const Curve& arc, const PlanePoint& place) {
    const double off = distance(arc.centre, place);
    const double t = arcParameter(arc, place);
    if (off == 0 || (t >= 0 && t <= 1)) {
        return std::abs(off - arc.radius);
    }
    return std::min(distance(pointAt(arc, 0), place), distance(pointAt(arc, 1), place));
}

// Separating axes of a segment and a box.
bool segmentReaches(const Curve& segment, const PlaneBox& box, double reach) {
    const double middleX = (box.minX + box.maxX) / 2;
    const double middleY = (box.minY + box.maxY) / 2;
    const double halfX = (box.maxX - box.minX) / 2 + reach;
    const double halfY = (box.maxY - box.minY) / 2 + reach;
    const double dx = (segment.b.x - segment.a.x) / 2;
    const double dy = (segment.b.y - segment.a.y) / 2;
    const double offX = segment.a.x + dx - middleX;
    const double offY = segment.a.y + dy - middleY;
    if (std::abs(offX) > halfX + std::abs(dx) || std::abs(offY) > halfY + std::abs(dy)) {
        return false;
    }
    const double slack = 1e-12 * (std::abs(dx) + std::abs(dy)) * (std::abs(offX) + std::abs(offY));
    return std::abs(offX * dy - offY * dx) <= halfX * std::abs(dy) + halfY * std::abs(dx) + slack;
}

bool circleReaches(const Curve& arc, const PlaneBox& box, double reach) {
    const double x = arc.centre.x;
    const double y = arc.centre.y;
    const double nearX = std::max({box.minX - x, x - box.maxX, 0.0});
    const double nearY = std::max({box.minY - y, y - box.maxY, 0.0});
    const double farX = std::max(std::abs(box.minX - x), std::abs(box.maxX - x));
    const double farY = std::max(std::abs(box.minY - y), std::abs(box.maxY - y));
    const double slack = 1e-12 * (arc.radius + farX + farY);
    const double most = arc.radius + reach + slack;
    const double least = std::max(arc.radius - reach - slack, 0.0);
    return nearX * nearX + nearY * nearY <= most * most &&
           farX * farX + farY * farY >= least * least;
}

bool boxesMeet(const PlaneBox& a, const PlaneBox& b, double reach) {
    return a.minX <= b.maxX + reach && b.minX <= a.maxX + reach && a.minY <= b.maxY + reach &&
           b.minY <= a.maxY + reach;
}

Curve shapeArc(const Shape& shape) {
    // Angles a full turn apart differ by a little more than that now and then.
    constexpr double kLeastSweep = 1e-9;
    const double sweep = wholeTurn(shape.endRad - shape.startRad);
    return arcCurve(shape.centre, shape.radius, shape.startRad,
                    sweep < kLeastSweep ? 2 * kPi : sweep);
}

}  // namespace

double wholeTurn(double angle) {
    const double turn = 2 * kPi;
    if (angle >= 0 && angle < turn) {
        return angle;
    }
    const double rest = angle - turn * std::floor(angle / turn);
    return rest >= turn || rest < 0 ? 0 : rest;
}

Curve pointCurve(const PlanePoint& place) {
    Curve curve;
    curve.a = place;
    curve.b = place;
    return curve;
}

Curve segmentCurve(const PlanePoint& a, const PlanePoint& b) {
    Curve curve = pointCurve(a);
    if (a.x != b.x || a.y != b.y) {
        curve.kind = Curve::Kind::Segment;
        curve.b = b;
    }
    return curve;
}

Curve arcCurve(const PlanePoint& centre, double radius, double start, double sweep) {
    Curve curve;
    curve.centre = centre;
    curve.radius = std::abs(radius);
    curve.start = wholeTurn(sweep < 0 ? start + sweep : start);
    curve.sweep = std::min(std::abs(sweep), 2 * kPi);
    if (!(curve.radius > 0) || !(curve.sweep > 0)) {
        return pointCurve(onCircle(curve, curve.start));
    }
    curve.kind = Curve::Kind::Arc;
    return curve;
}

Curve curveOf(const Shape& shape) {
    switch (shape.kind) {
        case ShapeKind::Line:
            return segmentCurve(shape.first, shape.second);
        case ShapeKind::Arc:
            return shapeArc(shape);
        case ShapeKind::Circle:
            return arcCurve(shape.centre, shape.radius, 0, 2 * kPi);
        case ShapeKind::Point:
            break;
    }
    return pointCurve(shape.first);
}

bool isFinite(const Curve& curve) {
    if (curve.kind == Curve::Kind::Arc) {
        return isFinite(curve.centre) && isFinite({curve.radius, 0}) &&
               isFinite({curve.start, curve.sweep});
    }
    return isFinite(curve.a) && isFinite(curve.b);
}

double distance(const PlanePoint& a, const PlanePoint& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

double lengthOf(const Curve& curve) {
    if (curve.kind == Curve::Kind::Arc) {
        return curve.radius * curve.sweep;
    }
    return distance(curve.a, curve.b);
}

PlanePoint pointAt(const Curve& curve, double t) {
    if (curve.kind == Curve::Kind::Arc) {
        return onCircle(curve, curve.start + curve.sweep * t);
    }
    if (t == 1) {
        return curve.b;
    }
    return {curve.a.x + (curve.b.x - curve.a.x) * t, curve.a.y + (curve.b.y - curve.a.y) * t};
}

PlanePoint directionAt(const Curve& curve, double t) {
    if (curve.kind == Curve::Kind::Arc) {
        const double angle = curve.start + curve.sweep * t;
        return {-std::sin(angle), std::cos(angle)};
    }
    const double length = lengthOf(curve);
    if (length == 0) {
        return {};
    }
    return {(curve.b.x - curve.a.x) / length, (curve.b.y - curve.a.y) / length};
}

PlaneBox boxOf(const Curve& curve) {
    if (curve.kind == Curve::Kind::Arc) {
        return arcBox(curve);
    }
    PlaneBox box;
    widen(box, curve.a);
    widen(box, curve.b);
    return box;
}

double parameterOf(const Curve& curve, const PlanePoint& place) {
    switch (curve.kind) {
        case Curve::Kind::Segment:
            return segmentParameter(curve, place);
        case Curve::Kind::Arc:
            return arcParameter(curve, place);
        case Curve::Kind::Point:
            break;
    }
    return 0;
}

double distance(const Curve& curve, const PlanePoint& place) {
    switch (curve.kind) {
        case Curve::Kind::Segment: {
            const double t = segmentParameter(curve, place);
            return distance(pointAt(curve, std::clamp(t, 0.0, 1.0)), place);
        }
        case Curve::Kind::Arc:
            return arcDistance(curve, place);
        case Curve::Kind::Point:
            break;
    }
    return distance(curve.a, place);
}

Curve partOf(const Curve& curve, double from, double to) {
    if (curve.kind == Curve::Kind::Arc) {
        return arcCurve(curve.centre, curve.radius, curve.start + curve.sweep * from,
                        curve.sweep * (to - from));
    }
    return segmentCurve(pointAt(curve, from), pointAt(curve, to));
}

bool mayReach(const Curve& curve, const PlaneBox& box, double reach) {
    switch (curve.kind) {
        case Curve::Kind::Segment:
            return segmentReaches(curve, box, reach);
        case Curve::Kind::Arc:
            return circleReaches(curve, box, reach);
        case Curve::Kind::Point:
            break;
    }
    return boxesMeet(boxOf(curve), box, reach);
}

}  // namespace gcode_check
