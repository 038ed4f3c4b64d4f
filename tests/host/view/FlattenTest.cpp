// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/Flatten.h"

#include <gtest/gtest.h>

#include <cmath>

#include "SceneFixture.h"

namespace {

using outline::Arc;
using outline::DeviceMap;
using outline::Flattener;

const WorldBox kScreen{0, 0, 1200, 800};
constexpr double kTolerance = 0.2;

/// The greatest distance of lines from a circle, in pixels.
double deviation(const std::vector<QLineF>& lines, const DeviceMap& map, const Arc& arc) {
    const QPointF center = map.map(arc.center);
    double worst = 0;
    for (const QLineF& line : lines) {
        for (const double t : {0.0, 0.25, 0.5, 0.75, 1.0}) {
            const QPointF spoke = line.pointAt(t) - center;
            const double off = std::hypot(spoke.x(), spoke.y()) - arc.radius * map.scale;
            worst = std::max(worst, std::abs(off));
        }
    }
    return worst;
}

TEST(Flattener, ArcsAreRoundAtAnyZoom) {
    const Arc circle{{10, -20}, 1000, 0, 6.283185307179586};
    for (double scale = 1e-3; scale <= 1.1e9; scale *= 10) {
        for (int i = 0; i < 24; ++i) {
            const QPointF rim = circle.at(0.01 + i * 0.7);
            const DeviceMap map{rim, scale, {600, 400}};
            Flattener flattener(map, kScreen, kTolerance);
            flattener.add(circle);
            ASSERT_FALSE(flattener.curved().empty()) << scale;
            EXPECT_LE(deviation(flattener.curved(), map, circle), 0.25) << scale;
            EXPECT_LT(flattener.curved().size(), 400U) << scale;
            double length = 0;
            for (const QLineF& line : flattener.curved()) {
                EXPECT_TRUE(kScreen.contains({line.x1(), line.y1(), line.x1(), line.y1()}));
                length += line.length();
            }
            // It crosses the screen from edge to edge.
            EXPECT_TRUE(length > 790 || scale < 1) << scale << ' ' << length;
        }
    }
}

TEST(Flattener, ACircleOnTheScreenIsClosedWithoutGaps) {
    for (const double radius : {0.6, 3.0, 40.0, 399.0}) {
        Flattener flattener({{0, 0}, 1, {600, 400}}, kScreen, kTolerance);
        flattener.add(Arc{{0, 0}, radius, 0, 6.283185307179586});
        const std::vector<QLineF>& lines = flattener.curved();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(lines[i].p2(), lines[(i + 1) % lines.size()].p1());
        }
        EXPECT_GE(lines.size(), 4U);
    }
}

TEST(Flattener, AnArcThatLeavesTheScreenHasNoGapsOnIt) {
    const Arc arc{{0, 0}, 500, 0.1, 3};
    Flattener flattener({{0, 0}, 1, {600, 400}}, kScreen, kTolerance);
    flattener.add(arc);
    const std::vector<QLineF>& lines = flattener.curved();
    int breaks = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        breaks += lines[i - 1].p2() != lines[i].p1() ? 1 : 0;
    }
    EXPECT_EQ(breaks, 1);
    EXPECT_LE(deviation(lines, flattener.map(), arc), 0.25);
}

/// Each point of a curve on the screen lies on its lines, and each line follows the curve.
TEST(Flattener, CurvesOfEveryKindAreFollowedAtAnyZoom) {
    RandomObjects random(11);
    for (int i = 0; i < 350; ++i) {
        const kxObject_ptr object = random.next(i);
        if (object->GetType() == kxPointType) {
            continue;
        }
        outline::Outlines outlines;
        outlines.add(object.get());
        const std::vector<QPointF> points = pointsAlong(object.get(), 400);
        const double scale = std::pow(10.0, random.between(-1, 9));
        const DeviceMap map{points[133], scale, {600, 400}};
        Flattener flattener(map, kScreen, kTolerance);
        flattener.add(outlines, 0);
        std::vector<QLineF> lines = flattener.straight();
        lines.insert(lines.end(), flattener.curved().begin(), flattener.curved().end());
        for (const QPointF& point : points) {
            const QPointF pixel = map.map(point);
            if (!kScreen.contains({pixel.x(), pixel.y(), pixel.x(), pixel.y()})) {
                continue;
            }
            double nearest = 1e9;
            for (const QLineF& line : lines) {
                const QPointF step = line.p2() - line.p1();
                const double square = QPointF::dotProduct(step, step);
                const double t =
                    square > 0 ? QPointF::dotProduct(pixel - line.p1(), step) / square : 0;
                nearest = std::min(nearest,
                                   QLineF(line.pointAt(std::clamp(t, 0.0, 1.0)), pixel).length());
            }
            ASSERT_LE(nearest, 0.25) << i << " scale " << scale;
        }
        EXPECT_LT(lines.size(), 5000U);
    }
}

TEST(ClippedLine, KeepsWhatIsInside) {
    const WorldBox box{0, 0, 10, 10};
    EXPECT_EQ(outline::clipped({1, 1, 9, 9}, box), QLineF(1, 1, 9, 9));
    EXPECT_EQ(outline::clipped({-10, 5, 20, 5}, box), QLineF(0, 5, 10, 5));
    EXPECT_EQ(outline::clipped({5, -5, 5, 5}, box), QLineF(5, 0, 5, 5));
    EXPECT_FALSE(outline::clipped({-10, 9, 9, 30}, box));
    EXPECT_FALSE(outline::clipped({-5, 11, 15, 11}, box));
    EXPECT_FALSE(outline::clipped({-1e308, 0, 1e308, INFINITY}, box));
    EXPECT_EQ(outline::clipped({5, 5, 5, 5}, box), QLineF(5, 5, 5, 5));
    EXPECT_FALSE(outline::clipped({15, 5, 15, 5}, box));
}

}  // namespace
