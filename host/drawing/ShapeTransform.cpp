// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/ShapeTransform.h"

#include <algorithm>
#include <cmath>

#include "drawing/Angles.h"
#include "drawing/Bulge.h"
#include "drawing/Ellipse.h"

namespace kxdrawing {

namespace {

/// Transforms the alternatives of a shape one by one; each returns whether the kind changed.
class Transformer {
public:
    Transformer(const Affine& map, std::vector<Shape>* result)
        : m_map(map), m_result(*result), m_similar(map.isSimilarity()) {}

    bool operator()(const PointShape& shape) {
        return keep(PointShape{m_map.point(shape.position)});
    }
    bool operator()(const LineShape& shape) {
        return keep(LineShape{m_map.point(shape.first), m_map.point(shape.second)});
    }
    bool operator()(const CircleShape& shape) {
        if (m_similar) {
            return keep(
                CircleShape{m_map.point(shape.center), shape.radius * m_map.lengthFactor()});
        }
        return ellipseOf({shape.center, shape.radius, 0, kTwoPi, {}, {}});
    }
    bool operator()(const kxCircleArcData& shape);
    bool operator()(const kxEllipseArcData& shape);
    bool operator()(const kxPolyLineData& shape);
    bool operator()(kxSplineData shape);
    bool operator()(kxSimpleNoteData shape);

private:
    bool keep(Shape shape) {
        m_result.push_back(std::move(shape));
        return false;
    }
    bool ellipseOf(const kxCircleArcData& arc);
    void addSegment(const BulgeSegment& segment);

    const Affine& m_map;
    std::vector<Shape>& m_result;
    bool m_similar;
};

bool Transformer::operator()(const kxCircleArcData& shape) {
    if (!m_similar) {
        return ellipseOf(shape);
    }
    kxCircleArcData arc = shape;
    arc.center = m_map.point(shape.center);
    arc.radius = shape.radius * m_map.lengthFactor();
    const AngleSpan span = m_map.mirrors() ? AngleSpan{-shape.endParameter, -shape.startParameter}
                                           : AngleSpan{shape.startParameter, shape.endParameter};
    const AngleSpan turned = turnedBy(span, m_map.rotation());
    arc.startParameter = turned.start;
    arc.endParameter = turned.end;
    return keep(arc);
}

bool Transformer::ellipseOf(const kxCircleArcData& arc) {
    const AngleSpan span = withinOneTurn({arc.startParameter, arc.endParameter}, kTwoPi);
    m_result.emplace_back(principalForm({m_map.point(arc.center), m_map.vector({arc.radius, 0, 0}),
                                         m_map.vector({0, arc.radius, 0}), span.start, span.end}));
    return true;
}

bool Transformer::operator()(const kxEllipseArcData& shape) {
    kxEllipseArcData ellipse = shape;
    ellipse.center = m_map.point(shape.center);
    ellipse.majorAxis = m_map.vector(shape.majorAxis);
    ellipse.minorAxis = m_map.vector(shape.minorAxis);
    return keep(principalForm(ellipse));
}

bool Transformer::operator()(const kxPolyLineData& shape) {
    const double sign = m_map.mirrors() ? -1 : 1;
    kxPolyLineData image = shape;
    bool curved = false;
    for (kxPolyLineVertex& vertex : image.vertices) {
        vertex.point = m_map.point(vertex.point);
        curved = curved || vertex.bulge != 0;
        vertex.bulge = vertex.bulge == 0 ? 0 : sign * vertex.bulge;
    }
    if (m_similar || !curved) {
        return keep(std::move(image));
    }
    const std::size_t count = shape.vertices.size();
    for (std::size_t i = 0; i + (shape.closed ? 0 : 1) < count; ++i) {
        const kxPolyLineVertex& vertex = shape.vertices[i];
        addSegment({vertex.point, shape.vertices[(i + 1) % count].point, vertex.bulge});
    }
    return true;
}

void Transformer::addSegment(const BulgeSegment& segment) {
    if (const std::optional<kxCircleArcData> arc = bulgeArc(segment)) {
        ellipseOf(*arc);
    } else if (isTooLarge(segment)) {
        constexpr kxVector3 kNowhere{HUGE_VAL, HUGE_VAL, HUGE_VAL};
        m_result.emplace_back(LineShape{kNowhere, kNowhere});
    } else {
        m_result.emplace_back(LineShape{m_map.point(segment.first), m_map.point(segment.second)});
    }
}

bool Transformer::operator()(kxSplineData shape) {
    for (kxVector3& point : shape.controlPoints) {
        point = m_map.point(point);
    }
    return keep(std::move(shape));
}

bool Transformer::operator()(kxSimpleNoteData shape) {
    const kxVector3 direction =
        m_map.vector({std::cos(shape.rotation), std::sin(shape.rotation), 0});
    const bool turned = m_map.xy != 0 || m_map.yx != 0 || m_map.xx < 0 || m_map.yy < 0;
    if (turned || !m_similar) {
        shape.rotation = std::atan2(direction.y, direction.x);
    }
    shape.position = m_map.point(shape.position);
    shape.height *= m_map.lengthFactor();
    return keep(std::move(shape));
}

constexpr double kGreatestCoordinate = 1e12;

bool inRange(double value) {
    return std::abs(value) <= kGreatestCoordinate;
}

bool inRange(const kxVector3& p) {
    return inRange(p.x) && inRange(p.y) && inRange(p.z);
}

/// What is wrong with a shape; an empty text when nothing is.
struct ProblemFinder {
    static constexpr const char* kRange = "coordinates out of range";

