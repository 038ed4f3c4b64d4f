// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Explode.h"

#include <cmath>
#include <random>

#include <kx/host/kxHostApplication.h>

#include "TestDxf.h"
#include "drawing/Angles.h"
#include "drawing/Bulge.h"
#include "drawing/SplineFit.h"

namespace kxdrawing {
namespace {

using Objects = std::vector<kxObject_ptr>;

Objects exploded(kxObject& object, double tolerance = kDefaultTolerance) {
    const auto pieces = explodeObject(object, tolerance);
    EXPECT_TRUE(pieces);
    return pieces.value_or(Objects{});
}

double distanceToPiece(const kxVector3& p, kxObject& piece) {
    const auto [a, b] = endsOf(piece);
    if (const auto arc = kxCast<kxCircleArc_c>(&piece)) {
        const auto [start, end] = endParams(*arc);
        const kxVector3 center = centerOf(*arc);
        double turn = std::fmod(std::atan2(p.y - center.y, p.x - center.x) - start, kTwoPi);
        turn += turn < 0 ? kTwoPi : 0;
        double radius = 0;
        arc->get_Radius(&radius);
        if (turn <= end - start) {
            return std::abs(std::hypot(p.x - center.x, p.y - center.y) - radius);
        }
        return std::min(distance(p, a), distance(p, b));
    }
    const double length2 = distance(a, b) * distance(a, b);
    const double dot =
        (p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y) + (p.z - a.z) * (b.z - a.z);
    const double s = std::min(1.0, std::max(0.0, dot / length2));
    return distance(p, {a.x + s * (b.x - a.x), a.y + s * (b.y - a.y), a.z + s * (b.z - a.z)});
}

kxVector3 pieceAt(kxObject& piece, double s) {
    if (const auto arc = kxCast<kxCircleArc_c>(&piece)) {
        const auto [start, end] = endParams(*arc);
        return pointAt(*arc, start + s * (end - start));
    }
    const auto [a, b] = endsOf(piece);
    return {a.x + s * (b.x - a.x), a.y + s * (b.y - a.y), a.z + s * (b.z - a.z)};
}

bool same(const kxVector3& a, const kxVector3& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// Walks the pieces from the first point on; returns where they lead. Arcs may run backwards.
kxVector3 walk(const Objects& pieces, kxVector3 at) {
    for (const kxObject_ptr& piece : pieces) {
        const auto [a, b] = endsOf(*piece);
        EXPECT_TRUE(same(a, at) || same(b, at));
        at = same(a, at) ? b : a;
    }
    return at;
}

template <class T>
void expectWithin(const T& curve, const Objects& pieces, double tolerance) {
    const auto [start, end] = endParams(curve);
    constexpr int kCurveSamples = 4000;
    std::vector<kxVector3> points;
    for (int i = 0; i <= kCurveSamples; ++i) {
        points.push_back(pointAt(curve, start + (end - start) * i / kCurveSamples));
    }
    double worst = 0;
    double spacing = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        double nearest = HUGE_VAL;
        for (const kxObject_ptr& piece : pieces) {
            nearest = std::min(nearest, distanceToPiece(points[i], *piece));
        }
        worst = std::max(worst, nearest);
        spacing = std::max(spacing, i > 0 ? distance(points[i - 1], points[i]) : 0);
    }
    EXPECT_LE(worst, tolerance);
    for (const kxObject_ptr& piece : pieces) {
        for (int s = 0; s <= 10; ++s) {
            const kxVector3 p = pieceAt(*piece, s / 10.0);
            double nearest = HUGE_VAL;
            for (const kxVector3& q : points) {
                nearest = std::min(nearest, distance(p, q));
            }
            // The nearest point of the curve is at most half a step from a sample.
            EXPECT_LE(nearest, std::hypot(tolerance, spacing / 2));
        }
    }
}

TEST(Explode, A_polyline_gives_lines_and_arcs_that_meet_in_its_vertices_bit_for_bit) {
    const auto polyline = kxCreatePolyLine(
        "L",
        {{{{0.1, 0.2, 3}, 0}, {{4.3, 0.7, 3}, 0.4}, {{5.1, 6.7, 3}, -1.7}, {{0, 3, 3}, 0}}, true});
    const Objects pieces = exploded(*polyline);
    ASSERT_EQ(pieces.size(), 4U);
    EXPECT_EQ(pieces[0]->GetType(), kxLineType);
    EXPECT_EQ(pieces[1]->GetType(), kxCircleArcType);
    EXPECT_EQ(pieces[2]->GetType(), kxCircleArcType);
    EXPECT_EQ(pieces[3]->GetType(), kxLineType);
    expectSame(walk(pieces, {0.1, 0.2, 3}), {0.1, 0.2, 3});
    expectSame(endsOf(*pieces[1]).first, {4.3, 0.7, 3});
    // Clockwise from (5.1, 6.7) to (0, 3): counter-clockwise the ends swap.
    expectSame(endsOf(*pieces[2]).first, {0, 3, 3});
    expectSame(endsOf(*pieces[2]).second, {5.1, 6.7, 3});
    for (const kxObject_ptr& piece : pieces) {
        EXPECT_EQ(piece->GetLayer(), kxString("L"));
    }
}

TEST(Explode, Two_half_circles_stay_two_arcs) {
    const auto polyline = kxCreatePolyLine("0", {{{{0, 0, 0}, 1}, {{2, 0, 0}, 1}}, true});
    const Objects pieces = exploded(*polyline);
    ASSERT_EQ(pieces.size(), 2U);
    for (const kxObject_ptr& piece : pieces) {
        const auto arc = kxCast<kxCircleArc_c>(piece.get());
        ASSERT_TRUE(arc);
        expectSame(centerOf(*arc), {1, 0, 0});
        const auto [start, end] = endParams(*arc);
        EXPECT_NEAR(end - start, kPi, 1e-15);
    }
}

TEST(Explode, An_open_polyline_does_not_close) {
    const auto polyline =
        kxCreatePolyLine("0", {{{{0, 0, 0}, 0}, {{2, 0, 0}, 0}, {{2, 2, 0}, 1}}, false});
    EXPECT_EQ(exploded(*polyline).size(), 2U);
}

TEST(Explode, Hardly_bent_segments_are_lines) {
    const auto polyline = kxCreatePolyLine(
        "0",
        {{{{0, 0, 0}, 1e-7}, {{2, 0, 0}, 1e-3}, {{2, 0.01, 0}, 1e-12}, {{2, 9, 0}, 0}}, false});
    const Objects pieces = exploded(*polyline);
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(pieces[0]->GetType(), kxLineType);
    EXPECT_EQ(pieces[1]->GetType(), kxLineType);
    EXPECT_EQ(pieces[2]->GetType(), kxLineType);
}

TEST(Explode, Huge_arcs_stay_arcs_where_a_line_would_be_far_off) {
    const auto polyline = kxCreatePolyLine("0", {{{{0, 0, 0}, 1e-3}, {{2e7, 0, 0}, 0}}, false});
    EXPECT_EQ(exploded(*polyline).front()->GetType(), kxCircleArcType);
    const auto ellipse = kxCreateEllipseArc("0", {{0, 0, 0}, {3e9, 0, 0}, {0, 1e9, 0}, 0, kTwoPi});
    EXPECT_LE(exploded(*ellipse).size(), 5000U);
}

TEST(Explode, A_small_fillet_stays_an_arc) {
    const auto polyline =
        kxCreatePolyLine("0", {{{{0, 0, 0}, 0.4}, {{0.005, 0.005, 0}, 0}}, false});
    EXPECT_EQ(exploded(*polyline).front()->GetType(), kxCircleArcType);
}

TEST(Explode, Other_kinds_and_polylines_without_length_are_not_exploded) {
    EXPECT_FALSE(explodeObject(*kxCreateLine("0", {0, 0, 0}, {1, 0, 0})));
    EXPECT_FALSE(explodeObject(*kxCreateCircle("0", {0, 0, 0}, 1)));
    EXPECT_FALSE(explodeObject(*kxCreatePoint("0", {0, 0, 0})));
    EXPECT_FALSE(explodeObject(*kxCreatePolyLine("0", {{{{1, 1, 0}, 0}, {{1, 1, 0}, 1}}, true})));
}

TEST(Explode, A_round_ellipse_is_a_circle_or_an_arc) {
    const auto full = kxCreateEllipseArc("L", {{1, 2, 3}, {3, 4, 0}, {-4, 3, 0}, 0, kTwoPi});
    const Objects circle = exploded(*full);
    ASSERT_EQ(circle.size(), 1U);
    EXPECT_EQ(circle.front()->GetType(), kxCircleType);
    const auto part = kxCreateEllipseArc("L", {{1, 2, 3}, {3, 4, 0}, {-4, 3, 0}, 1, 2});
    const Objects arc = exploded(*part);
    ASSERT_EQ(arc.size(), 1U);
    EXPECT_EQ(arc.front()->GetType(), kxCircleArcType);
    expectSame(endsOf(*arc.front()).first, pointAt(*part, 1));
    expectSame(endsOf(*arc.front()).second, pointAt(*part, 2));
    expectNear(pieceAt(*arc.front(), 0.5), pointAt(*part, 1.5));
}

TEST(Explode, Random_ellipses_are_met_within_the_tolerance_by_few_joined_arcs) {
    std::mt19937 random(17);
    std::uniform_real_distribution<double> unit(0, 1);
    for (int round = 0; round < 40; ++round) {
        const double size = std::pow(10, 3 * unit(random) - 1);
        const double turn = kTwoPi * unit(random);
        const double ratio = std::pow(10, -2.5 * unit(random));
        const double start = round % 4 == 0 ? 0 : kTwoPi * unit(random);
        const double sweep = round % 4 == 0 ? kTwoPi : 0.05 + 6 * unit(random);
        const kxVector3 major{size * std::cos(turn), size * std::sin(turn), 0};
        const auto ellipse = kxCreateEllipseArc("L", {{100 * unit(random), -50 * unit(random), 2},
                                                      major,
                                                      {-ratio * major.y, ratio * major.x, 0},
                                                      start,
                                                      start + sweep});
        for (const double tolerance : {0.01, 0.0005}) {
            const Objects pieces = exploded(*ellipse, tolerance);
            expectWithin(*ellipse, pieces, tolerance);
            const kxVector3 first = pointAt(*ellipse, start);
            const kxVector3 last = round % 4 == 0 ? first : pointAt(*ellipse, start + sweep);
            expectSame(walk(pieces, first), last);
            EXPECT_LE(pieces.size(), 30 + 30 * std::cbrt(size / tolerance) / 4)
                << "size " << size << " ratio " << ratio << " tolerance " << tolerance;
        }
    }
}

kxSpline_ptr randomSpline(std::mt19937* random, int degree, int count, bool rational) {
    std::uniform_real_distribution<double> unit(0, 1);
    kxSplineData data;
    data.degree = degree;
    const std::size_t order = static_cast<std::size_t>(degree) + 1;
    data.knots.assign(order, 0);
    double knot = 0;
    for (int i = degree + 1; i < count; ++i) {
        // Now and then a knot is repeated: the curve may have a corner there.
        knot += unit(*random) < 0.2 ? 0 : 0.1 + unit(*random);
        data.knots.push_back(knot);
    }
    data.knots.insert(data.knots.end(), order, knot + 1);
    for (int i = 0; i < count; ++i) {
        data.controlPoints.push_back({20 * unit(*random), 20 * unit(*random), 1});
        if (rational) {
            data.weights.push_back(0.2 + 3 * unit(*random));
        }
    }
    return kxCreateSpline("L", data);
}

TEST(Explode, Random_splines_are_met_within_the_tolerance_by_few_joined_arcs) {
    std::mt19937 random(23);
    for (int round = 0; round < 60; ++round) {
        const int degree = 1 + round % 4;
        const int count = degree + 1 + round % 7;
        const kxSpline_ptr spline = randomSpline(&random, degree, count, round % 2 == 1);
        ASSERT_TRUE(spline);
        const Objects pieces = exploded(*spline, 0.01);
        expectWithin(*spline, pieces, 0.01);
        const auto [start, end] = endParams(*spline);
        const kxVector3 last = walk(pieces, pointAt(*spline, start));
        expectSame(last, pointAt(*spline, end));
        EXPECT_LE(pieces.size(), static_cast<std::size_t>(count) * 24) << round;
    }
}

TEST(Explode, Neighbouring_arcs_of_a_smooth_spline_share_their_tangent) {
    const auto spline =
        kxCreateSpline("0", {3,
                             {0, 0, 0, 0, 1, 2, 2, 2, 2},
                             {{0, 0, 0}, {5, 9, 0}, {10, -4, 0}, {14, 8, 0}, {20, 0, 0}},
                             {}});
    const Objects pieces = exploded(*spline, 0.001);
    ASSERT_GT(pieces.size(), 4U);
    kxVector3 at = pointAt(*spline, 0);
    double before = NAN;
    for (const kxObject_ptr& piece : pieces) {
        const auto arc = kxCast<kxCircleArc_c>(piece.get());
        ASSERT_TRUE(arc);
        const auto [a, b] = endsOf(*piece);
        const auto [start, end] = endParams(*arc);
        const bool forward = same(a, at);
        const double out = forward ? start + kPi / 2 : end - kPi / 2;
        if (!std::isnan(before)) {
            EXPECT_NEAR(std::remainder(out - before, kTwoPi), 0, 1e-6);
        }
        before = forward ? end + kPi / 2 : start - kPi / 2;
        at = forward ? b : a;
    }
}

TEST(Explode, A_straight_spline_gives_one_line_per_span) {
    const auto spline = kxCreateSpline(
        "0", {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {1, 2, 0}, {2, 4, 0}, {3, 6, 0}}, {}});
    const Objects pieces = exploded(*spline);
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(pieces.front()->GetType(), kxLineType);
    expectSame(walk(pieces, {0, 0, 0}), {3, 6, 0});
}

TEST(Explode, Cusps_and_vanishing_derivatives_are_met) {
    // A cusp in the middle of a span; and ends whose control points coincide.
    const auto cusp = kxCreateSpline(
        "0", {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {10, 10, 0}, {0, 10, 0}, {10, 0, 0}}, {}});
    const auto still = kxCreateSpline(
        "0", {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {0, 0, 0}, {9, 9, 0}, {9, 9, 0}}, {}});
    const auto bent = kxCreateSpline(
        "0", {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {0, 0, 0}, {9, 0, 0}, {9, 9, 0}}, {}});
    const auto corner = kxCreateSpline(
        "0",
        {2, {0, 0, 0, 1, 1, 2, 2, 2}, {{0, 0, 0}, {1, 3, 0}, {4, 4, 0}, {7, 3, 0}, {4, 0, 0}}, {}});
    for (const kxSpline_ptr& spline : {cusp, still, bent, corner}) {
        ASSERT_TRUE(spline);
        const Objects pieces = exploded(*spline);
        expectWithin(*spline, pieces, kDefaultTolerance);
        EXPECT_LE(pieces.size(), 60U);
    }
}

