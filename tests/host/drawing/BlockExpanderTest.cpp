// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/BlockExpander.h"

#include <cmath>

#include "TestDxf.h"
#include "drawing/Angles.h"

namespace kxdrawing {
namespace {

std::string drawingOf(const std::string& blocks, const std::string& entities) {
    TestDxf dxf;
    dxf.blocks = blocks;
    dxf.entities = entities;
    return dxf.text();
}

Drawing inserted(const std::string& content, std::initializer_list<Group> more,
                 const std::string& x = "0", const std::string& y = "0") {
    return readGood(drawingOf(block("B", content), insert("B", x, y, more)));
}

std::string arc(const std::string& start, const std::string& end) {
    return groups({{0, "ARC"}, {8, "0"}, {10, "1"}, {20, "0"}, {40, "2"}, {50, start}, {51, end}});
}

std::string bulgedPolyline() {
    return groups({{0, "LWPOLYLINE"},
                   {8, "0"},
                   {70, "0"},
                   {10, "0"},
                   {20, "0"},
                   {42, "1"},
                   {10, "2"},
                   {20, "0"},
                   {42, "0"},
                   {10, "2"},
                   {20, "3"}});
}

TEST(BlockExpander, A_translation_adds_the_position_and_nothing_else) {
    const Drawing drawing = readGood(
        drawingOf(block("B", line("0.1", "0.2", "0.3", "0.7")), insert("B", "10.3", "-4.7")));
    const auto object = onlyObject<kxLine_c>(drawing);
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {0.1 + 10.3, 0.2 + -4.7, 0});
    expectSame(secondPoint(*object), {0.3 + 10.3, 0.7 + -4.7, 0});
}

TEST(BlockExpander, An_insert_at_the_origin_disturbs_no_bit) {
    const auto object = onlyObject<kxCircleArc_c>(inserted(arc("33.3", "271.7"), {}));
    ASSERT_TRUE(object);
    expectSame(centerOf(*object), {1, 0, 0});
    EXPECT_EQ(endParams(*object).first, 33.3 * (kPi / 180));
    EXPECT_EQ(endParams(*object).second, 271.7 * (kPi / 180));
}

TEST(BlockExpander, The_base_point_comes_to_lie_on_the_insertion_point) {
    const Drawing drawing = readGood(drawingOf(block("B", line("5", "7", "6", "7"), "5", "7"),
                                               insert("b", "1", "2", {{50, "90"}, {41, "2"}})));
    const auto object = onlyObject<kxLine_c>(drawing);
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {1, 2, 0});
    expectSame(secondPoint(*object), {1, 4, 0});
}

TEST(BlockExpander, Quarter_turns_are_exact) {
    for (const auto& [degrees, wanted] : {std::pair<const char*, kxVector3>{"90", {-2, 1, 0}},
                                          {"180", {-1, -2, 0}},
                                          {"270", {2, -1, 0}},
                                          {"-90", {2, -1, 0}},
                                          {"450", {-2, 1, 0}}}) {
        const auto object =
            onlyObject<kxLine_c>(inserted(line("1", "2", "0", "0"), {{50, degrees}}));
        ASSERT_TRUE(object);
        expectSame(firstPoint(*object), wanted);
    }
}

TEST(BlockExpander, Height_follows_the_Z_scale_and_position) {
    const auto object = onlyObject<kxPoint_c>(
        inserted(groups({{0, "POINT"}, {10, "0"}, {20, "0"}, {30, "2"}}), {{30, "1"}, {43, "3"}}));
    ASSERT_TRUE(object);
    kxVector3 p;
    object->GetPosition(&p.x, &p.y, &p.z);
    EXPECT_EQ(p.z, 7);
}

TEST(BlockExpander, Circles_stay_circles_under_equal_scales) {
    for (const auto& [x, y] :
         {std::pair<const char*, const char*>{"3", "3"}, {"-3", "3"}, {"3", "-3"}, {"-3", "-3"}}) {
        const auto object = onlyObject<kxCircle_c>(
            inserted(circle("1", "2", "0.5"), {{41, x}, {42, y}, {50, "90"}}));
        ASSERT_TRUE(object);
        double radius = 0;
        object->get_Radius(&radius);
        EXPECT_EQ(radius, 1.5);
        expectSame(centerOf(*object), {-2 * std::stod(y), std::stod(x), 0});
    }
}

