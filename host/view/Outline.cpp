// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/Outline.h"

#include <cmath>

#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxEllipseArc.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>
#include <kx/kxPolyLine.h>
#include <kx/kxSimpleNote.h>
#include <kx/kxSpline.h>

#include "KxText.h"
#include "drawing/Bulge.h"
#include "view/Bezier.h"
#include "view/NoteShape.h"

namespace outline {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTurn = 2 * kPi;
/// Arcs flatter than this lose digits when they are told by their centre.
constexpr double kGreatestRadiusPerChord = 1000;

constexpr std::size_t kLinesPerCurve = 8;

/// Appends one object's pieces and gives their box.
class Writer {
public:
    explicit Writer(Outlines* outlines) : m_to(*outlines) {}

    WorldBox write(kxObject* object);
    bool isPoint() const { return m_isPoint; }

private:
    void line(const kxLine_c& line);
    void point(const kxPoint_c& point);
    void circle(const kxCircle_c& circle);
    void circleArc(const kxCircleArc_c& arc);
    void ellipseArc(const kxEllipseArc_c& ellipse);
    void polyLine(const kxPolyLine_c& polyline);
    void polyLineSegment(const kxdrawing::BulgeSegment& segment);
    void spline(const kxSpline_c& spline);
    void note(const kxSimpleNote_c& note);

    void add(const Segment& segment);
    void addArc(const Arc& arc);
    /// Appends a curve whose points are at the end of the list already.
    void endBezier(std::size_t firstPoint);
    /// center + cos(t) u + sin(t) v, at most a quarter turn, without its box.
    void addEllipsePiece(const QPointF& center, const QPointF& u, const QPointF& v, double sweep);

