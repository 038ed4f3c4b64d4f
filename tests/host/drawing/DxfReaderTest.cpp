// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfReader.h"

#include <clocale>
#include <cmath>
#include <locale>

#include <kx/host/kxHostApplication.h>

#include "TestDxf.h"
#include "drawing/Angles.h"

namespace kxdrawing {
namespace {

const Group kDown{230, "-1"};

std::string arc(const std::string& start, const std::string& end,
                std::initializer_list<Group> more = {}) {
    return groups({{0, "ARC"},
                   {8, "0"},
                   {10, "10"},
                   {20, "5"},
                   {30, "2"},
                   {40, "4"},
                   {50, start},
                   {51, end}}) +
           groups(more);
}

std::vector<kxPolyLineVertex> verticesOf(const kxPolyLine_c& polyline) {
    long count = 0;
    polyline.GetVerticesCount(&count);
    std::vector<kxPolyLineVertex> result(static_cast<std::size_t>(count));
    for (long i = 0; i < count; ++i) {
        kxPolyLineVertex& vertex = result[static_cast<std::size_t>(i)];
        polyline.GetVertex(i, &vertex.point.x, &vertex.point.y, &vertex.point.z);
        polyline.GetBulge(i, &vertex.bulge);
    }
    return result;
}

TEST(DxfReader, A_line_keeps_its_world_coordinates_whatever_its_extrusion) {
    const auto object = onlyEntity<kxLine_c>(groups({{0, "LINE"},
                                                     {8, "L"},
                                                     {10, "1.5"},
                                                     {20, "-2"},
                                                     {30, "3"},
                                                     {11, "4"},
                                                     {21, "5"},
                                                     {31, "6"},
                                                     {210, "0.6"},
                                                     {220, "0"},
                                                     {230, "-0.8"}}));
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {1.5, -2, 3});
    expectSame(secondPoint(*object), {4, 5, 6});
    EXPECT_EQ(object->GetLayer(), kxString("L"));
}

TEST(DxfReader, A_point_keeps_its_world_coordinates_whatever_its_extrusion) {
    const auto object = onlyEntity<kxPoint_c>(
        groups({{0, "POINT"}, {8, "0"}, {10, "1"}, {20, "2"}, {30, "3"}, {210, "1"}, {230, "0"}}));
    ASSERT_TRUE(object);
    kxVector3 p;
    object->GetPosition(&p.x, &p.y, &p.z);
    expectSame(p, {1, 2, 3});
}

TEST(DxfReader, A_circle_has_centre_radius_and_one_seam) {
    const auto object = onlyEntity<kxCircle_c>(
        groups({{0, "CIRCLE"}, {8, "0"}, {10, "1"}, {20, "2"}, {30, "3"}, {40, "0.1"}}));
    ASSERT_TRUE(object);
    double radius = 0;
    object->get_Radius(&radius);
    EXPECT_EQ(radius, 0.1);
    expectSame(centerOf(*object), {1, 2, 3});
    expectSame(pointAt(*object, endParams(*object).second), {1 + 0.1, 2, 3});
}

TEST(DxfReader, A_mirrored_circle_starts_at_world_angle_0) {
    const auto object = onlyEntity<kxCircle_c>(
        groups({{0, "CIRCLE"}, {8, "0"}, {10, "1"}, {20, "2"}, {30, "3"}, {40, "4"}, kDown}));
    ASSERT_TRUE(object);
    expectSame(centerOf(*object), {-1, 2, -3});
    expectSame(pointAt(*object, 0), {3, 2, -3});
}

TEST(DxfReader, Arc_angles_are_degrees_times_pi_over_180) {
    const auto object = onlyEntity<kxCircleArc_c>(arc("33.3", "271.7"));
    ASSERT_TRUE(object);
    EXPECT_EQ(endParams(*object).first, 33.3 * (kPi / 180));
    EXPECT_EQ(endParams(*object).second, 271.7 * (kPi / 180));
}

TEST(DxfReader, An_arc_across_the_X_axis_has_2_pi_added_to_its_end) {
    const auto object = onlyEntity<kxCircleArc_c>(arc("350", "10.1"));
    ASSERT_TRUE(object);
    EXPECT_EQ(endParams(*object).first, 350 * (kPi / 180));
    EXPECT_EQ(endParams(*object).second, 10.1 * (kPi / 180) + kTwoPi);
    EXPECT_EQ(endParams(*onlyEntity<kxCircleArc_c>(arc("90", "90"))).second,
              90 * (kPi / 180) + kTwoPi);
}

TEST(DxfReader, Arc_angles_further_apart_than_a_turn_are_brought_within_one) {
    const auto object = onlyEntity<kxCircleArc_c>(arc("0", "810"));
    ASSERT_TRUE(object);
    EXPECT_DOUBLE_EQ(endParams(*object).second, kPi / 2);
}

TEST(DxfReader, A_mirrored_arc_swaps_its_ends_and_stays_counter_clockwise) {
    const auto object = onlyEntity<kxCircleArc_c>(arc("0", "90", {kDown}));
    ASSERT_TRUE(object);
    expectSame(centerOf(*object), {-10, 5, -2});
    EXPECT_EQ(endParams(*object).first, 90 * (kPi / 180));
    EXPECT_EQ(endParams(*object).second, 180 * (kPi / 180));
    const auto across = onlyEntity<kxCircleArc_c>(arc("170", "200", {kDown}));
    ASSERT_TRUE(across);
    EXPECT_EQ(endParams(*across).first, 340 * (kPi / 180));
    EXPECT_EQ(endParams(*across).second, 10 * (kPi / 180) + kTwoPi);
}

TEST(DxfReader, Round_things_that_are_oblique_are_left_out) {
    for (const Group& oblique : {Group{210, "1"}, Group{220, "0.5"}}) {
        EXPECT_EQ(onlyReason(readEntities(arc("0", "90", {oblique}))),
                  "not parallel to the XY plane");
    }
    EXPECT_EQ(onlyReason(readEntities(insert("B", "0", "0", {{220, "1"}, {230, "0"}}))),
              "not parallel to the XY plane");
}

TEST(DxfReader, A_light_polyline_has_bulges_elevation_and_closed_flag) {
    const auto object = onlyEntity<kxPolyLine_c>(groups({{0, "LWPOLYLINE"},
                                                         {8, "0"},
                                                         {90, "3"},
                                                         {70, "1"},
                                                         {38, "2.5"},
                                                         {10, "0"},
                                                         {20, "0"},
                                                         {42, "1"},
                                                         {10, "4"},
                                                         {20, "0"},
                                                         {10, "4"},
                                                         {20, "3"},
                                                         {42, "-0.5"}}));
    ASSERT_TRUE(object);
    EXPECT_TRUE(object->IsClosed());
    const auto vertices = verticesOf(*object);
    ASSERT_EQ(vertices.size(), 3U);
    expectSame(vertices[0].point, {0, 0, 2.5});
    expectSame(vertices[2].point, {4, 3, 2.5});
    EXPECT_EQ(vertices[0].bulge, 1);
    EXPECT_EQ(vertices[1].bulge, 0);
    EXPECT_EQ(vertices[2].bulge, -0.5);
}

TEST(DxfReader, A_light_polylines_stated_vertex_count_is_not_trusted) {
    for (const char* const count : {"0", "1", "-5", "2147483647"}) {
        const auto object = onlyEntity<kxPolyLine_c>(groups({{0, "LWPOLYLINE"},
                                                             {42, "7"},
                                                             {90, count},
                                                             {10, "1"},
                                                             {20, "2"},
                                                             {10, "3"},
                                                             {20, "4"},
                                                             {42, "5"}}));
        ASSERT_TRUE(object) << count;
        const auto vertices = verticesOf(*object);
        ASSERT_EQ(vertices.size(), 2U);
        EXPECT_EQ(vertices[0].bulge, 0);
        EXPECT_EQ(vertices[1].bulge, 5);
    }
}

TEST(DxfReader, Nothing_of_one_polyline_leaks_into_the_next) {
    const Drawing drawing =
        readEntities(groups({{0, "LWPOLYLINE"},
                             {90, "2"},
                             {70, "1"},
                             {38, "9"},
                             {10, "1"},
                             {20, "2"},
                             {42, "1"},
                             {10, "3"},
                             {20, "4"}}) +
                     groups({{0, "LWPOLYLINE"}, {10, "5"}, {20, "6"}, {10, "7"}, {20, "8"}}));
    ASSERT_EQ(drawing.objects.size(), 2U);
    const auto second = kxCast<kxPolyLine_c>(drawing.objects[1].get());
    const auto vertices = verticesOf(*second);
    ASSERT_EQ(vertices.size(), 2U);
    EXPECT_FALSE(second->IsClosed());
    expectSame(vertices[0].point, {5, 6, 0});
    EXPECT_EQ(vertices[0].bulge, 0);
}

TEST(DxfReader, A_mirrored_polyline_turns_its_bulges) {
    const auto object = onlyEntity<kxPolyLine_c>(groups({{0, "LWPOLYLINE"},
                                                         {38, "2"},
                                                         {10, "1"},
                                                         {20, "2"},
                                                         {42, "0.5"},
                                                         {10, "3"},
                                                         {20, "4"},
                                                         kDown}));
    ASSERT_TRUE(object);
    const auto vertices = verticesOf(*object);
    expectSame(vertices[0].point, {-1, 2, -2});
    expectSame(vertices[1].point, {-3, 4, -2});
    EXPECT_EQ(vertices[0].bulge, -0.5);
}

std::string vertex(const std::string& x, const std::string& y, const std::string& z,
                   std::initializer_list<Group> more = {}) {
    return groups({{0, "VERTEX"}, {8, "0"}, {10, x}, {20, y}, {30, z}}) + groups(more);
}

TEST(DxfReader, An_old_polyline_has_its_vertices_bulges_and_elevation) {
    const auto object = onlyEntity<kxPolyLine_c>(
        groups({{0, "POLYLINE"}, {8, "P"}, {66, "1"}, {10, "0"}, {20, "0"}, {30, "7"}, {70, "1"}}) +
        vertex("1", "2", "0", {{42, "0.25"}}) + vertex("3", "4", "0") + groups({{0, "SEQEND"}}));
    ASSERT_TRUE(object);
    EXPECT_TRUE(object->IsClosed());
    EXPECT_EQ(object->GetLayer(), kxString("P"));
    const auto vertices = verticesOf(*object);
    ASSERT_EQ(vertices.size(), 2U);
    expectSame(vertices[0].point, {1, 2, 7});
    EXPECT_EQ(vertices[0].bulge, 0.25);
}

TEST(DxfReader, A_polyline_in_space_keeps_each_height_even_when_tilted) {
    const auto object = onlyEntity<kxPolyLine_c>(
        groups({{0, "POLYLINE"}, {70, "8"}, {210, "1"}, {230, "0"}}) + vertex("1", "2", "3") +
        vertex("4", "5", "6", {{42, "1"}}) + groups({{0, "SEQEND"}}));
    ASSERT_TRUE(object);
    const auto vertices = verticesOf(*object);
    expectSame(vertices[0].point, {1, 2, 3});
    expectSame(vertices[1].point, {4, 5, 6});
    EXPECT_EQ(vertices[1].bulge, 0);
}

TEST(DxfReader, A_polyline_without_SEQEND_ends_with_the_next_entity) {
    const Drawing drawing = readEntities(groups({{0, "POLYLINE"}}) + vertex("1", "2", "0") +
                                         vertex("4", "5", "0") + line("0", "0", "1", "1"));
    ASSERT_EQ(drawing.objects.size(), 2U);
    EXPECT_EQ(drawing.objects[0]->GetType(), kxPolyLineType);
}

TEST(DxfReader, Control_points_of_a_fitted_polyline_are_skipped_and_reported) {
    const Drawing drawing =
        readEntities(groups({{0, "POLYLINE"}, {70, "4"}}) + vertex("9", "9", "0", {{70, "16"}}) +
                     vertex("1", "2", "0", {{70, "8"}}) + vertex("4", "5", "0", {{70, "8"}}) +
                     groups({{0, "SEQEND"}}));
    EXPECT_EQ(verticesOf(*onlyObject<kxPolyLine_c>(drawing)).size(), 2U);
    EXPECT_EQ(drawing.report.totals().converted, 1);
}

TEST(DxfReader, Meshes_are_left_out_with_their_vertices) {
    for (const char* const flags : {"16", "64"}) {
        EXPECT_EQ(
            onlyReason(readEntities(groups({{0, "POLYLINE"}, {70, flags}}) + vertex("1", "2", "3") +
                                    vertex("4", "5", "6") + groups({{0, "SEQEND"}}))),
            "mesh");
    }
    EXPECT_EQ(onlyReason(readEntities(groups({{0, "POLYLINE"}, {67, "1"}}) + vertex("1", "2", "3") +
                                      vertex("4", "5", "6") + groups({{0, "SEQEND"}}))),
              "paper space");
}

std::string ellipse(const std::string& ratio, const std::string& start, const std::string& end,
                    std::initializer_list<Group> more = {}) {
    return groups({{0, "ELLIPSE"},
                   {10, "1"},
                   {20, "2"},
                   {30, "3"},
                   {11, "4"},
                   {21, "3"},
                   {31, "0"},
                   {40, ratio},
                   {41, start},
                   {42, end}}) +
           groups(more);
}

TEST(DxfReader, An_ellipse_has_its_axes_and_parameters_as_written) {
    const auto object = onlyEntity<kxEllipseArc_c>(ellipse("0.5", "0.25", "1.5"));
    ASSERT_TRUE(object);
    kxVector3 minor;
    object->GetMinorAxis(&minor.x, &minor.y, &minor.z);
    expectSame(centerOf(*object), {1, 2, 3});
    expectSame(minor, {-1.5, 2, 0});
    EXPECT_EQ(endParams(*object), std::make_pair(0.25, 1.5));
}

TEST(DxfReader, An_ellipse_over_a_whole_turn_is_full_though_written_with_six_digits) {
    const auto object = onlyEntity<kxEllipseArc_c>(ellipse("0.5", "0.0", "6.283185"));
    ASSERT_TRUE(object);
    EXPECT_EQ(endParams(*object), std::make_pair(0.0, kTwoPi));
}

TEST(DxfReader, Ellipse_parameters_far_out_are_brought_back) {
    const auto object = onlyEntity<kxEllipseArc_c>(ellipse("0.5", "1e9", "1"));
    ASSERT_TRUE(object);
    EXPECT_LT(std::abs(endParams(*object).first), kTwoPi);
    EXPECT_NEAR(endParams(*object).first, std::remainder(1e9, kTwoPi), 1e-9);
}

TEST(DxfReader, A_mirrored_ellipse_arc_is_the_same_points_counter_clockwise) {
    const auto plain = onlyEntity<kxEllipseArc_c>(ellipse("-0.5", "0.25", "1.5"));
    const auto object = onlyEntity<kxEllipseArc_c>(ellipse("0.5", "0.25", "1.5", {kDown}));
    ASSERT_TRUE(object);
    const auto [start, end] = endParams(*object);
    // Centre and axes are world coordinates: only the turning is mirrored.
    const double t = 0.25;
    expectNear(pointAt(*object, end),
               {1 + std::cos(t) * 4 + std::sin(t) * 1.5, 2 + std::cos(t) * 3 - std::sin(t) * 2, 3});
    EXPECT_NEAR(end - start, 1.25, 1e-12);
    expectNear(pointAt(*plain, endParams(*plain).first), pointAt(*object, start));
}

TEST(DxfReader, A_spline_has_knots_control_points_and_weights) {
    const auto object = onlyEntity<kxSpline_c>(
        groups({{0, "SPLINE"}, {70, "4"}, {71, "2"}, {72, "99"}, {73, "1"}, {40, "0"},
                {40, "0"},     {40, "0"}, {40, "1"}, {40, "1"},  {40, "1"}, {41, "1"},
                {41, "0.5"},   {41, "1"}, {10, "0"}, {20, "0"},  {30, "0"}, {10, "1"},
                {20, "2"},     {30, "0"}, {10, "2"}, {20, "0"},  {30, "0"}}));
    ASSERT_TRUE(object);
    EXPECT_EQ(object->GetDegree(), 2);
    double point[3];
    double weight = 0;
    ASSERT_TRUE(object->GetControlPoint(1, point, &weight));
    EXPECT_EQ(point[1], 2);
    EXPECT_EQ(weight, 0.5);
    long knots = 0;
    object->GetKnotCount(&knots);
    EXPECT_EQ(knots, 6);
}

TEST(DxfReader, A_spline_whose_numbers_do_not_fit_is_left_out) {
    EXPECT_EQ(onlyReason(readEntities(groups({{0, "SPLINE"},
                                              {71, "3"},
                                              {40, "0"},
                                              {40, "1"},
                                              {10, "0"},
                                              {20, "0"},
                                              {10, "1"},
                                              {20, "1"}}))),
              "knots, weights and control points do not fit together");
    EXPECT_EQ(onlyReason(readEntities(groups({{0, "SPLINE"}, {71, "3"}}))),
              "fewer than two points");
}

TEST(DxfReader, A_spline_of_fit_points_is_interpolated_and_reported) {
    const Drawing drawing = readEntities(groups({{0, "SPLINE"},
                                                 {70, "8"},
                                                 {71, "3"},
                                                 {74, "3"},
                                                 {11, "0"},
                                                 {21, "0"},
                                                 {31, "0"},
                                                 {11, "3"},
                                                 {21, "4"},
                                                 {31, "0"},
                                                 {11, "6"},
                                                 {21, "0"},
                                                 {31, "0"}}));
    const auto object = onlyObject<kxSpline_c>(drawing);
    ASSERT_TRUE(object);
    expectNear(pointAt(*object, 0), {0, 0, 0});
    expectNear(pointAt(*object, 5), {3, 4, 0});
    expectNear(pointAt(*object, 10), {6, 0, 0});
    EXPECT_EQ(drawing.report.rows().front().detail, "spline through its fit points");
}

TEST(DxfReader, Texts_are_notes) {
    const auto text = onlyEntity<kxSimpleNote_c>(groups({{0, "TEXT"},
                                                         {8, "0"},
                                                         {10, "1"},
                                                         {20, "2"},
                                                         {40, "2.5"},
                                                         {50, "90"},
                                                         {1, "%%c5 \\U+00e9"}}));
    ASSERT_TRUE(text);
    EXPECT_EQ(text->GetText().toUtf8(), "\u00D85 \u00E9");
    EXPECT_EQ(text->GetHeight(), 2.5);
    EXPECT_EQ(text->GetRotation(), 90 * (kPi / 180));
    const auto longText = onlyEntity<kxSimpleNote_c>(groups({{0, "MTEXT"},
                                                             {10, "1"},
                                                             {20, "2"},
                                                             {40, "3"},
                                                             {3, std::string(3000, 'x')},
                                                             {1, "{\\fArial|b0;end}\\Pnext"}}));
    ASSERT_TRUE(longText);
    EXPECT_EQ(longText->GetText().toUtf8(), std::string(3000, 'x') + "end next");
    const Drawing attribute =
        readEntities(groups({{0, "ATTRIB"}, {10, "1"}, {20, "2"}, {40, "1"}, {1, "v"}, {2, "T"}}));
    EXPECT_EQ(onlyObject<kxSimpleNote_c>(attribute)->GetText().toUtf8(), "v");
    EXPECT_EQ(attribute.report.totals().converted, 1);
}

TEST(DxfReader, What_gives_no_object_is_left_out_with_the_reason) {
    const std::pair<const char*, const char*> rows[] = {
        {"DIMENSION", "dimension"}, {"LEADER", "leader"},
        {"HATCH", "filled area"},   {"SOLID", "filled area"},
        {"TRACE", "filled area"},   {"3DFACE", "surface"},
        {"IMAGE", "image"},         {"XLINE", "infinite line"},
        {"RAY", "infinite line"},   {"WIPEOUT", "type not supported"}};
    for (const auto& [type, reason] : rows) {
        EXPECT_EQ(onlyReason(readEntities(groups({{0, type}, {8, "L"}, {10, "1"}, {20, "1"}}))),
                  reason);
    }
}

TEST(DxfReader, Paper_space_and_invisible_entities_are_left_out) {
    EXPECT_EQ(onlyReason(readEntities(line("0", "0", "1", "1") + groups({{67, "1"}}))),
              "paper space");
    EXPECT_EQ(onlyReason(readEntities(line("0", "0", "1", "1") + groups({{60, "1"}}))),
              "invisible");
}

TEST(DxfReader, Degenerate_and_incomplete_entities_are_left_out) {
    EXPECT_EQ(onlyReason(readEntities(circle("0", "0", "0"))), "radius not greater than 0");
    EXPECT_EQ(onlyReason(readEntities(circle("0", "0", "-1"))), "radius not greater than 0");
    EXPECT_EQ(onlyReason(readEntities(groups({{0, "LWPOLYLINE"}, {10, "1"}, {20, "1"}}))),
              "fewer than two vertices");
    EXPECT_EQ(onlyReason(readEntities(ellipse("0", "0", "1"))), "an axis is 0");
    EXPECT_EQ(onlyReason(readEntities(groups({{0, "LINE"}, {10, "1"}, {20, "1"}}))),
              "incomplete: group 11 is missing");
}

TEST(DxfReader, Coordinates_beyond_all_measure_are_left_out) {
    EXPECT_EQ(onlyReason(readEntities(line("0", "0", "1e308", "0"))), "coordinates out of range");
    EXPECT_EQ(onlyReason(readEntities(circle("0", "-1e308", "1"))), "coordinates out of range");
    EXPECT_EQ(onlyReason(readEntities(circle("0", "0", "1e308"))), "coordinates out of range");
    EXPECT_EQ(readEntities(line("0", "0", "1e12", "0")).objects.size(), 1U);
}

TEST(DxfReader, Off_and_frozen_layers_are_hidden_and_names_have_no_case) {
    TestDxf dxf;
    dxf.tables = groups({{0, "TABLE"}, {2, "LAYER"}}) + layer("Seen", 0, 7) + layer("Off", 0, -7) +
                 layer("Frozen", 1, 7) + layer("Locked", 4, 7) + groups({{0, "ENDTAB"}});
    dxf.entities = line("0", "0", "1", "1", "OFF") + line("0", "0", "1", "1", "seen") +
                   line("0", "0", "1", "1", "new");
    const Drawing drawing = readGood(dxf.text());
    ASSERT_EQ(drawing.layers.size(), 5U);
    EXPECT_TRUE(drawing.layers[0].visible);
    EXPECT_FALSE(drawing.layers[1].visible);
    EXPECT_FALSE(drawing.layers[2].visible);
    EXPECT_TRUE(drawing.layers[3].visible);
    EXPECT_EQ(drawing.layers[4].name, kxString("new"));
    EXPECT_EQ(drawing.objects[0]->GetLayer(), kxString("Off"));
    EXPECT_EQ(drawing.objects[1]->GetLayer(), kxString("Seen"));
    EXPECT_NE(drawing.report.toText().find("hidden layers: 2, objects on them: 1"),
              std::string::npos);
}

TEST(DxfReader, Layer_names_that_are_not_UTF_8_are_taken_for_Latin_1) {
    EXPECT_EQ(readEntities(line("0", "0", "1", "1", "Fr\xE4s")).objects[0]->GetLayer().toUtf8(),
              "Fr\u00E4s");
    EXPECT_EQ(readEntities(line("0", "0", "1", "1", "Fr\u00E4s")).objects[0]->GetLayer().toUtf8(),
              "Fr\u00E4s");
}

TEST(DxfReader, Lengths_in_other_units_are_scaled) {
    TestDxf dxf;
    dxf.header = groups({{9, "$INSUNITS"}, {70, "5"}});
    dxf.entities = arc("33.3", "271.7") + circle("1", "2", "3");
    const Drawing drawing = readGood(dxf.text());
    EXPECT_EQ(drawing.unit, 1);
    EXPECT_EQ(drawing.scale, 10);
    const auto scaled = kxCast<kxCircleArc_c>(drawing.objects[0].get());
    expectSame(centerOf(*scaled), {100, 50, 20});
    EXPECT_EQ(endParams(*scaled).first, 33.3 * (kPi / 180));
    EXPECT_NE(drawing.report.toText().find("centimetres, scaled to millimetres"),
              std::string::npos);
}

TEST(DxfReader, The_reports_numbers_are_those_of_the_file) {
    TestDxf dxf;
    dxf.blocks = block("B", line("0", "0", "1", "0") + circle("0", "0", "0")) +
                 block("UNUSED", line("0", "0", "1", "0"));
    dxf.entities = line("0", "0", "1", "1") + circle("0", "0", "0") + insert("B", "1", "1") +
                   insert("NONE", "1", "1") + groups({{0, "HATCH"}, {8, "0"}}) +
                   groups({{0, "POLYLINE"}}) + vertex("0", "0", "0") + vertex("1", "0", "0") +
                   groups({{0, "SEQEND"}});
    const Drawing drawing = readGood(dxf.text());
    const ImportTotals totals = drawing.report.totals();
    EXPECT_EQ(totals.read, 2);
    EXPECT_EQ(totals.converted, 1);
    EXPECT_EQ(totals.leftOut, 3);
    EXPECT_EQ(totals.entities(), 6);
    EXPECT_EQ(totals.objects, static_cast<long>(drawing.objects.size()));
    ASSERT_EQ(drawing.report.rowsInBlocks().size(), 1U);
    EXPECT_EQ(drawing.report.rowsInBlocks().front().detail, "radius not greater than 0");
}

TEST(DxfReader, A_drawing_is_loaded_into_a_document) {
    TestDxf dxf;
    dxf.header = groups({{9, "$INSUNITS"}, {70, "1"}});
    dxf.tables = groups({{0, "TABLE"}, {2, "LAYER"}}) + layer("Off", 0, -7);
    dxf.entities = line("0", "0", "1", "1", "Off") + circle("0", "0", "1");
    const kxHostApplication_ptr application = kxCreateHostApplication({});
    const kxHostDocument_ptr document = application->AddDocument("drawing", true);
    loadInto(*document, readGood(dxf.text()));
    EXPECT_EQ(document->GetObjects().size(), 2U);
    EXPECT_FALSE(document->IsLayerVisible("Off"));
    short unit = 7;
    kxGetCommandOptionResult_e result = kxGetCommandOptionResult_NotFound;
    document->GetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, &unit, &result);
    EXPECT_EQ(result, kxGetCommandOptionResult_Success);
    EXPECT_EQ(unit, 0);
}

/// Swaps comma and point, as in a decimal-comma locale.
struct CommaPunctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(DxfReader, A_decimal_comma_locale_changes_nothing_and_is_left_in_place) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const std::locale comma(std::locale::classic(), new CommaPunctuation);
    const std::locale old = std::locale::global(comma);
    const bool cLocale = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    const auto object = onlyEntity<kxLine_c>(line("1.5", "2.25", "1234.125", "-0.5"));
    EXPECT_TRUE(std::locale() == comma);
    EXPECT_TRUE(!cLocale || std::string(std::setlocale(LC_ALL, nullptr)) == "de_DE.UTF-8");
    std::locale::global(old);
    std::setlocale(LC_ALL, before.c_str());
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {1.5, 2.25, 0});
    expectSame(secondPoint(*object), {1234.125, -0.5, 0});
}

}  // namespace
}  // namespace kxdrawing
