// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/DrawingScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "SceneFixture.h"

namespace {

constexpr double kPi = 3.141592653589793;
using Indices = std::vector<std::size_t>;

WorldBox grown(const WorldBox& box, double by) {
    return {box.minX - by, box.minY - by, box.maxX + by, box.maxY + by};
}

bool inside(const WorldBox& box, const QPointF& point) {
    return box.minX < point.x() && point.x() < box.maxX && box.minY < point.y() &&
           point.y() < box.maxY;
}

void expectExtents(kxObject_ptr object, const WorldBox& wanted, double tolerance = 1e-12) {
    const SceneFixture fixture({std::move(object)});
    const WorldBox& box = fixture.scene.extents();
    EXPECT_NEAR(box.minX, wanted.minX, tolerance);
    EXPECT_NEAR(box.minY, wanted.minY, tolerance);
    EXPECT_NEAR(box.maxX, wanted.maxX, tolerance);
    EXPECT_NEAR(box.maxY, wanted.maxY, tolerance);
}

/// The distance from the chords between points.
double chordDistance(const std::vector<QPointF>& points, const QPointF& from) {
    double best = std::hypot(points[0].x() - from.x(), points[0].y() - from.y());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const QPointF step = points[i] - points[i - 1];
        const double square = QPointF::dotProduct(step, step);
        const double t = square > 0 ? QPointF::dotProduct(from - points[i - 1], step) / square : 0;
        const QPointF foot = points[i - 1] + step * std::clamp(t, 0.0, 1.0) - from;
        best = std::min(best, std::hypot(foot.x(), foot.y()));
    }
    return best;
}

WorldBox boxOfPoints(const std::vector<QPointF>& points) {
    WorldBox box;
    for (const QPointF& point : points) {
        box.add(point);
    }
    return box;
}

/// Random objects with points along each, by which the answers are judged.
struct Judged {
    explicit Judged(unsigned seed, int objectCount = 700)
        : random(seed), objects(random.take(objectCount)), fixture(objects) {
        for (const kxObject_ptr& object : objects) {
            points.push_back(pointsAlong(object.get(), 3000));
            boxes.push_back(boxOfPoints(points.back()));
        }
    }

    RandomObjects random;
    std::vector<kxObject_ptr> objects;
    SceneFixture fixture;
    std::vector<std::vector<QPointF>> points;
    std::vector<WorldBox> boxes;
};

TEST(DrawingScene, AnEmptyOneFindsNothing) {
    const DrawingScene scene;
    EXPECT_TRUE(scene.objects().empty());
    EXPECT_TRUE(scene.extents().isEmpty());
    EXPECT_FALSE(scene.nearest({0, 0}, 100));
    EXPECT_TRUE(scene.contained({-1, -1, 1, 1}).empty());
    EXPECT_TRUE(scene.crossing({-1, -1, 1, 1}).empty());
    EXPECT_FALSE(scene.indexOf(nullptr));
}

TEST(DrawingScene, ObjectsOnHiddenLayersAreNotThere) {
    const kxObject_ptr shown = kxCreateLine("shown", {0, 0, 0}, {1, 1, 0});
    const kxObject_ptr hidden = kxCreateLine("hidden", {0, 0, 0}, {50, 50, 0});
    const kxObject_ptr last = kxCreateLine("unlisted", {0, 0, 0}, {2, 2, 0});
    const SceneFixture fixture({shown, hidden, last}, {{"shown", true}, {"hidden", false}});
    EXPECT_EQ(fixture.scene.objects(), (std::vector<kxObject_ptr>{shown, last}));
    EXPECT_EQ(fixture.scene.indexOf(shown.get()), 0U);
    EXPECT_FALSE(fixture.scene.indexOf(hidden.get()));
    EXPECT_EQ(fixture.scene.indexOf(last.get()), 1U);
    EXPECT_EQ(fixture.scene.extents().maxX, 2);
    EXPECT_FALSE(fixture.scene.nearest({40, 40}, 1));
}

TEST(DrawingSceneExtents, OfStraightObjectsAreTheirPoints) {
    expectExtents(kxCreateLine("0", {3, -2, 7}, {-1, 5, 0}), {-1, -2, 3, 5}, 0);
    expectExtents(kxCreatePoint("0", {3, 4, 5}), {3, 4, 3, 4}, 0);
}

