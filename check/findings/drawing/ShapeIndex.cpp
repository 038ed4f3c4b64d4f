// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/ShapeIndex.h"

namespace gcode_check {
namespace {

PlanePoint scaled(const PlanePoint& place, double scale) {
    return {place.x * scale, place.y * scale};
}

Shape scaled(Shape shape, double scale) {
    shape.first = scaled(shape.first, scale);
    shape.second = scaled(shape.second, scale);
    shape.centre = scaled(shape.centre, scale);
    shape.radius *= scale;
    return shape;
}

Target targetOf(const Shape& shape, double scale) {
    Target target;
    target.curve = curveOf(scaled(shape, scale));
    target.usable = isFinite(target.curve);
    if (shape.kind == ShapeKind::Circle) {
        target.hole = scaled(shape.centre, scale);
    } else if (target.curve.kind == Curve::Kind::Point) {
        target.hole = target.curve.a;
    }
    if (target.hole && !isFinite(*target.hole)) {
        target.usable = false;
    }
    return target;
}

}  // namespace

ShapeIndex::ShapeIndex(const Drawing& drawing, double unitsPerDrawingUnit) {
    std::vector<PlaneBox> outlines;
    std::vector<PlaneBox> holes;
    m_targets.reserve(drawing.shapes.size());
    for (const Shape& shape : drawing.shapes) {
        const std::size_t index = m_targets.size();
        m_targets.push_back(targetOf(shape, unitsPerDrawingUnit));
        const Target& target = m_targets.back();
        if (!target.usable) {
            continue;
        }
        m_curves.push_back(index);
        outlines.push_back(boxOf(target.curve));
        if (target.hole) {
            m_holes.push_back(index);
            holes.push_back(boxOf(pointCurve(*target.hole)));
        }
    }
    m_curveTree = BoxTree(outlines);
    m_holeTree = BoxTree(holes);
}

double ShapeIndex::distanceToOutline(const PlanePoint& place, double bound) const {
    return m_curveTree.nearest(place, bound, [&](std::size_t entry) {
        return distance(m_targets[m_curves[entry]].curve, place);
    });
}

}  // namespace gcode_check
