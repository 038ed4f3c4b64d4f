// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Explode.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

#include "drawing/Angles.h"
#include "drawing/Bulge.h"
#include "drawing/CurveFit.h"
#include "drawing/Ellipse.h"

namespace kxdrawing {

namespace {

struct Pieces {
    std::vector<kxObject_ptr> objects;
    long dropped = 0;
};

/// Lines and arcs for the segments between neighbouring vertices.
class PieceMaker {
public:
    PieceMaker(kxString layer, double tolerance)
        : m_layer(std::move(layer)), m_tolerance(tolerance) {}

    void add(const BulgeSegment& segment) {
        const kxVector3& a = segment.first;
        const kxVector3& b = segment.second;
        if (a.x == b.x && a.y == b.y && a.z == b.z) {
            ++m_pieces.dropped;
            return;
        }
        const bool flat = sagitta(segment) < 1e-3 * m_tolerance;
        const auto arc = flat ? std::nullopt : bulgeArc(segment);
        if (arc) {
            m_pieces.objects.emplace_back(kxCreateCircleArc(m_layer, *arc));
        } else {
            m_pieces.objects.emplace_back(kxCreateLine(m_layer, a, b));
        }
    }

    void addChain(const std::vector<kxPolyLineVertex>& chain) {
        for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
            add({chain[i].point, chain[i + 1].point, chain[i].bulge});
        }
    }

    Pieces take() { return std::move(m_pieces); }

private:
    kxString m_layer;
    double m_tolerance;
    Pieces m_pieces;
};

kxPolyLineVertex vertexOf(const kxPolyLine_c& polyline, long index) {
    kxPolyLineVertex vertex;
    polyline.GetVertex(index, &vertex.point.x, &vertex.point.y, &vertex.point.z);
    polyline.GetBulge(index, &vertex.bulge);
    return vertex;
}

Pieces explodePolyline(const kxPolyLine_c& polyline, PieceMaker maker) {
    long count = 0;
    polyline.GetVerticesCount(&count);
    const long segments = polyline.IsClosed() ? count : count - 1;
    for (long i = 0; i < segments; ++i) {
        const kxPolyLineVertex from = vertexOf(polyline, i);
        const kxPolyLineVertex to = vertexOf(polyline, (i + 1) % count);
        maker.add({from.point, to.point, from.bulge});
    }
    return maker.take();
}

kxEllipseArcData dataOf(const kxEllipseArc_c& ellipse) {
    kxEllipseArcData data;
    ellipse.GetCenter(&data.center.x, &data.center.y, &data.center.z);
    ellipse.GetMajorAxis(&data.majorAxis.x, &data.majorAxis.y, &data.majorAxis.z);
    ellipse.GetMinorAxis(&data.minorAxis.x, &data.minorAxis.y, &data.minorAxis.z);
    ellipse.GetEndParams(&data.startParameter, &data.endParameter);
    // What goes round more than once covers nothing new.
    data.endParameter = std::min(data.endParameter, data.startParameter + kTwoPi);
    return data;
}

kxVector3 pointOf(const kxEllipseArc_c& ellipse, double parameter) {
    double p[3];
    ellipse.EvaluateAtParameter(parameter, p, nullptr, nullptr);
    return {p[0], p[1], p[2]};
}

bool isFull(const kxEllipseArcData& data) {
    return std::abs(data.endParameter - data.startParameter - kTwoPi) < 1e-9;
}

/// An ellipse with equal axes, which is a circle or an arc.
kxObject_ptr roundObject(const kxEllipseArc_c& ellipse, const kxEllipseArcData& data) {
    const double radius = std::hypot(data.majorAxis.x, data.majorAxis.y);
    if (isFull(data)) {
        return kxCreateCircle(ellipse.GetLayer(), data.center, radius);
    }
    const double turn = std::atan2(data.majorAxis.y, data.majorAxis.x);
    return kxCreateCircleArc(
        ellipse.GetLayer(),
        {data.center, radius, data.startParameter + turn, data.endParameter + turn,
         pointOf(ellipse, data.startParameter), pointOf(ellipse, data.endParameter)});
}

Pieces explodeEllipse(const kxEllipseArc_c& ellipse, PieceMaker maker, double tolerance) {
    const kxEllipseArcData data = dataOf(ellipse);
    const double turning =
        data.majorAxis.x * data.minorAxis.y - data.majorAxis.y * data.minorAxis.x;
    if (isCircular(data) && turning > 0) {
        return {{roundObject(ellipse, data)}, 0};
    }
    Curve curve;
    curve.at = [&ellipse](double t) {
        double p[3];
        double d[3];
        ellipse.EvaluateAtParameter(t, p, d, nullptr);
        return CurvePoint{{p[0], p[1], p[2]}, {d[0], d[1], d[2]}};
    };
    constexpr double kQuarter = kPi / 2;
    curve.breaks = {data.startParameter};
    double quarter = std::floor(data.startParameter / kQuarter) + 1;
    for (; quarter * kQuarter < data.endParameter - 1e-9; ++quarter) {
        curve.breaks.push_back(quarter * kQuarter);
    }
    curve.breaks.push_back(data.endParameter);
    curve.closed = isFull(data);
    maker.addChain(fitArcs(curve, tolerance));
    return maker.take();
}

/// The distinct knots between the ends of a spline, with the ends.
std::vector<double> breaksOf(const kxSpline_c& spline) {
    double start = 0;
    double end = 0;
    spline.GetEndParams(&start, &end);
    std::vector<double> breaks = {start};
    long count = 0;
    spline.GetKnotCount(&count);
    for (long i = 0; i < count; ++i) {
        double knot = 0;
        if (spline.GetKnot(i, &knot) && knot > breaks.back() && knot < end) {
            breaks.push_back(knot);
        }
    }
    breaks.push_back(end);
    return breaks;
}

Pieces explodeSpline(const kxSpline_c& spline, PieceMaker maker, double tolerance) {
    Curve curve;
    curve.at = [&spline](double t) {
        double p[3];
        double d[3];
        spline.EvaluateAtParameter(t, p, d);
        return CurvePoint{{p[0], p[1], p[2]}, {d[0], d[1], d[2]}};
    };
    curve.breaks = breaksOf(spline);
    maker.addChain(fitArcs(curve, tolerance));
    return maker.take();
}

bool canExplode(const kxObject& object) {
    const kxObjectType_e type = object.GetType();
    return type == kxPolyLineType || type == kxEllipseArcType || type == kxSplineType;
}

Pieces piecesOf(kxObject& object, double tolerance) {
    const double used = tolerance > 0 ? tolerance : kDefaultTolerance;
    const PieceMaker maker(object.GetLayer(), used);
    if (const auto polyline = kxCast<kxPolyLine_c>(&object)) {
        return explodePolyline(*polyline, maker);
    }
    if (const auto ellipse = kxCast<kxEllipseArc_c>(&object)) {
        return explodeEllipse(*ellipse, maker, used);
    }
    if (const auto spline = kxCast<kxSpline_c>(&object)) {
        return explodeSpline(*spline, maker, used);
    }
    return {};
}

}  // namespace