    const char* operator()(const PointShape& s) const { return inRange(s.position) ? "" : kRange; }
    const char* operator()(const LineShape& s) const {
        return inRange(s.first) && inRange(s.second) ? "" : kRange;
    }
    const char* operator()(const CircleShape& s) const { return round(s.center, s.radius); }
    const char* operator()(const kxCircleArcData& s) const {
        return inRange(s.startParameter) && inRange(s.endParameter) ? round(s.center, s.radius)
                                                                    : kRange;
    }
    const char* operator()(const kxEllipseArcData& s) const {
        const bool fits = inRange(s.center) && inRange(s.majorAxis) && inRange(s.minorAxis) &&
                          inRange(s.startParameter) && inRange(s.endParameter);
        const double major = std::hypot(s.majorAxis.x, s.majorAxis.y);
        const double minor = std::hypot(s.minorAxis.x, s.minorAxis.y);
        return !fits ? kRange : minor > 0 && major > 0 ? "" : "an axis is 0";
    }
    const char* operator()(const kxPolyLineData& s) const;
    const char* operator()(const kxSplineData& s) const;
    const char* operator()(const kxSimpleNoteData& s) const {
        return inRange(s.position) && inRange(s.height) && inRange(s.rotation) ? "" : kRange;
    }

    static const char* round(const kxVector3& center, double radius) {
        if (!(radius > 0)) {
            return "radius not greater than 0";
        }
        return inRange(center) && inRange(radius) ? "" : kRange;
    }
};

const char* ProblemFinder::operator()(const kxPolyLineData& s) const {
    for (const kxPolyLineVertex& vertex : s.vertices) {
        if (!inRange(vertex.point) || !inRange(vertex.bulge)) {
            return kRange;
        }
    }
    const std::size_t count = s.vertices.size();
    for (std::size_t i = 0; i + (s.closed ? 0 : 1) < count; ++i) {
        const kxPolyLineVertex& vertex = s.vertices[i];
        if (isTooLarge({vertex.point, s.vertices[(i + 1) % count].point, vertex.bulge})) {
            return kRange;
        }
    }
    return count < 2 ? "fewer than two vertices" : "";
}

const char* ProblemFinder::operator()(const kxSplineData& s) const {
    // What one point of a curve takes grows with the square of the degree.
    constexpr int kGreatestDegree = 25;
    constexpr double kGreatestWeight = 1e9;
    const auto fits = [](double value) { return inRange(value); };
    const auto weighs = [](double weight) {
        return weight >= 1 / kGreatestWeight && weight <= kGreatestWeight;
    };
    if (s.degree > kGreatestDegree) {
        return "a degree above 25";
    }
    if (!std::all_of(s.controlPoints.begin(), s.controlPoints.end(),
                     [](const kxVector3& point) { return inRange(point); }) ||
        !std::all_of(s.knots.begin(), s.knots.end(), fits)) {
        return kRange;
    }
    return std::all_of(s.weights.begin(), s.weights.end(), weighs) ? "" : "weights out of range";
}

struct PointCounter {
    static constexpr std::size_t kCharactersPerPoint = 8;

    template <class T>
    std::size_t operator()(const T&) const {
        return 1;
    }
    std::size_t operator()(const kxPolyLineData& s) const { return 1 + s.vertices.size(); }
    std::size_t operator()(const kxSplineData& s) const {
        return 1 + s.controlPoints.size() + s.knots.size();
    }
    std::size_t operator()(const kxSimpleNoteData& s) const {
        return 1 + s.text.length() / kCharactersPerPoint;
    }
};

struct Maker {
    const kxString& layer;

    kxObject_ptr operator()(const PointShape& s) const { return kxCreatePoint(layer, s.position); }
    kxObject_ptr operator()(const LineShape& s) const {
        return kxCreateLine(layer, s.first, s.second);
    }
    kxObject_ptr operator()(const CircleShape& s) const {
        return kxCreateCircle(layer, s.center, s.radius);
    }
    kxObject_ptr operator()(const kxCircleArcData& s) const { return kxCreateCircleArc(layer, s); }
    kxObject_ptr operator()(const kxEllipseArcData& s) const {
        return kxCreateEllipseArc(layer, s);
    }
    kxObject_ptr operator()(const kxPolyLineData& s) const { return kxCreatePolyLine(layer, s); }
    kxObject_ptr operator()(const kxSplineData& s) const { return kxCreateSpline(layer, s); }
    kxObject_ptr operator()(const kxSimpleNoteData& s) const {
        return kxCreateSimpleNote(layer, s);
    }
};

}  // namespace

bool transformShape(const Shape& shape, const Affine& map, std::vector<Shape>* result) {
    return std::visit(Transformer(map, result), shape);
}

std::optional<std::string> shapeProblem(const Shape& shape) {
    const std::string problem = std::visit(ProblemFinder(), shape);
    return problem.empty() ? std::nullopt : std::optional<std::string>(problem);
}

std::size_t pointsOf(const Shape& shape) {
    return std::visit(PointCounter(), shape);
}

kxObject_ptr makeObject(const kxString& layer, const Shape& shape) {
    return std::visit(Maker{layer}, shape);
}

}  // namespace kxdrawing