TEST(Explode, A_spline_that_turns_back_on_its_own_line_is_met_at_the_turn) {
    // It runs past the second point by 0.0123 before it comes back: between two samples.
    const auto data = splineThrough({{0, -2, 1}, {0, -14, 1}, {0, 0, 1}}, false);
    ASSERT_TRUE(data);
    const auto spline = kxCreateSpline("0", *data);
    expectWithin(*spline, exploded(*spline), kDefaultTolerance);
    // Out of the plane the same.
    const auto slanted = splineThrough({{0, -2, -2}, {0, -14, -14}, {0, 0, 0}}, false);
    ASSERT_TRUE(slanted);
    const auto other = kxCreateSpline("0", *slanted);
    expectWithin(*other, exploded(*other), kDefaultTolerance);
}

TEST(Explode, A_spline_that_runs_a_little_past_the_end_of_a_piece_is_met_at_the_turn) {
    // It turns at -17.407: 0.023 past its middle, where a piece ends, and before the next sample.
    const auto spline =
        kxCreateSpline("0", {3,
                             {0.25, 0.25, 0.25, 0.25, 48.25, 96.25, 96.25, 96.25, 96.25},
                             {{-48, 0, 0}, {-48, 0, 0}, {-48, 0, 0}, {0, 0, 0}, {-48, 0, 0}},
                             {48, 48, 35, 48, 48}});
    expectWithin(*spline, exploded(*spline), kDefaultTolerance);
}