TEST(DrawingSceneExtents, OfArcsReachTheQuadrantsTheyPass) {
    expectExtents(kxCreateCircle("0", {1, 2, 0}, 3), {-2, -1, 4, 5}, 0);
    const double root = std::sqrt(0.5);
    expectExtents(kxCreateCircleArc("0", {{0, 0, 0}, 1, kPi / 4, 3 * kPi / 4}),
                  {-root, root, root, 1});
    expectExtents(kxCreateCircleArc("0", {{0, 0, 0}, 1, 3 * kPi / 4, kPi / 4}), {-1, -1, 1, root});
    expectExtents(kxCreateCircleArc("0", {{0, 0, 0}, 1, -9 * kPi / 4, -7 * kPi / 4}),
                  {root, -root, 1, root});
    expectExtents(kxCreateCircleArc("0", {{0, 0, 0}, 1, 0, kPi / 2}), {0, 0, 1, 1});
}

TEST(DrawingSceneExtents, OfATurnedEllipseAreExact) {
    // Half axes 5 and 2, turned by 30 degrees.
    const double c = std::cos(kPi / 6);
    const double s = std::sin(kPi / 6);
    const double x = std::hypot(5 * c, 2 * s);
    const double y = std::hypot(5 * s, 2 * c);
    expectExtents(kxCreateEllipseArc("0", {{10, 20, 0}, {5 * c, 5 * s, 0}, {-2 * s, 2 * c, 0}}),
                  {10 - x, 20 - y, 10 + x, 20 + y});
    expectExtents(kxCreateEllipseArc("0", {{0, 0, 0}, {5, 0, 0}, {0, 2, 0}, 0, kPi / 2}),
                  {0, 0, 5, 2});
}

TEST(DrawingSceneExtents, OfPolylinesHoldTheirBulges) {
    expectExtents(kxCreatePolyLine("0", {{{{0, 0, 0}, 1}, {{10, 0, 0}, 0}}, false}),
                  {0, -5, 10, 0});
    expectExtents(kxCreatePolyLine("0", {{{{0, 0, 0}, 0}, {{10, 0, 0}, 1}}, true}), {0, 0, 10, 5});
    // A sagitta of 0.01 on a chord of 10,000: the centre is more than 1e9 away.
    expectExtents(kxCreatePolyLine("0", {{{{0, 0, 0}, 2e-6}, {{1e4, 0, 0}, 0}}, false}),
                  {0, -0.01, 1e4, 0}, 1e-9);
    expectExtents(kxCreatePolyLine("0", {{{{3, 4, 0}, 0}}, false}), {3, 4, 3, 4}, 0);
}

TEST(DrawingSceneExtents, OfASplineAreTight) {
    kxSplineData parabola;
    parabola.degree = 2;
    parabola.knots = {0, 0, 0, 1, 1, 1};
    parabola.controlPoints = {{0, 0, 0}, {1, 2, 0}, {2, 0, 0}};
    expectExtents(kxCreateSpline("0", parabola), {0, 0, 2, 1});
}

TEST(DrawingSceneExtents, HoldAllPointsOfRandomObjectsAndNoMore) {
    const Judged judged(1);
    for (std::size_t i = 0; i < judged.objects.size(); ++i) {
        const SceneFixture one({judged.objects[i]});
        const WorldBox& box = one.scene.extents();
        EXPECT_TRUE(grown(box, 1e-9).contains(judged.boxes[i])) << i;
        EXPECT_TRUE(grown(judged.boxes[i], 1e-2).contains(box)) << i;
    }
}

TEST(DrawingSceneNearest, AgreesWithBruteForce) {
    Judged judged(2);
    int found = 0;
    for (int i = 0; i < 1000; ++i) {
        const QPointF cursor(judged.random.between(-110, 110), judged.random.between(-110, 110));
        const double tolerance = judged.random.between(0.1, 8);
        double best = 1e9;
        for (std::size_t k = 0; k < judged.points.size(); ++k) {
            const bool near = inside(grown(judged.boxes[k], tolerance + 0.1), cursor);
            best = near ? std::min(best, chordDistance(judged.points[k], cursor)) : best;
        }
        const auto nearest = judged.fixture.scene.nearest(cursor, tolerance);
        if (nearest) {
            ++found;
            const double distance = chordDistance(judged.points[*nearest], cursor);
            EXPECT_NEAR(distance, best, 1e-4) << *nearest << " of kind " << *nearest % 7;
            EXPECT_LE(distance, tolerance + 1e-4);
        } else {
            EXPECT_GE(best, tolerance - 1e-4);
        }
    }
    EXPECT_GT(found, 200);
}

