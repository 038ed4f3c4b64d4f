// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "SceneFixture.h"

#include <algorithm>

#include "drawing/Bulge.h"

kxObject_ptr RandomObjects::next(int kind) {
    const kxVector3 a = anywhere();
    const kxVector3 u = point(10);
    const kxVector3 v = point(10);
    const double start = between(-7, 7);
    const double end = start + between(0.01, 6.28);
    switch (kind % 7) {
        case 0:
            return kxCreateLine("0", a, {a.x + u.x, a.y + u.y, 5});
        case 1:
            return kxCreateCircle("0", a, between(0.1, 10));
        case 2:
            return kxCreateCircleArc("0", {a, between(0.1, 10), start, end});
        case 3:
            return kxCreateEllipseArc("0", {a, u, v, start, end});
        case 4:
            return polyLine();
        case 5:
            return spline();
        default:
            return kxCreatePoint("0", a);
    }
}

kxObject_ptr RandomObjects::polyLine() {
    const kxVector3 a = anywhere();
    kxPolyLineData data;
    for (int i = 0; i < 4; ++i) {
        const kxVector3 offset = point(5);
        const double bulge = between(0, 1) < 0.3 ? 0 : between(-1.5, 1.5);
        data.vertices.push_back({{a.x + offset.x, a.y + offset.y, 0}, bulge});
    }
    // Hardly bent: told without its far centre.
    data.vertices[1].bulge = 1e-5;
    data.closed = between(0, 1) < 0.5;
    return kxCreatePolyLine("0", data);
}

kxObject_ptr RandomObjects::spline() {
    const kxVector3 a = anywhere();
    kxSplineData data;
    data.degree = static_cast<int>(between(1, 6));
    for (int i = 0; i < data.degree + 4; ++i) {
        const kxVector3 offset = point(5);
        data.controlPoints.push_back({a.x + offset.x, a.y + offset.y, 0});
        data.weights.push_back(between(0.3, 3));
    }
    double knot = 0;
    const bool clamped = between(0, 1) < 0.5;
    const int count = 2 * data.degree + 5;
    for (int i = 0; i < count; ++i) {
        const bool inside = i > data.degree && i < count - data.degree;
        knot += !clamped || inside ? between(0, 1) : 0;
        data.knots.push_back(knot);
    }
    return kxCreateSpline("0", data);
}

std::vector<kxObject_ptr> RandomObjects::take(int count) {
    std::vector<kxObject_ptr> objects;
    for (int i = 0; i < count; ++i) {
        objects.push_back(next(i));
    }
    return objects;
}

namespace {

template <class Curve>
std::vector<QPointF> evaluated(const Curve& curve, int count,
                               void (*at)(const Curve&, double, double*)) {
    double start = 0;
    double end = 0;
    curve.GetEndParams(&start, &end);
    std::vector<QPointF> points;
    for (int i = 0; i <= count; ++i) {
        double point[3] = {};
        at(curve, start + (end - start) * i / count, point);
        points.emplace_back(point[0], point[1]);
    }
    return points;
}

template <class Curve>
void roundAt(const Curve& curve, double parameter, double* point) {
    curve.EvaluateAtParameter(parameter, point, nullptr, nullptr);
}

void splineAt(const kxSpline_c& curve, double parameter, double* point) {
    curve.EvaluateAtParameter(parameter, point, nullptr);
}

std::vector<QPointF> straight(const QPointF& a, const QPointF& b, int count) {
    std::vector<QPointF> points;
    for (int i = 0; i <= count; ++i) {
        points.push_back(a + (b - a) * i / count);
    }
    return points;
}

std::vector<QPointF> alongPolyLine(const kxPolyLine_c& polyline, int count) {
    long vertices = 0;
    polyline.GetVerticesCount(&vertices);
    std::vector<QPointF> points;
    for (long i = 0; i < (polyline.IsClosed() ? vertices : vertices - 1); ++i) {
        kxdrawing::BulgeSegment segment;
        polyline.GetVertex(i, &segment.first.x, &segment.first.y, &segment.first.z);
        polyline.GetVertex((i + 1) % vertices, &segment.second.x, &segment.second.y,
                           &segment.second.z);
        polyline.GetBulge(i, &segment.bulge);
        const auto data = kxdrawing::bulgeArc(segment);
        std::vector<QPointF> part =
            data ? evaluated<kxCircleArc_c>(*kxCreateCircleArc("0", *data), count, roundAt)
                 : straight({segment.first.x, segment.first.y},
                            {segment.second.x, segment.second.y}, count);
        if (data && segment.bulge < 0) {
            // The arc runs the other way.
            std::reverse(part.begin(), part.end());
        }
        points.insert(points.end(), part.begin(), part.end());
    }
    return points;
}

}  // namespace

std::vector<QPointF> pointsAlong(kxObject* object, int count) {
    double x[2] = {};
    double y[2] = {};
    double z = 0;
    if (const auto line = kxCast<kxLine_c>(object)) {
        line->GetFirstPoint(&x[0], &y[0], &z);
        line->GetSecondPoint(&x[1], &y[1], &z);
        return straight({x[0], y[0]}, {x[1], y[1]}, count);
    }
    if (const auto point = kxCast<kxPoint_c>(object)) {
        point->GetPosition(&x[0], &y[0], &z);
        return {{x[0], y[0]}};
    }
    if (const auto circle = kxCast<kxCircle_c>(object)) {
        return evaluated<kxCircle_c>(*circle, count, roundAt);
    }
    if (const auto arc = kxCast<kxCircleArc_c>(object)) {
        return evaluated<kxCircleArc_c>(*arc, count, roundAt);
    }
    if (const auto ellipse = kxCast<kxEllipseArc_c>(object)) {
        return evaluated<kxEllipseArc_c>(*ellipse, count, roundAt);
    }
    if (const auto spline = kxCast<kxSpline_c>(object)) {
        return evaluated<kxSpline_c>(*spline, count, splineAt);
    }
    return alongPolyLine(*kxCast<kxPolyLine_c>(object), count);
}
