// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/Point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using GCode::Point;

TEST(Point, ConstructionStoresTheThreeValuesAsGiven) {
    const Point point(1.5, -2.5, 1e300);
    EXPECT_EQ(point.m_x, 1.5);
    EXPECT_EQ(point.m_y, -2.5);
    EXPECT_EQ(point.m_z, 1e300);
}

TEST(Point, WithoutValuesIsTheOrigin) {
    EXPECT_EQ(Point(), Point(0, 0, 0));
}

TEST(Point, AssignmentCopiesAllThreeValues) {
    Point copy(9, 9, 9);
    copy = Point(1, 2, 3);
    EXPECT_EQ(copy.m_x, 1);
    EXPECT_EQ(copy.m_y, 2);
    EXPECT_EQ(copy.m_z, 3);
}

TEST(Point, SetPointOverwritesAndEqualsAConstructedPoint) {
    Point point(7, 8, 9);
    point.SetPoint(1, 2, 0);
    EXPECT_EQ(point, Point(1, 2, 0));
}

TEST(Point, GetPointWritesThroughThePointers) {
    double x = 0;
    double y = 0;
    double z = 0;
    Point(1, 2, 3).GetPoint(&x, &y, &z);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
}

TEST(Point, EqualityHasNoTolerance) {
    EXPECT_TRUE(Point(1, 2, 3) != Point(1 + 1e-12, 2, 3));
    EXPECT_TRUE(Point(1, 2, 3) != Point(1, 2 + 1e-12, 3));
    EXPECT_TRUE(Point(1, 2, 3) != Point(1, 2, 3 + 1e-12));
    EXPECT_FALSE(Point(1, 2, 3) == Point(1 + 1e-12, 2, 3));
    EXPECT_FALSE(Point(1, 2, 3) == Point(1, 2 + 1e-12, 3));
    EXPECT_FALSE(Point(1, 2, 3) == Point(1, 2, 3 + 1e-12));
    EXPECT_FALSE(Point(1, 2, 3) == Point(std::nextafter(1.0, 2.0), 2, 3));
}

TEST(Point, ThatHoldsNaNDiffersFromEveryPointItselfIncluded) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const Point& point : {Point(nan, 0, 0), Point(0, nan, 0), Point(0, 0, nan)}) {
        const Point& same = point;
        EXPECT_FALSE(point == same);
        EXPECT_TRUE(point != same);
        EXPECT_TRUE(point != Point(0, 0, 0));
    }
}

TEST(Point, NegativeZeroEqualsZero) {
    EXPECT_TRUE(Point(-0.0, 0.0, -0.0) == Point(0.0, -0.0, 0.0));
    EXPECT_FALSE(Point(-0.0, 0.0, -0.0) != Point(0.0, -0.0, 0.0));
}
