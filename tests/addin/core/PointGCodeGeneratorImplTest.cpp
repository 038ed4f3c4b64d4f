// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PointGCodeGeneratorImpl.h"

#include <gtest/gtest.h>

#include "CommaLocale.h"

using GCode::Point;
using GCode::PositionAndFeed;

namespace {

Parameters heights() {
    Parameters parameters;
    parameters.SetParams(5, 10, -2, mm);
    return parameters;
}

PointGCodeGeneratorImpl drillAt(const Point& point) {
    return {point, 300, 100, heights()};
}

constexpr const char* kAtThreeFourWithoutFeed = "G01 Z5 \nG0 Z10\nG0 X3 Y4 \nG0 Z5\nG01 Z-2 \n";

}  // namespace

TEST(PointGenerator, PlungesAtThePointWithABlankAfterTheTravelLine) {
    PositionAndFeed state(Point(9, 9, 9), 300);
    EXPECT_EQ(drillAt({3, 4, 0}).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X3 Y4 \nG0 Z5\nG01 Z-2 F100\n");
    EXPECT_EQ(state.GetPoint(), Point(3, 4, 0));
    EXPECT_EQ(state.GetFeedRate(), 100);
}

TEST(PointGenerator, TheSamePointTwiceInARowYieldsTextOnlyOnce) {
    PositionAndFeed state(Point(9, 9, 9), 300);
    EXPECT_NE(drillAt({3, 4, 0}).Generate(&state), "");
    EXPECT_EQ(drillAt({3, 4, 0}).Generate(&state), "");
}

TEST(PointGenerator, AtTheToolTheStateIsLeftUnchanged) {
    PositionAndFeed state(Point(3, 4, 0), 300);
    state.SetFeedRateZ(7);
    EXPECT_EQ(drillAt({3, 4, 0}).Generate(&state), "");
    EXPECT_EQ(state.GetPoint(), Point(3, 4, 0));
    EXPECT_EQ(state.GetFeedRate(), 300);
    EXPECT_EQ(state.GetFeedRateZ(), 7);
}

TEST(PointGenerator, APointThatDiffersOnlyInZIsDrilledAgain) {
    PositionAndFeed state(Point(3, 4, 1), 100);
    EXPECT_EQ(drillAt({3, 4, 0}).Generate(&state), kAtThreeFourWithoutFeed);
    EXPECT_EQ(state.GetPoint(), Point(3, 4, 0));
}

TEST(PointGenerator, AnUnchangedPlungeFeedLeavesBothLinesEndingInABlank) {
    PositionAndFeed state(Point(9, 9, 9), 100);
    EXPECT_EQ(drillAt({3, 4, 0}).Generate(&state), kAtThreeFourWithoutFeed);
}

TEST(PointGenerator, TheXyFeedIsNotUsed) {
    PositionAndFeed state(Point(9, 9, 9), 100);
    EXPECT_EQ(PointGCodeGeneratorImpl({3, 4, 0}, 12345, 100, heights()).Generate(&state),
              kAtThreeFourWithoutFeed);
    EXPECT_EQ(state.GetFeedRate(), 100);
}

TEST(PointGenerator, WritesThePointAndNoGroupingUnderADecimalCommaLocale) {
    const CommaLocale comma;
    PositionAndFeed state(Point(9, 9, 9), 100);
    EXPECT_EQ(drillAt({12345.5, 0.5, 0}).Generate(&state),
              "G01 Z5 \nG0 Z10\nG0 X12345.5 Y0.5 \nG0 Z5\nG01 Z-2 \n");
}
