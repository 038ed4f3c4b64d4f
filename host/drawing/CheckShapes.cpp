// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/CheckShapes.h"

#include <string>

#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>

#include "drawing/Units.h"
#include "files/PrintableText.h"

namespace kxdrawing {

namespace {

using gcode_check::PlanePoint;
using gcode_check::ShapeKind;
using CheckShape = gcode_check::Shape;

constexpr double kMillimetresPerInch = 25.4;

template <class Object>
PlanePoint placeOf(const Object& object, void (Object::*read)(double*, double*, double*) const) {
    PlanePoint place;
    double height = 0;
    (object.*read)(&place.x, &place.y, &height);
    return place;
}

CheckShape shapeOf(const kxLine_c& line) {
    CheckShape shape;
    shape.kind = ShapeKind::Line;
    shape.first = placeOf(line, &kxLine_c::GetFirstPoint);
    shape.second = placeOf(line, &kxLine_c::GetSecondPoint);
    return shape;
}

CheckShape shapeOf(const kxPoint_c& point) {
    CheckShape shape;
    shape.kind = ShapeKind::Point;
    shape.first = placeOf(point, &kxPoint_c::GetPosition);
    return shape;
}

template <class Round>
CheckShape roundShape(const Round& round, ShapeKind kind) {
    CheckShape shape;
    shape.kind = kind;
    shape.centre = placeOf(round, &Round::GetCenter);
    round.get_Radius(&shape.radius);
    round.GetEndParams(&shape.startRad, &shape.endRad);
    return shape;
}

std::optional<CheckShape> shapeOf(kxObject& object) {
    if (const auto line = kxCast<kxLine_c>(&object)) {
        return shapeOf(*line);
    }
    if (const auto arc = kxCast<kxCircleArc_c>(&object)) {
        return roundShape(*arc, ShapeKind::Arc);
    }
    if (const auto circle = kxCast<kxCircle_c>(&object)) {
        return roundShape(*circle, ShapeKind::Circle);
    }
    if (const auto point = kxCast<kxPoint_c>(&object)) {
        return shapeOf(*point);
    }
    return std::nullopt;
}

const char* wordOf(ShapeKind kind) {
    switch (kind) {
        case ShapeKind::Point:
            return "point";
        case ShapeKind::Line:
            return "line";
        case ShapeKind::Arc:
            return "arc";
        case ShapeKind::Circle:
            return "circle";
    }
    return "object";
}

std::string nameOf(const CheckShape& shape, const kxString& layer) {
    const std::string name = wordOf(shape.kind) + (" " + std::to_string(shape.object));
    return layer.empty() ? name : name + " of layer " + kxfiles::printable(layer.toUtf8());
}

}  // namespace

CheckShapes checkShapes(const std::vector<kxObject_ptr>& objects, std::optional<short> unit) {
    CheckShapes result;
    if (unit) {
        result.drawing.mmPerUnit = *unit == kUnitInches ? kMillimetresPerInch : 1;
    }
    for (std::size_t i = 0; i < objects.size(); ++i) {
        std::optional<CheckShape> shape = shapeOf(*objects[i]);
        if (!shape) {
            ++result.noToolPath[objects[i]->GetType()];
            continue;
        }
        shape->object = static_cast<std::uint32_t>(i + 1);
        shape->name = nameOf(*shape, objects[i]->GetLayer());
        result.drawing.shapes.push_back(*std::move(shape));
        result.objectOfShape.push_back(i);
    }
    return result;
}

}  // namespace kxdrawing