std::optional<std::vector<kxObject_ptr>> explodeObject(kxObject& object, double tolerance) {
    Pieces pieces = piecesOf(object, tolerance);
    if (pieces.objects.empty()) {
        return std::nullopt;
    }
    return std::move(pieces.objects);
}

ExplodeResult explode(kxHostDocument_c& document, const std::vector<kxObject_ptr>& objects,
                      double tolerance, std::size_t limit) {
    std::unordered_set<const kxObject*> wanted;
    for (const kxObject_ptr& object : objects) {
        wanted.insert(object.get());
    }
    ExplodeResult result;
    std::vector<kxObject_ptr> drawing;
    for (const kxObject_ptr& object : document.GetObjects()) {
        Pieces pieces;
        if (wanted.count(object.get()) != 0) {
            if (result.pieces.size() < limit) {
                pieces = piecesOf(*object, tolerance);
            } else if (canExplode(*object)) {
                ++result.kept;
            }
        }
        if (pieces.objects.empty()) {
            drawing.push_back(object);
            continue;
        }
        ++result.exploded[object->GetType()];
        result.droppedSegments += pieces.dropped;
        for (const kxObject_ptr& piece : pieces.objects) {
            ++result.created[piece->GetType()];
            result.pieces.push_back(piece);
            drawing.push_back(piece);
        }
    }
    if (!result.exploded.empty()) {
        document.SetObjects(std::move(drawing));
    }
    return result;
}

}  // namespace kxdrawing