TEST(DrawingSceneNearest, MeasuresToTheTrueCurve) {
    const SceneFixture circle({kxCreateCircle("0", {0, 0, 0}, 1e6)});
    EXPECT_TRUE(circle.scene.nearest({1e6 * 0.6 + 9e-7, 1e6 * 0.8}, 1e-6));
    EXPECT_FALSE(circle.scene.nearest({1e6 * 0.6 + 3e-6, 1e6 * 0.8}, 1e-6));
    EXPECT_FALSE(circle.scene.nearest({0, 0}, 9e5));
    const SceneFixture ellipse({kxCreateEllipseArc("0", {{0, 0, 0}, {1e6, 0, 0}, {0, 1e5, 0}})});
    EXPECT_TRUE(ellipse.scene.nearest({1e6 * 0.6, 1e5 * 0.8 + 9e-7}, 1e-6));
    EXPECT_FALSE(ellipse.scene.nearest({1e6 * 0.6, 1e5 * 0.8 + 3e-6}, 1e-6));
}

TEST(DrawingSceneNearest, TakesTheLastOneOfEquallyNear) {
    const SceneFixture fixture({kxCreateLine("0", {0, 0, 0}, {10, 3, 0}),
                                kxCreateLine("0", {10, 3, 0}, {0, 0, 0}),
                                kxCreateLine("0", {0, 5, 0}, {10, 8, 0})});
    EXPECT_EQ(fixture.scene.nearest({5, 2}, 1), 1U);
    EXPECT_EQ(fixture.scene.nearest({5, 1}, 1), 1U);
}

TEST(DrawingSceneNearest, FindsWhatHasNoLength) {
    const SceneFixture fixture({kxCreateLine("0", {1, 1, 0}, {1, 1, 0}),
                                kxCreatePoint("0", {5, 5, 0}),
                                kxCreatePolyLine("0", {{{{9, 9, 0}, 0}}, false})});
    EXPECT_EQ(fixture.scene.nearest({1.1, 1}, 0.2), 0U);
    EXPECT_EQ(fixture.scene.nearest({5.1, 5}, 0.2), 1U);
    EXPECT_EQ(fixture.scene.nearest({9.1, 9}, 0.2), 2U);
    EXPECT_EQ(fixture.scene.contained({0, 0, 6, 6}), (Indices{0, 1}));
    EXPECT_EQ(fixture.scene.crossing({4, 4, 9, 9}), (Indices{1, 2}));
}

TEST(DrawingSceneNearest, AFullCircleHasNoGap) {
    const SceneFixture fixture({kxCreateCircle("0", {0, 0, 0}, 10)});
    for (int degree = 0; degree < 360; ++degree) {
        const double angle = degree * kPi / 180;
        const QPointF cursor(10.001 * std::cos(angle), 10.001 * std::sin(angle));
        EXPECT_TRUE(fixture.scene.nearest(cursor, 0.002)) << degree;
    }
}

TEST(DrawingSceneNote, IsPickedByItsTurnedBox) {
    const SceneFixture fixture({kxCreateSimpleNote("0", {{0, 0, 0}, "WWWWWW", 10, kPi / 2})});
    // The text runs upward from the origin, to the left of the Y axis.
    EXPECT_TRUE(fixture.scene.nearest({-5, 20}, 0.01));
    EXPECT_FALSE(fixture.scene.nearest({20, 5}, 0.01));
    EXPECT_FALSE(fixture.scene.nearest({5, 20}, 0.01));
    const WorldBox& box = fixture.scene.extents();
    EXPECT_NEAR(box.minX, -10, 1e-9);
    EXPECT_NEAR(box.maxX, 0, 1e-9);
    EXPECT_GT(box.maxY, 30);
    EXPECT_EQ(fixture.scene.crossing({-6, 10, -5, 11}), Indices{0});
    EXPECT_TRUE(fixture.scene.crossing({1, 10, 2, 11}).empty());
}