TEST(BlockExpander, Arcs_under_equal_scales_run_through_the_images_of_their_ends) {
    for (const char* const x : {"2", "-2"}) {
        for (const char* const turn : {"0", "90", "17"}) {
            const auto object = onlyObject<kxCircleArc_c>(
                inserted(arc("350", "40"), {{41, x}, {42, "2"}, {50, turn}}));
            ASSERT_TRUE(object);
            const Affine map =
                Affine::rotationDeg(std::stod(turn)) * Affine::scaling({std::stod(x), 2, 1});
            const auto image = [&](double degrees) {
                return map.point({1 + 2 * std::cos(degrees * kRadPerDeg),
                                  2 * std::sin(degrees * kRadPerDeg), 0});
            };
            const auto [start, end] = endParams(*object);
            EXPECT_NEAR(end - start, 50 * kRadPerDeg, 1e-12);
            const bool mirrored = map.mirrors();
            expectNear(pointAt(*object, start), image(mirrored ? 40 : 350));
            expectNear(pointAt(*object, end), image(mirrored ? 350 : 40));
        }
    }
}

TEST(BlockExpander, A_mirrored_insert_of_a_mirrored_arc_is_the_plain_arc) {
    const std::string content = groups({{0, "ARC"},
                                        {8, "0"},
                                        {10, "-1"},
                                        {20, "0"},
                                        {40, "2"},
                                        {50, "90"},
                                        {51, "180"},
                                        {230, "-1"}});
    const auto object = onlyObject<kxCircleArc_c>(inserted(content, {{230, "-1"}}));
    ASSERT_TRUE(object);
    expectSame(centerOf(*object), {-1, 0, 0});
    EXPECT_NEAR(endParams(*object).first, kPi / 2, 1e-15);
    EXPECT_NEAR(endParams(*object).second, kPi, 1e-15);
}

TEST(BlockExpander, An_insert_with_extrusion_down_is_mirrored_with_its_position) {
    const auto object = onlyObject<kxLine_c>(
        inserted(line("1", "2", "3", "4"), {{230, "-1"}, {30, "5"}}, "10", "20"));
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {-11, 22, -5});
    expectSame(secondPoint(*object), {-13, 24, -5});
}

TEST(BlockExpander, Circles_and_arcs_become_ellipses_under_unequal_scales) {
    const Drawing drawing = inserted(circle("1", "2", "2"), {{41, "3"}, {42, "-1"}});
    const auto full = onlyObject<kxEllipseArc_c>(drawing);
    ASSERT_TRUE(full);
    expectSame(centerOf(*full), {3, -2, 0});
    EXPECT_EQ(endParams(*full), std::make_pair(0.0, kTwoPi));
    kxVector3 major;
    full->GetMajorAxis(&major.x, &major.y, &major.z);
    expectNear(major, {6, 0, 0});
    EXPECT_EQ(drawing.report.rowsInBlocks().front().outcome, ImportOutcome::Converted);

    const auto part =
        onlyObject<kxEllipseArc_c>(inserted(arc("350", "40"), {{41, "-1"}, {42, "3"}, {50, "17"}}));
    ASSERT_TRUE(part);
    const Affine map = Affine::rotationDeg(17) * Affine::scaling({-1, 3, 1});
    const auto [start, end] = endParams(*part);
    for (int i = 0; i <= 8; ++i) {
        const double t = (40 - 50 * i / 8.0) * kRadPerDeg;
        const kxVector3 wanted = map.point({1 + 2 * std::cos(t), 2 * std::sin(t), 0});
        // Equal steps of the arc's angle are equal steps of the ellipse's parameter.
        expectNear(pointAt(*part, start + (end - start) * i / 8), wanted);
    }
}

TEST(BlockExpander, A_polyline_with_bulges_becomes_lines_and_ellipse_arcs_under_unequal_scales) {
    const Drawing drawing = inserted(bulgedPolyline(), {{41, "2"}});
    ASSERT_EQ(drawing.objects.size(), 2U);
    const auto part = kxCast<kxEllipseArc_c>(drawing.objects[0].get());
    ASSERT_TRUE(part);
    const auto [start, end] = endParams(*part);
    expectNear(pointAt(*part, start), {0, 0, 0});
    expectNear(pointAt(*part, (start + end) / 2), {2, -1, 0});
    expectNear(pointAt(*part, end), {4, 0, 0});
    expectSame(secondPoint(*kxCast<kxLine_c>(drawing.objects[1].get())), {4, 3, 0});
}

