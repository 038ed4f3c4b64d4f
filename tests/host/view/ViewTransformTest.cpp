// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/ViewTransform.h"

#include <gtest/gtest.h>

#include <cmath>

#include "view/CanvasPainter.h"

namespace {

ViewTransform sized(double width = 1200, double height = 800) {
    ViewTransform transform;
    transform.resize({width, height});
    return transform;
}

void expectNear(const QPointF& a, const QPointF& b, double tolerance) {
    EXPECT_NEAR(a.x(), b.x(), tolerance);
    EXPECT_NEAR(a.y(), b.y(), tolerance);
}

TEST(ViewTransform, YGoesUp) {
    const ViewTransform transform = sized();
    EXPECT_EQ(transform.toScreen({0, 0}), QPointF(600, 400));
    EXPECT_EQ(transform.toScreen({10, 20}), QPointF(610, 380));
}

TEST(ViewTransform, ScreenPointsComeBack) {
    for (const double zoom : {1e-9, 1e-3, 0.7, 1.0, 13.0, 1e6, 1e9}) {
        ViewTransform transform = sized();
        transform.panBy({-1234, 567});
        transform.zoomAt({600, 400}, zoom);
        for (const QPointF point : {QPointF(0, 0), QPointF(1200, 800), QPointF(3.25, 790)}) {
            expectNear(transform.toScreen(transform.toWorld(point)), point, 0.001);
        }
    }
}

TEST(ViewTransform, ThePointUnderTheCursorStaysWhenZooming) {
    ViewTransform transform = sized();
    const QPointF cursor(1100, 33);
    const QPointF world = transform.toWorld(cursor);
    for (int i = 0; i < 60; ++i) {
        transform.zoomAt(cursor, 1.5);
        expectNear(transform.toScreen(world), cursor, 0.3);
    }
    for (int i = 0; i < 120; ++i) {
        transform.zoomAt(cursor, 1 / 1.5);
        expectNear(transform.toScreen(world), cursor, 0.3);
    }
}

TEST(ViewTransform, AThousandMillionPixelsPerUnitAreReachedAMillionUnitsFromTheOrigin) {
    ViewTransform transform = sized();
    WorldBox box;
    box.add(QPointF(1e6 - 1, -1e6 - 1));
    box.add(QPointF(1e6 + 1, -1e6 + 1));
    transform.fit(box);
    transform.zoomAt({600, 400}, 1e9 / transform.scale());
    EXPECT_DOUBLE_EQ(transform.scale(), 1e9);
    expectNear(transform.toScreen({1e6, -1e6}), {600, 400}, 0.5);
}

TEST(ViewTransform, ZoomEndsWhereADoubleWouldJump) {
    ViewTransform transform = sized();
    transform.panBy({-1e6, 0});
    for (int i = 0; i < 500; ++i) {
        transform.zoomAt({600, 400}, 10);
    }
    const double x = transform.toWorld({600, 400}).x();
    EXPECT_LT((std::nextafter(x, 2 * x) - x) * transform.scale(), 0.5);
    for (int i = 0; i < 500; ++i) {
        transform.zoomAt({600, 400}, 0.1);
    }
    EXPECT_GT(transform.scale(), 0);
    EXPECT_TRUE(std::isfinite(transform.toWorld({0, 0}).x()));
}

TEST(ViewTransform, AFactorThatIsNoneChangesNothing) {
    ViewTransform transform = sized();
    for (const double factor : {0.0, -1.0, std::nan("")}) {
        transform.zoomAt({1, 1}, factor);
        EXPECT_EQ(transform.scale(), 1);
        EXPECT_EQ(transform.toWorld({600, 400}), QPointF(0, 0));
    }
}

TEST(ViewTransform, PanningMovesTheDrawingWithTheMouse) {
    ViewTransform transform = sized();
    transform.zoomAt({600, 400}, 4);
    const QPointF world = transform.toWorld({100, 100});
    transform.panBy({30, -20});
    expectNear(transform.toScreen(world), {130, 80}, 1e-9);
}

TEST(ViewTransform, ResizingKeepsTheMiddle) {
    ViewTransform transform = sized();
    transform.panBy({50, 60});
    const QPointF middle = transform.toWorld({600, 400});
    transform.resize({300, 500});
    expectNear(transform.toScreen(middle), {150, 250}, 1e-9);
    EXPECT_EQ(transform.scale(), 1);
}

TEST(ViewTransform, FittingLeavesTheMarginAtTheTighterSides) {
    ViewTransform transform = sized();
    transform.fit(WorldBox{10, 20, 30, 120}, 24);
    expectNear(transform.toScreen({20, 20}), {600, 776}, 1e-9);
    expectNear(transform.toScreen({20, 120}), {600, 24}, 1e-9);
    transform.fit(WorldBox{-1000, 5, 1000, 5}, 24);
    expectNear(transform.toScreen({-1000, 5}), {24, 400}, 1e-9);
}

TEST(ViewTransform, FittingNothingIsUsable) {
    ViewTransform transform = sized();
    transform.fit(WorldBox());
    expectNear(transform.toScreen({0, 0}), {600, 400}, 1e-9);
    EXPECT_DOUBLE_EQ(transform.scale(), 8);
    transform.fit(WorldBox{7, 9, 7, 9});
    expectNear(transform.toScreen({7, 9}), {600, 400}, 1e-9);
    EXPECT_DOUBLE_EQ(transform.scale(), 8);
}

TEST(ViewTransform, FittingInAWindowSmallerThanTheMarginIsUsable) {
    ViewTransform transform = sized(10, 10);
    transform.fit(WorldBox{0, 0, 100, 100}, 24);
    EXPECT_GT(transform.scale(), 0);
    expectNear(transform.toScreen({50, 50}), {5, 5}, 1e-9);
}

TEST(ViewTransform, TheVisibleBoxIsThatOfTheCorners) {
    ViewTransform transform = sized();
    transform.zoomAt({600, 400}, 2);
    const WorldBox box = transform.visibleBox();
    EXPECT_DOUBLE_EQ(box.minX, -300);
    EXPECT_DOUBLE_EQ(box.maxX, 300);
    EXPECT_DOUBLE_EQ(box.minY, -200);
    EXPECT_DOUBLE_EQ(box.maxY, 200);
}

TEST(GridStep, IsOneTwoOrFiveTimesAPowerOfTenAndTheLeastOneFarEnoughApart) {
    for (double scale = 1e-12; scale < 1e12; scale *= 1.07) {
        const GridStep step = gridStep(scale, 8);
        EXPECT_GE(step.minor * scale, 8 * (1 - 1e-12));
        EXPECT_LE(step.minor * scale, 8 * 2.5 * (1 + 1e-12));
        const double digits = step.minor / std::pow(10.0, std::floor(std::log10(step.minor)));
        const bool allowed = std::abs(digits - 1) < 1e-9 || std::abs(digits - 2) < 1e-9 ||
                             std::abs(digits - 5) < 1e-9 || std::abs(digits - 10) < 1e-9;
        EXPECT_TRUE(allowed) << step.minor;
        EXPECT_TRUE(step.minorsPerMajor == 5 || step.minorsPerMajor == 10);
    }
}

TEST(GridStep, TakesAStepThatIsJustFarEnough) {
    EXPECT_EQ(gridStep(8, 8).minor, 1);
    EXPECT_EQ(gridStep(4, 8).minor, 2);
    EXPECT_EQ(gridStep(1.6, 8).minor, 5);
    EXPECT_EQ(gridStep(1.59, 8).minor, 10);
}

}  // namespace