/// Whether no point of a curve is farther from its pieces than the tolerance.
void expectMet(const kxSpline_c& spline, const Objects& pieces) {
    const auto [start, end] = endParams(spline);
    for (int i = 0; i <= 1000; ++i) {
        const kxVector3 p = pointAt(spline, start + (end - start) * i / 1000);
        double nearest = HUGE_VAL;
        for (const kxObject_ptr& piece : pieces) {
            nearest = std::min(nearest, distanceToPiece(p, *piece));
        }
        EXPECT_LE(nearest, kDefaultTolerance);
    }
}

TEST(Explode, Random_splines_along_a_line_or_nearly_are_met_wherever_they_turn) {
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> along(-50, 50);
    std::uniform_real_distribution<double> weight(0.5, 2);
    std::uniform_int_distribution<int> degrees(2, 5);
    for (int round = 0; round < 400; ++round) {
        const double spread = round % 3 == 0 ? 0 : std::pow(10, -round % 7);
        kxSplineData data;
        data.degree = degrees(random);
        const int count = data.degree + 1 + round % 4;
        for (int i = 0; i < count + data.degree + 1; ++i) {
            data.knots.push_back(std::min(std::max(i - data.degree, 0), count - data.degree));
        }
        for (int i = 0; i < count; ++i) {
            data.controlPoints.push_back({along(random), spread * along(random) / 50, 0});
            data.weights.push_back(weight(random));
        }
        const auto spline = kxCreateSpline("0", data);
        ASSERT_TRUE(spline);
        expectMet(*spline, exploded(*spline));
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(Explode, A_spline_out_of_the_plane_gives_lines) {
    const auto spline = kxCreateSpline(
        "0", {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {5, 9, 1}, {9, -9, 5}, {14, 0, 9}}, {}});
    const Objects pieces = exploded(*spline);
    EXPECT_GT(pieces.size(), 10U);
    for (const kxObject_ptr& piece : pieces) {
        EXPECT_EQ(piece->GetType(), kxLineType);
    }
    expectWithin(*spline, pieces, kDefaultTolerance);
    expectSame(walk(pieces, {0, 0, 0}), {14, 0, 9});
}

TEST(Explode, Splines_of_one_point_are_not_exploded) {
    const auto spline = kxCreateSpline(
        "0", {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{1, 1, 0}, {1, 1, 0}, {1, 1, 0}, {1, 1, 0}}, {}});
    EXPECT_FALSE(explodeObject(*spline));
}