    Outlines& m_to;
    WorldBox m_box;
    bool m_isPoint = false;
};

void Writer::add(const Segment& segment) {
    m_to.segments.push_back(segment);
    m_box.add(segment.first);
    m_box.add(segment.second);
}

void Writer::addArc(const Arc& arc) {
    m_to.arcs.push_back(arc);
    m_box.add(boxOf(arc));
}

void Writer::endBezier(std::size_t firstPoint) {
    m_to.beziers.push_back({static_cast<std::uint32_t>(firstPoint),
                            static_cast<std::uint32_t>(m_to.bezierPoints.size() - firstPoint)});
}

void Writer::line(const kxLine_c& line) {
    double z = 0;
    double x[2];
    double y[2];
    line.GetFirstPoint(&x[0], &y[0], &z);
    line.GetSecondPoint(&x[1], &y[1], &z);
    add({{x[0], y[0]}, {x[1], y[1]}});
}

void Writer::point(const kxPoint_c& point) {
    double x = 0;
    double y = 0;
    double z = 0;
    point.GetPosition(&x, &y, &z);
    add({{x, y}, {x, y}});
    m_isPoint = true;
}

void Writer::circle(const kxCircle_c& circle) {
    double x = 0;
    double y = 0;
    double z = 0;
    double radius = 0;
    circle.GetCenter(&x, &y, &z);
    circle.get_Radius(&radius);
    addArc({{x, y}, radius, 0, kTurn});
}

void Writer::circleArc(const kxCircleArc_c& arc) {
    double x = 0;
    double y = 0;
    double z = 0;
    double radius = 0;
    double start = 0;
    double end = 0;
    arc.GetCenter(&x, &y, &z);
    arc.get_Radius(&radius);
    arc.GetEndParams(&start, &end);
    addArc({{x, y}, radius, start, std::min(end - start, kTurn)});
}

void Writer::addEllipsePiece(const QPointF& center, const QPointF& u, const QPointF& v,
                             double sweep) {
    const double c = std::cos(sweep);
    const double s = std::sin(sweep);
    const double tangent = std::tan(sweep / 2);
    const double weight = std::cos(sweep / 2);
    const QPointF first = center + u;
    const QPointF middle = (center + u + v * tangent) * weight;
    const QPointF last = center + u * c + v * s;
    const std::size_t begin = m_to.bezierPoints.size();
    m_to.bezierPoints.push_back({first.x(), first.y(), 1});
    m_to.bezierPoints.push_back({middle.x(), middle.y(), weight});
    m_to.bezierPoints.push_back({last.x(), last.y(), 1});
    endBezier(begin);
}

void Writer::ellipseArc(const kxEllipseArc_c& ellipse) {
    double z = 0;
    double x[3];
    double y[3];
    double start = 0;
    double end = 0;
    ellipse.GetCenter(&x[0], &y[0], &z);
    ellipse.GetMajorAxis(&x[1], &y[1], &z);
    ellipse.GetMinorAxis(&x[2], &y[2], &z);
    ellipse.GetEndParams(&start, &end);
    const QPointF center(x[0], y[0]);
    const QPointF u(x[1], y[1]);
    const QPointF v(x[2], y[2]);
    const double sweep = std::min(end - start, kTurn);
    const auto at = [&](double t) { return center + u * std::cos(t) + v * std::sin(t); };
    const double count = std::max(1.0, std::ceil(sweep / (kPi / 2) - 1e-9));
    for (double i = 0; i < count; ++i) {
        const double t = start + sweep * i / count;
        addEllipsePiece(center, u * std::cos(t) + v * std::sin(t),
                        v * std::cos(t) - u * std::sin(t), sweep / count);
    }
    m_box.add(at(start));
    m_box.add(at(start + sweep));
    const Arc parameters{center, 1, start, sweep};
    for (const double extreme : {std::atan2(v.x(), u.x()), std::atan2(v.y(), u.y())}) {
        for (const double t : {extreme, extreme + kPi}) {
            if (passes(parameters, t)) {
                m_box.add(at(t));
            }
        }
    }
}

void Writer::polyLineSegment(const kxdrawing::BulgeSegment& segment) {
    const QPointF first(segment.first.x, segment.first.y);
    const QPointF second(segment.second.x, segment.second.y);
    const std::optional<kxCircleArcData> arc = kxdrawing::bulgeArc(segment);
    if (!arc) {
        add({first, second});
        return;
    }
    m_box.add(first);
    m_box.add(second);
    const QPointF chord = second - first;
    if (arc->radius <= kGreatestRadiusPerChord * std::hypot(chord.x(), chord.y())) {
        addArc({{arc->center.x, arc->center.y},
                arc->radius,
                arc->startParameter,
                arc->endParameter - arc->startParameter});
        return;
    }
    // The tangents of the ends meet beside the middle of the chord.
    const double half = 2 * std::atan(segment.bulge);
    const QPointF apex =
        (first + second) / 2 + QPointF(chord.y(), -chord.x()) * (std::tan(half) / 2);
    const double weight = std::cos(half);
    const std::size_t begin = m_to.bezierPoints.size();
    m_to.bezierPoints.push_back({first.x(), first.y(), 1});
    m_to.bezierPoints.push_back({apex.x() * weight, apex.y() * weight, weight});
    m_to.bezierPoints.push_back({second.x(), second.y(), 1});
    endBezier(begin);
    m_box.add(boxOf(BezierPiece{&m_to.bezierPoints[begin], 3}));
}

void Writer::polyLine(const kxPolyLine_c& polyline) {
    long count = 0;
    polyline.GetVerticesCount(&count);
    const long segments = polyline.IsClosed() ? count : count - 1;
    kxdrawing::BulgeSegment segment;
    polyline.GetVertex(0, &segment.second.x, &segment.second.y, &segment.second.z);
    if (segments < 1) {
        add({{segment.second.x, segment.second.y}, {segment.second.x, segment.second.y}});
    }
    for (long i = 0; i < segments; ++i) {
        segment.first = segment.second;
        polyline.GetVertex((i + 1) % count, &segment.second.x, &segment.second.y,
                           &segment.second.z);
        polyline.GetBulge(i, &segment.bulge);
        polyLineSegment(segment);
    }
}

void Writer::note(const kxSimpleNote_c& note) {
    double x = 0;
    double y = 0;
    double z = 0;
    note.GetPosition(&x, &y, &z);
    Note result;
    result.text = toQString(note.GetText());
    result.position = {x, y};
    result.height = note.GetHeight();
    result.rotation = note.GetRotation();
    result.corners = noteCorners(result);
    for (const QPointF& corner : result.corners) {
        m_box.add(corner);
    }
    m_to.notes.push_back(std::move(result));
}

/// The control points of the Bezier curve that a B-spline is between two of its knots.
class SplineSpans {
public:
    explicit SplineSpans(const kxSpline_c& spline) : m_degree(spline.GetDegree()) {
        long count = 0;
        spline.GetControlPointCount(&count);
        for (long i = 0; i < count; ++i) {
            double point[3] = {};
            double weight = 1;
            spline.GetControlPoint(i, point, &weight);
            m_points.push_back({point[0] * weight, point[1] * weight, weight});
        }
        spline.GetKnotCount(&count);
        for (long i = 0; i < count; ++i) {
            m_knots.push_back(0);
            spline.GetKnot(i, &m_knots.back());
        }
    }