/// What the points say of an object and a box, and what they leave open.
struct Verdict {
    bool surelyIn = true;
    bool surelyNotIn = false;
    bool surelyTouched = false;
    bool surelyNotTouched = true;
};

Verdict judge(const std::vector<QPointF>& points, const WorldBox& box) {
    const WorldBox smaller = grown(box, -1e-2);
    const WorldBox larger = grown(box, 1e-9);
    const WorldBox around = grown(box, 0.05);
    Verdict verdict;
    for (const QPointF& point : points) {
        verdict.surelyIn = verdict.surelyIn && inside(smaller, point);
        verdict.surelyNotIn = verdict.surelyNotIn || !inside(larger, point);
        verdict.surelyTouched = verdict.surelyTouched || inside(box, point);
        verdict.surelyNotTouched = verdict.surelyNotTouched && !inside(around, point);
    }
    return verdict;
}

TEST(DrawingSceneBox, ContainedAndCrossingAgreeWithBruteForce) {
    Judged judged(3);
    int touched = 0;
    for (int i = 0; i < 300; ++i) {
        WorldBox box;
        box.add(QPointF(judged.random.between(-110, 110), judged.random.between(-110, 110)));
        box.add(QPointF(box.minX + judged.random.between(0.5, 40),
                        box.minY + judged.random.between(0.5, 40)));
        const Indices contained = judged.fixture.scene.contained(box);
        const Indices crossing = judged.fixture.scene.crossing(box);
        EXPECT_TRUE(std::is_sorted(contained.begin(), contained.end()));
        EXPECT_TRUE(std::is_sorted(crossing.begin(), crossing.end()));
        for (std::size_t k = 0; k < judged.points.size(); ++k) {
            const bool isContained = std::binary_search(contained.begin(), contained.end(), k);
            const bool isCrossing = std::binary_search(crossing.begin(), crossing.end(), k);
            if (!grown(judged.boxes[k], 0.1).meets(box)) {
                ASSERT_TRUE(!isContained && !isCrossing) << i << ' ' << k;
                continue;
            }
            const Verdict verdict = judge(judged.points[k], box);
            ASSERT_TRUE(!verdict.surelyIn || isContained) << i << ' ' << k;
            ASSERT_TRUE(!verdict.surelyNotIn || !isContained) << i << ' ' << k;
            ASSERT_TRUE(!verdict.surelyTouched || isCrossing) << i << ' ' << k;
            ASSERT_TRUE(!verdict.surelyNotTouched || !isCrossing) << i << ' ' << k;
            touched += isCrossing && !isContained ? 1 : 0;
        }
    }
    EXPECT_GT(touched, 1000);
}

TEST(DrawingSceneBox, EdgesBelongToIt) {
    const SceneFixture fixture({kxCreateLine("0", {0, 0, 0}, {10, 10, 0}),
                                kxCreateCircle("0", {5, 5, 0}, 5),
                                kxCreateLine("0", {10, 0, 0}, {20, 0, 0})});
    EXPECT_EQ(fixture.scene.contained({0, 0, 10, 10}), (Indices{0, 1}));
    EXPECT_EQ(fixture.scene.crossing({0, 0, 10, 10}), (Indices{0, 1, 2}));
}

TEST(DrawingSceneBox, WhatGoesAroundItIsNotTouched) {
    const kxPolyLineData square{
        {{{-5, -5, 0}, 0}, {{5, -5, 0}, 0}, {{5, 5, 0}, 0}, {{-5, 5, 0}, 0}}, true};
    const SceneFixture fixture({kxCreateCircle("0", {0, 0, 0}, 5), kxCreatePolyLine("0", square),
                                kxCreateEllipseArc("0", {{0, 0, 0}, {6, 0, 0}, {0, 4, 0}}),
                                kxCreateCircleArc("0", {{0, 0, 0}, 2, 0, kPi / 2})});
    EXPECT_TRUE(fixture.scene.crossing({-1, -1, 1, 1}).empty());
    EXPECT_TRUE(fixture.scene.crossing({-1.9, -1.9, -0.5, -0.5}).empty());
    EXPECT_EQ(fixture.scene.crossing({-4.5, -4.5, 1, 1}), (Indices{0, 2}));
    EXPECT_EQ(fixture.scene.crossing({-1, -1, 1.5, 1.5}), Indices{3});
}

}  // namespace