TEST(BlockExpander, A_polyline_turns_its_bulges_under_a_mirror) {
    const auto object = onlyObject<kxPolyLine_c>(inserted(bulgedPolyline(), {{41, "-1"}}));
    ASSERT_TRUE(object);
    double bulge = 0;
    object->GetBulge(0, &bulge);
    EXPECT_EQ(bulge, -1);
}

TEST(BlockExpander, Splines_and_notes_follow) {
    const std::string content = groups({{0, "SPLINE"},
                                        {71, "1"},
                                        {40, "0"},
                                        {40, "0"},
                                        {40, "1"},
                                        {40, "1"},
                                        {10, "1"},
                                        {20, "1"},
                                        {10, "2"},
                                        {20, "3"}}) +
                                groups({{0, "TEXT"}, {10, "1"}, {20, "1"}, {40, "2"}, {1, "t"}});
    const Drawing drawing = inserted(content, {{41, "2"}, {42, "2"}, {50, "90"}});
    ASSERT_EQ(drawing.objects.size(), 2U);
    expectNear(pointAt(*kxCast<kxSpline_c>(drawing.objects[0].get()), 1), {-6, 4, 0});
    const auto note = kxCast<kxSimpleNote_c>(drawing.objects[1].get());
    EXPECT_EQ(note->GetHeight(), 4);
    EXPECT_DOUBLE_EQ(note->GetRotation(), kPi / 2);
}

TEST(BlockExpander, Rows_and_columns_are_turned_but_not_scaled) {
    const Drawing drawing =
        inserted(line("1", "0", "2", "0"),
                 {{70, "3"}, {71, "2"}, {44, "10"}, {45, "100"}, {41, "2"}, {42, "2"}, {50, "90"}},
                 "5", "6");
    ASSERT_EQ(drawing.objects.size(), 6U);
    const double wanted[][2] = {{5, 8}, {5, 18}, {5, 28}, {-95, 8}, {-95, 18}, {-95, 28}};
    for (std::size_t i = 0; i < 6; ++i) {
        expectSame(firstPoint(*kxCast<kxLine_c>(drawing.objects[i].get())),
                   {wanted[i][0], wanted[i][1], 0});
    }
    EXPECT_EQ(drawing.report.rows().front().objects, 6);
}

TEST(BlockExpander, Nested_inserts_multiply) {
    const std::string blocks = block("INNER", line("1", "0", "2", "0"), "1", "0") +
                               block("OUTER", insert("INNER", "10", "0", {{50, "90"}}), "0", "0");
    const auto object = onlyObject<kxLine_c>(
        readGood(drawingOf(blocks, insert("OUTER", "100", "0", {{41, "-1"}}))));
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {90, 0, 0});
    expectSame(secondPoint(*object), {90, 1, 0});
}

TEST(BlockExpander, Layer_0_inside_of_blocks_is_the_layer_of_the_insert) {
    const std::string inner =
        block("INNER", line("0", "0", "1", "0") + line("0", "0", "1", "0", "OWN"));
    const std::string outer =
        block("OUTER", insert("INNER", "0", "0") + insert("INNER", "0", "0", {}, "MIDDLE"));
    const Drawing drawing =
        readGood(drawingOf(inner + outer, insert("OUTER", "0", "0", {}, "TOP")));
    std::vector<std::string> layers;
    for (const kxObject_ptr& object : drawing.objects) {
        layers.push_back(object->GetLayer().toUtf8());
    }
    EXPECT_EQ(layers, (std::vector<std::string>{"TOP", "OWN", "MIDDLE", "OWN"}));
}

TEST(BlockExpander, An_insert_on_a_frozen_layer_hides_all_one_on_a_layer_that_is_off_only_its_own) {
    TestDxf dxf;
    dxf.tables = groups({{0, "TABLE"}, {2, "LAYER"}}) + layer("FROZEN", 1, 7) +
                 layer("OFF", 0, -7) + groups({{0, "ENDTAB"}});
    dxf.blocks = block("B", line("0", "0", "1", "0") + line("0", "0", "1", "0", "OWN")) +
                 block("NEST", insert("B", "0", "0", {}, "frozen"));
    dxf.entities = insert("B", "0", "0", {}, "FROZEN") + insert("B", "0", "0", {}, "OFF") +
                   insert("NEST", "0", "0", {}, "SEEN");
    std::vector<std::string> layers;
    for (const kxObject_ptr& object : readGood(dxf.text()).objects) {
        layers.push_back(object->GetLayer().toUtf8());
    }
    EXPECT_EQ(layers,
              (std::vector<std::string>{"FROZEN", "FROZEN", "OFF", "OWN", "FROZEN", "FROZEN"}));
}