    /// The spans of some length, by the index of their first knot.
    std::vector<long> spans() const {
        std::vector<long> result;
        for (long i = m_degree; i < static_cast<long>(m_points.size()); ++i) {
            if (knot(i) < knot(i + 1)) {
                result.push_back(i);
            }
        }
        return result;
    }

    /// The curve's polar form with `ends` times the span's end and otherwise its start.
    WeightedPoint blossom(long span, int ends) const {
        std::vector<WeightedPoint> work(m_points.begin() + (span - m_degree),
                                        m_points.begin() + (span + 1));
        for (int round = 1; round <= m_degree; ++round) {
            const double t = knot(round <= m_degree - ends ? span : span + 1);
            for (long k = m_degree; k >= round; --k) {
                const long i = span - m_degree + k;
                const double from = knot(i);
                const double share = (t - from) / (knot(i + m_degree + 1 - round) - from);
                WeightedPoint& to = work[static_cast<std::size_t>(k)];
                const WeightedPoint& before = work[static_cast<std::size_t>(k - 1)];
                to = {before.x + (to.x - before.x) * share, before.y + (to.y - before.y) * share,
                      before.w + (to.w - before.w) * share};
            }
        }
        return work.back();
    }

    int degree() const { return m_degree; }

private:
    double knot(long index) const { return m_knots[static_cast<std::size_t>(index)]; }

    int m_degree;
    std::vector<WeightedPoint> m_points;
    std::vector<double> m_knots;
};

void Writer::spline(const kxSpline_c& spline) {
    const SplineSpans spans(spline);
    for (const long span : spans.spans()) {
        const std::size_t begin = m_to.bezierPoints.size();
        for (int i = 0; i <= spans.degree(); ++i) {
            m_to.bezierPoints.push_back(spans.blossom(span, i));
        }
        endBezier(begin);
        m_box.add(boxOf(BezierPiece{&m_to.bezierPoints[begin], m_to.beziers.back().count}));
    }
}

template <class T>
void writeAs(kxObject* object, void (Writer::*write)(const T&), Writer* writer) {
    if (const auto* narrowed = dynamic_cast<const T*>(object)) {
        (writer->*write)(*narrowed);
    }
}

WorldBox Writer::write(kxObject* object) {
    switch (object->GetType()) {
        case kxLineType:
            writeAs(object, &Writer::line, this);
            break;
        case kxPointType:
            writeAs(object, &Writer::point, this);
            break;
        case kxCircleType:
            writeAs(object, &Writer::circle, this);
            break;
        case kxCircleArcType:
            writeAs(object, &Writer::circleArc, this);
            break;
        case kxEllipseArcType:
            writeAs(object, &Writer::ellipseArc, this);
            break;
        case kxPolyLineType:
            writeAs(object, &Writer::polyLine, this);
            break;
        case kxSplineType:
            writeAs(object, &Writer::spline, this);
            break;
        case kxSimpleNoteType:
            writeAs(object, &Writer::note, this);
            break;
        case kxUnknownType:
            break;
    }
    return m_box;
}

}  // namespace

QPointF Arc::at(double angle) const {
    return {center.x() + radius * std::cos(angle), center.y() + radius * std::sin(angle)};
}

bool passes(const Arc& arc, double angle) {
    if (arc.isFull()) {
        return true;
    }
    double offset = std::fmod(angle - arc.start, kTurn);
    offset = offset < 0 ? offset + kTurn : offset;
    // A rounding before the start is still the start.
    return offset <= arc.sweep || offset >= kTurn - 1e-14;
}

WorldBox boxOf(const Arc& arc) {
    WorldBox box;
    box.add(arc.at(arc.start));
    box.add(arc.at(arc.start + arc.sweep));
    const QPointF sides[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    for (std::size_t i = 0; i < 4; ++i) {
        if (passes(arc, static_cast<double>(i) * kPi / 2)) {
            box.add(arc.center + sides[i] * arc.radius);
        }
    }
    return box;
}

void Outlines::add(kxObject* object) {
    Writer writer(this);
    boxes.push_back(writer.write(object));
    begins.back().isPoint = writer.isPoint();
    begins.push_back(
        {static_cast<std::uint32_t>(segments.size()), static_cast<std::uint32_t>(arcs.size()),
         static_cast<std::uint32_t>(beziers.size()), static_cast<std::uint32_t>(notes.size())});
}

std::size_t Outlines::lineCount(std::size_t object) const {
    const Begin& begin = begins[object];
    const Begin& end = begins[object + 1];
    return end.segment - begin.segment +
           kLinesPerCurve * (end.arc - begin.arc + end.bezier - begin.bezier);
}

}  // namespace outline
