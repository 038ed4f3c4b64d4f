// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <cmath>
#include <random>

#include "TestDxf.h"
#include "drawing/Affine.h"
#include "drawing/Angles.h"
#include "drawing/Biarc.h"
#include "drawing/Bulge.h"
#include "drawing/Ellipse.h"
#include "drawing/ShapeTransform.h"
#include "drawing/SplineFit.h"

namespace kxdrawing {
namespace {

kxVector3 ellipsePoint(const kxEllipseArcData& e, double t) {
    return {e.center.x + std::cos(t) * e.majorAxis.x + std::sin(t) * e.minorAxis.x,
            e.center.y + std::cos(t) * e.majorAxis.y + std::sin(t) * e.minorAxis.y, e.center.z};
}

TEST(Bulge, A_half_circle_has_its_centre_in_the_middle_of_the_chord) {
    const auto arc = bulgeArc({{1, 0, 5}, {3, 0, 5}, 1});
    ASSERT_TRUE(arc);
    expectSame(arc->center, {2, 0, 5});
    EXPECT_EQ(arc->radius, 1);
    EXPECT_EQ(arc->startParameter, kPi);
    EXPECT_EQ(arc->endParameter, kTwoPi);
}

TEST(Bulge, A_negative_bulge_is_the_same_arc_from_the_other_end) {
    const auto arc = bulgeArc({{0, 0, 0}, {1, 1, 0}, -std::tan(kPi / 8)});
    ASSERT_TRUE(arc);
    expectNear(arc->center, {1, 0, 0});
    EXPECT_NEAR(arc->startParameter, kPi / 2, 1e-12);
    EXPECT_NEAR(arc->endParameter, kPi, 1e-12);
    expectSame(*arc->exactStart, {1, 1, 0});
    expectSame(*arc->exactEnd, {0, 0, 0});
}

TEST(Bulge, A_three_quarter_circle_has_a_bulge_above_1) {
    const auto arc = bulgeArc({{1, 0, 0}, {0, -1, 0}, std::tan(3 * kPi / 8)});
    ASSERT_TRUE(arc);
    expectNear(arc->center, {0, 0, 0});
    EXPECT_NEAR(arc->endParameter - arc->startParameter, 1.5 * kPi, 1e-12);
}

TEST(Bulge, Straight_segments_have_no_arc) {
    EXPECT_FALSE(bulgeArc({{0, 0, 0}, {1, 0, 0}, 0}));
    EXPECT_FALSE(bulgeArc({{1, 0, 0}, {1, 0, 0}, 1}));
    EXPECT_FALSE(bulgeArc({{0, 0, 0}, {1, 0, 0}, 1e-11}));
}

TEST(Ellipse, Any_conjugate_half_diameters_give_the_same_curve_with_principal_axes) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> number(-5, 5);
    for (int round = 0; round < 2000; ++round) {
        kxEllipseArcData data{{number(random), number(random), 1},
                              {number(random), number(random), 0},
                              {number(random), number(random), 0},
                              number(random),
                              0};
        data.endParameter = data.startParameter + 0.1 + std::abs(number(random));
        const double cross =
            data.majorAxis.x * data.minorAxis.y - data.majorAxis.y * data.minorAxis.x;
        if (std::abs(cross) < 1e-3) {
            continue;
        }
        const kxEllipseArcData image = principalForm(data);
        const kxVector3& a = image.majorAxis;
        const kxVector3& b = image.minorAxis;
        EXPECT_NEAR(a.x * b.x + a.y * b.y, 0, 1e-9);
        EXPECT_GE(std::hypot(a.x, a.y), std::hypot(b.x, b.y) * (1 - 1e-9));
        EXPECT_GT(a.x * b.y - a.y * b.x, 0);
        for (int i = 0; i <= 4; ++i) {
            const double s = cross > 0 ? i / 4.0 : 1 - i / 4.0;
            expectNear(ellipsePoint(image, image.startParameter +
                                               (image.endParameter - image.startParameter) * i / 4),
                       ellipsePoint(data, data.startParameter +
                                              (data.endParameter - data.startParameter) * s));
        }
    }
}

TEST(Ellipse, A_principal_form_is_not_disturbed) {
    const kxEllipseArcData data{{1, 2, 0}, {4, 3, 0}, {-1.5, 2, 0}, 7, 8};
    const kxEllipseArcData image = principalForm(data);
    expectSame(image.majorAxis, data.majorAxis);
    expectSame(image.minorAxis, data.minorAxis);
    EXPECT_EQ(image.startParameter, 7);
}

TEST(Affine, Similarities_are_told_from_uneven_scales) {
    EXPECT_TRUE(Affine().isSimilarity());
    EXPECT_TRUE((Affine::rotationDeg(31) * Affine::scaling({-2, 2, 9})).isSimilarity());
    EXPECT_FALSE(Affine::scaling({2, 2.001, 1}).isSimilarity());
    EXPECT_FALSE((Affine::scaling({2, 1, 1}) * Affine::rotationDeg(45)).isSimilarity());
    EXPECT_TRUE(Affine::scaling({-2, 2, 9}).mirrors());
    EXPECT_FALSE(Affine::scaling({-2, -2, 9}).mirrors());
}

TEST(Angles, A_span_is_brought_within_one_turn_only_when_it_has_to) {
    EXPECT_EQ(withinOneTurn({10, 350}, 360).end, 350);
    EXPECT_EQ(withinOneTurn({350, 10}, 360).end, 370);
    EXPECT_EQ(withinOneTurn({0, 360}, 360).end, 360);
    EXPECT_EQ(withinOneTurn({0, 800}, 360).end, 80);
    EXPECT_EQ(withinOneTurn({0, -800}, 360).end, 280);
    EXPECT_EQ(withinOneTurn({90, 90}, 360).end, 450);
    EXPECT_EQ(withinOneTurn({0, 720}, 360).end, 360);
    EXPECT_EQ(withinOneTurn({0, -360}, 360).end, 360);
}

TEST(Angles, A_span_that_is_turned_does_not_become_a_full_turn_by_rounding) {
    EXPECT_EQ(turnedBy({1, 2}, 0.5).start, 1.5);
    EXPECT_EQ(turnedBy({1, 2}, 0.5).end, 2.5);
    const AngleSpan turned = turnedBy({0, 1e-38}, 3);
    EXPECT_EQ(turned.start, 3);
    EXPECT_EQ(turned.end, std::nextafter(3.0, 4.0));
    // What has equal ends before is a full turn.
    EXPECT_EQ(turnedBy({1, 1}, 3).end, 4);
}

double sweepOf(const Shape& shape) {
    if (const auto* arc = std::get_if<kxCircleArcData>(&shape)) {
        return arc->endParameter - arc->startParameter;
    }
    const auto& ellipse = std::get<kxEllipseArcData>(shape);
    return ellipse.endParameter - ellipse.startParameter;
}

TEST(ShapeTransform, An_arc_shorter_than_rounding_does_not_become_a_full_turn) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> number(0.1, 3);
    for (int round = 0; round < 300; ++round) {
        const double sign = round % 2 == 0 ? 1 : -1;
        const Affine map = Affine::rotationDeg(100 * number(random)) *
                           Affine::scaling({sign * 2, round % 3 == 0 ? 2 : number(random), 1});
        const double start = round % 5 == 0 ? 0 : number(random);
        const double end = round % 5 == 0 ? 1e-38 : std::nextafter(start, 4);
        const Shape arc = kxCircleArcData{{1, 2, 0}, 5, start, end, {}, {}};
        const Shape part = principalForm({{1, 2, 0}, {4, 3, 0}, {-1.5, 2, 0}, start, end});
        for (const Shape& shape : {arc, part}) {
            std::vector<Shape> images;
            transformShape(shape, map, &images);
            ASSERT_EQ(images.size(), 1U);
            EXPECT_GT(sweepOf(images.front()), 0) << round;
            EXPECT_LT(sweepOf(images.front()), 1e-9) << round;
        }
    }
}