TEST(BlockExpander, A_block_that_inserts_itself_is_drawn_once) {
    const Drawing drawing = readGood(drawingOf(
        block("A", line("0", "0", "1", "0") + insert("A", "1", "1")), insert("A", "0", "0")));
    EXPECT_EQ(drawing.objects.size(), 1U);
    EXPECT_EQ(drawing.report.rowsInBlocks().front().detail, "the block refers to itself");
    const Drawing round =
        readGood(drawingOf(block("A", insert("B", "0", "0")) + block("B", insert("A", "0", "0")),
                           insert("A", "0", "0")));
    EXPECT_EQ(onlyReason(round), "nothing usable in the block");
    EXPECT_EQ(round.report.rowsInBlocks().front().detail, "the block refers to itself");
}

TEST(BlockExpander, Missing_and_empty_blocks_and_scales_of_0_are_left_out) {
    EXPECT_EQ(onlyReason(readGood(drawingOf("", insert("NONE", "0", "0")))),
              "the block is missing");
    EXPECT_EQ(onlyReason(readGood(drawingOf(block("B", ""), insert("B", "0", "0")))),
              "the block is empty");
    EXPECT_EQ(onlyReason(inserted(line("0", "0", "1", "0"), {{42, "0"}})), "a scale of 0");
}

TEST(BlockExpander, Coordinates_that_grow_beyond_all_measure_are_left_out) {
    const Drawing drawing = inserted(line("0", "0", "1e9", "0"), {{41, "1e9"}});
    EXPECT_EQ(onlyReason(drawing), "nothing usable in the block");
    EXPECT_EQ(drawing.report.rowsInBlocks().front().detail, "coordinates out of range");
}

std::string chain(int length, int copies) {
    std::string blocks = block("N0", line("0", "0", "1", "0"));
    for (int i = 1; i <= length; ++i) {
        std::string content;
        for (int copy = 0; copy < copies; ++copy) {
            content += insert("N" + std::to_string(i - 1), "1", "0");
        }
        blocks += block("N" + std::to_string(i), content);
    }
    return blocks;
}

TEST(BlockExpander, Nesting_ends_at_32) {
    EXPECT_EQ(readGood(drawingOf(chain(31, 1), insert("N31", "0", "0"))).objects.size(), 1U);
    const Drawing drawing = readGood(drawingOf(chain(32, 1), insert("N32", "0", "0")));
    EXPECT_TRUE(drawing.objects.empty());
    EXPECT_EQ(drawing.report.rowsInBlocks().front().detail, "blocks nested more than 32 deep");
}

TEST(BlockExpander, Inserts_that_give_too_many_objects_are_left_out_whole) {
    ReadOptions options;
    options.limits.objects = 1000;
    const std::string many =
        insert("N9", "0", "0") + insert("N10", "0", "0") + insert("N1", "0", "0");
    const Drawing drawing = readGood(drawingOf(chain(10, 2), many), options);
    EXPECT_EQ(drawing.objects.size(), 512U + 2U);
    EXPECT_EQ(drawing.report.totals().converted, 2);
    EXPECT_EQ(drawing.report.rows().back().detail, "gives more than 1000 objects");
}

TEST(BlockExpander, Doubling_without_end_and_huge_arrays_stop_in_time) {
    ReadOptions options;
    options.limits.objects = 10000;
    EXPECT_EQ(onlyReason(readGood(drawingOf(chain(31, 4), insert("N31", "0", "0")), options)),
              "gives more than 10000 objects");
    const std::string array =
        insert("N", "0", "0", {{70, "32767"}, {71, "32767"}, {44, "1"}, {45, "1"}});
    EXPECT_EQ(onlyReason(readGood(drawingOf(block("N", line("0", "0", "1", "0")), array), options)),
              "gives more than 10000 objects");
    // Nothing but inserts: no object ever counts.
    std::string blocks = block("N0", "");
    for (int i = 1; i < 32; ++i) {
        const std::string below = "N" + std::to_string(i - 1);
        blocks += block("N" + std::to_string(i), insert(below, "0", "0") + insert(below, "0", "0"));
    }
    EXPECT_EQ(onlyReason(readGood(drawingOf(blocks, insert("N31", "0", "0")), options)),
              "the inserts take too many steps");
}

}  // namespace
}  // namespace kxdrawing
