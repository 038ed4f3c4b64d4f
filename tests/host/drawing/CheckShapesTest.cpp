// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/CheckShapes.h"

#include <gtest/gtest.h>

#include <kx/host/kxGeometryFactory.h>

#include "drawing/Units.h"

namespace kxdrawing {
namespace {

using gcode_check::ShapeKind;
using CheckShape = gcode_check::Shape;

CheckShape onlyShape(const kxObject_ptr& object) {
    const CheckShapes made = checkShapes({object}, kUnitMillimetres);
    EXPECT_EQ(made.drawing.shapes.size(), 1U);
    return made.drawing.shapes.empty() ? CheckShape() : made.drawing.shapes.front();
}

TEST(CheckShapes, A_line_keeps_its_ends_in_their_order_and_loses_its_height) {
    const CheckShape shape = onlyShape(kxCreateLine("CUT", {1, 2, 3}, {4, 5.5, 6}));
    EXPECT_EQ(shape.kind, ShapeKind::Line);
    EXPECT_EQ(shape.first.x, 1);
    EXPECT_EQ(shape.first.y, 2);
    EXPECT_EQ(shape.second.x, 4);
    EXPECT_EQ(shape.second.y, 5.5);
}

TEST(CheckShapes, An_arc_keeps_centre_radius_and_angles) {
    kxCircleArcData data;
    data.center = {1, 2, 3};
    data.radius = 4;
    data.startParameter = 5;
    data.endParameter = 6;
    const CheckShape shape = onlyShape(kxCreateCircleArc("CUT", data));
    EXPECT_EQ(shape.kind, ShapeKind::Arc);
    EXPECT_EQ(shape.centre.x, 1);
    EXPECT_EQ(shape.centre.y, 2);
    EXPECT_EQ(shape.radius, 4);
    EXPECT_EQ(shape.startRad, 5);
    EXPECT_EQ(shape.endRad, 6);
}

TEST(CheckShapes, A_circle_keeps_centre_and_radius) {
    const CheckShape shape = onlyShape(kxCreateCircle("CUT", {1, 2, 3}, 4));
    EXPECT_EQ(shape.kind, ShapeKind::Circle);
    EXPECT_EQ(shape.centre.x, 1);
    EXPECT_EQ(shape.centre.y, 2);
    EXPECT_EQ(shape.radius, 4);
}

TEST(CheckShapes, A_point_keeps_its_place) {
    const CheckShape shape = onlyShape(kxCreatePoint("CUT", {1, 2, 3}));
    EXPECT_EQ(shape.kind, ShapeKind::Point);
    EXPECT_EQ(shape.first.x, 1);
    EXPECT_EQ(shape.first.y, 2);
}

TEST(CheckShapes, What_gives_no_tool_path_is_counted_and_keeps_its_number) {
    const std::vector<kxObject_ptr> objects = {
        kxCreatePolyLine("A", {{{{0, 0, 0}}, {{1, 0, 0}}}, false}),
        kxCreatePoint("A", {1, 1, 0}),
        kxCreateSimpleNote("A", {}),
        kxCreatePolyLine("A", {{{{0, 0, 0}}, {{2, 0, 0}}}, false}),
        kxCreateEllipseArc("A", {{0, 0, 0}, {2, 0, 0}, {0, 1, 0}, 0, 1}),
        kxCreateSpline("A", {1, {0, 0, 1, 1}, {{0, 0, 0}, {1, 1, 0}}, {}}),
        kxCreateLine("A", {0, 0, 0}, {1, 0, 0})};
    const CheckShapes made = checkShapes(objects, kUnitMillimetres);
    ASSERT_EQ(made.drawing.shapes.size(), 2U);
    EXPECT_EQ(made.objectOfShape, (std::vector<std::size_t>{1, 6}));
    EXPECT_EQ(made.drawing.shapes[0].object, 2U);
    EXPECT_EQ(made.drawing.shapes[1].object, 7U);
    const std::map<kxObjectType_e, std::size_t> wanted = {
        {kxPolyLineType, 2}, {kxSimpleNoteType, 1}, {kxEllipseArcType, 1}, {kxSplineType, 1}};
    EXPECT_EQ(made.noToolPath, wanted);
}

TEST(CheckShapes, A_name_tells_kind_number_and_layer) {
    const std::vector<kxObject_ptr> objects = {
        kxCreatePoint("Löcher 3", {0, 0, 0}), kxCreateCircle("CUT", {0, 0, 0}, 1),
        kxCreateCircleArc("CUT", {{0, 0, 0}, 1, 0, 1}), kxCreateLine("", {0, 0, 0}, {1, 0, 0})};
    const auto shapes = checkShapes(objects, kUnitMillimetres).drawing.shapes;
    ASSERT_EQ(shapes.size(), 4U);
    EXPECT_EQ(shapes[0].name, "point 1 of layer Löcher 3");
    EXPECT_EQ(shapes[1].name, "circle 2 of layer CUT");
    EXPECT_EQ(shapes[2].name, "arc 3 of layer CUT");
    EXPECT_EQ(shapes[3].name, "line 4");
}

TEST(CheckShapes, A_layer_can_not_break_a_line_or_speak_to_the_terminal) {
    const CheckShape shape = onlyShape(kxCreatePoint("A\n\x1b[2J", {0, 0, 0}));
    EXPECT_EQ(shape.name, "point 1 of layer A\\n\\x1b[2J");
}

TEST(CheckShapes, The_unit_is_the_drawings_and_may_be_unknown) {
    EXPECT_EQ(checkShapes({}, kUnitInches).drawing.mmPerUnit, 25.4);
    EXPECT_EQ(checkShapes({}, kUnitMillimetres).drawing.mmPerUnit, 1.0);
    EXPECT_EQ(checkShapes({}, std::nullopt).drawing.mmPerUnit, std::nullopt);
}

}  // namespace
}  // namespace kxdrawing