TEST(Explode, A_tolerance_of_nothing_does_not_run_away) {
    const auto ellipse = kxCreateEllipseArc("0", {{0, 0, 0}, {100, 0, 0}, {0, 30, 0}, 0, kTwoPi});
    EXPECT_LE(exploded(*ellipse, 1e-300).size(), 20000U);
    EXPECT_EQ(exploded(*ellipse, 0).size(), exploded(*ellipse).size());
    EXPECT_EQ(exploded(*ellipse, NAN).size(), exploded(*ellipse).size());
    EXPECT_LE(exploded(*ellipse, HUGE_VAL).size(), 16U);
}

TEST(Explode, Parameters_that_can_hardly_be_told_apart_stop_in_time) {
    const auto far = kxCreateEllipseArc("0", {{0, 0, 0}, {1e6, 0, 0}, {0, 3e5, 0}, 1e12, 1e12 + 3});
    EXPECT_LE(exploded(*far).size(), 60000U);
    const auto wound = kxCreateEllipseArc("0", {{0, 0, 0}, {9, 0, 0}, {0, 3, 0}, 0, 1e9});
    EXPECT_LE(exploded(*wound).size(), 100U);
}

TEST(Explode, In_a_document_pieces_take_the_place_of_what_they_replace) {
    const kxHostApplication_ptr application = kxCreateHostApplication({});
    const kxHostDocument_ptr document = application->AddDocument("drawing", false);
    const kxObject_ptr first = kxCreateLine("0", {0, 0, 0}, {1, 0, 0});
    const kxObject_ptr polyline = kxCreatePolyLine(
        "0", {{{{0, 0, 0}, 0}, {{1, 0, 0}, 1}, {{1, 0, 0}, 1}, {{2, 0, 0}, 0}}, false});
    const kxObject_ptr other = kxCreatePolyLine("0", {{{{5, 0, 0}, 0}, {{6, 0, 0}, 0}}, false});
    const kxObject_ptr last = kxCreatePoint("0", {0, 0, 0});
    document->SetObjects({first, polyline, other, last});
    const ExplodeResult result = explode(*document, {last, polyline, first});
    const Objects& objects = document->GetObjects();
    ASSERT_EQ(objects.size(), 5U);
    EXPECT_EQ(objects[0], first);
    EXPECT_EQ(objects[1]->GetType(), kxLineType);
    EXPECT_EQ(objects[2]->GetType(), kxCircleArcType);
    EXPECT_EQ(objects[3], other);
    EXPECT_EQ(objects[4], last);
    EXPECT_EQ(result.exploded, (std::map<kxObjectType_e, long>{{kxPolyLineType, 1}}));
    EXPECT_EQ(result.created,
              (std::map<kxObjectType_e, long>{{kxLineType, 1}, {kxCircleArcType, 1}}));
    EXPECT_EQ(result.droppedSegments, 1);
    EXPECT_EQ(result.pieces.size(), 2U);
}

}  // namespace
}  // namespace kxdrawing