TEST(Biarc, Both_arcs_share_a_tangent_and_have_those_of_the_ends) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> angle(-1.2, 1.2);
    for (int round = 0; round < 1000; ++round) {
        const double a = angle(random);
        const double b = angle(random);
        const auto arcs = biarc({{0, 0, 1}, {std::cos(a), std::sin(a)}},
                                {{10, 0, 1}, {std::cos(b), std::sin(b)}});
        ASSERT_TRUE(arcs);
        // The chord's direction is half a sweep from either end's tangent.
        double direction = a;
        for (const BulgeSegment& part : *arcs) {
            const double half = 2 * std::atan(part.bulge);
            const double chord =
                std::atan2(part.second.y - part.first.y, part.second.x - part.first.x);
            EXPECT_NEAR(std::remainder(chord - direction - half, kTwoPi), 0, 1e-9);
            direction += 2 * half;
        }
        EXPECT_NEAR(std::remainder(direction - b, kTwoPi), 0, 1e-9);
        expectSame((*arcs)[1].second, {10, 0, 1});
    }
}

TEST(Biarc, Ends_that_point_back_have_none) {
    EXPECT_FALSE(biarc({{0, 0, 0}, {-1, 0}}, {{10, 0, 0}, {-1, 0}}));
    EXPECT_FALSE(biarc({{0, 0, 0}, {1, 0}}, {{0, 0, 0}, {1, 0}}));
}

TEST(SplineFit, The_spline_passes_its_points_smoothly_with_straight_ends) {
    const std::vector<kxVector3> points = {
        {0, 0, 0}, {3, 4, 1}, {3, 10, 2}, {-5, 10, 0}, {1, 1, 1}};
    const auto data = splineThrough(points, false);
    ASSERT_TRUE(data);
    const kxSpline_ptr spline = kxCreateSpline("0", *data);
    ASSERT_TRUE(spline);
    double t = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        t += i > 0 ? distance(points[i - 1], points[i]) : 0;
        expectNear(pointAt(*spline, t), points[i]);
    }
    const auto second = [&](double at, double h) {
        const kxVector3 a = pointAt(*spline, at);
        const kxVector3 b = pointAt(*spline, at + h);
        const kxVector3 c = pointAt(*spline, at + 2 * h);
        return kxVector3{(a.x - 2 * b.x + c.x) / (h * h), (a.y - 2 * b.y + c.y) / (h * h),
                         (a.z - 2 * b.z + c.z) / (h * h)};
    };
    const double knot = distance(points[0], points[1]);
    expectNear(second(knot, 1e-3), second(knot, -1e-3), 1e-2);
    expectNear(second(0, 1e-3), {0, 0, 0}, 1e-2);
    expectNear(second(t, -1e-3), {0, 0, 0}, 1e-2);
}

TEST(SplineFit, Equal_neighbours_count_once_and_one_point_is_none) {
    EXPECT_EQ(splineThrough({{0, 0, 0}, {0, 0, 0}, {1, 0, 0}}, false)->controlPoints.size(), 4U);
    EXPECT_FALSE(splineThrough({{1, 1, 0}, {1, 1, 0}}, true));
    EXPECT_FALSE(splineThrough({}, true));
}

TEST(SplineFit, A_closed_one_returns_to_its_first_point) {
    const auto data = splineThrough({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, true);
    ASSERT_TRUE(data);
    expectSame(data->controlPoints.back(), {0, 0, 0});
}

}  // namespace
}  // namespace kxdrawing
