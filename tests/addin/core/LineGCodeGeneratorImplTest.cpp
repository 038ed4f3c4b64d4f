// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/LineGCodeGeneratorImpl.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "CommaLocale.h"

using GCode::Point;
using GCode::PositionAndFeed;

namespace {

Parameters heights() {
    Parameters parameters;
    parameters.SetParams(5, 10, -1, mm);
    return parameters;
}

LineGCodeGeneratorImpl segment(const Point& start, const Point& end, double feedXY, double feedZ) {
    return {start, end, feedXY, feedZ, heights()};
}

}  // namespace

TEST(LineGenerator, LiftsTravelsPlungesAndCutsWhenTheToolStandsElsewhere) {
    PositionAndFeed state(Point(50, 50, 0), 300);
    EXPECT_EQ(segment({0, 0, 0}, {10, 5, 0}, 300, 100).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X0 Y0\nG0 Z5\nG01 Z-1 F100\nG01 X10 Y5 F300\n");
    EXPECT_EQ(state.GetPoint(), Point(10, 5, 0));
    EXPECT_EQ(state.GetFeedRate(), 300);
}

TEST(LineGenerator, AFollowingSegmentIsOneLineWithATrailingBlank) {
    PositionAndFeed state(Point(50, 50, 0), 300);
    segment({0, 0, 0}, {10, 5, 0}, 300, 100).Generate(&state);
    EXPECT_EQ(segment({10, 5, 0}, {20, 5, 0}, 300, 100).Generate(&state), "G01 X20 Y5 \n");
    EXPECT_EQ(state.GetPoint(), Point(20, 5, 0));
}

TEST(LineGenerator, AFollowingSegmentWithAnotherFeedCarriesTheFeedWord) {
    PositionAndFeed state(Point(1, 1, 0), 300);
    EXPECT_EQ(segment({1, 1, 0}, {2, 3, 0}, 250, 100).Generate(&state), "G01 X2 Y3 F250\n");
    EXPECT_EQ(state.GetFeedRate(), 250);
}

TEST(LineGenerator, AZeroLengthSegmentAtTheToolIsOneCutLine) {
    PositionAndFeed state(Point(3, 4, 0), 0);
    EXPECT_EQ(segment({3, 4, 0}, {3, 4, 0}, 300, 100).Generate(&state), "G01 X3 Y4 F300\n");
    EXPECT_EQ(segment({3, 4, 0}, {3, 4, 0}, 300, 100).Generate(&state), "G01 X3 Y4 \n");
}

TEST(LineGenerator, AStartThatDiffersOnlyInZTakesTheFullApproach) {
    PositionAndFeed state(Point(1, 2, 0.5), 300);
    EXPECT_EQ(segment({1, 2, 0}, {3, 4, 0}, 300, 100).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X1 Y2\nG0 Z5\nG01 Z-1 F100\nG01 X3 Y4 F300\n");
}

TEST(LineGenerator, AStartThatDiffersInTheLastPlaceTakesTheFullApproach) {
    PositionAndFeed state(Point(std::nextafter(1.0, 2.0), 2, 0), 300);
    EXPECT_EQ(segment({1, 2, 0}, {3, 4, 0}, 300, 100).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X1 Y2\nG0 Z5\nG01 Z-1 F100\nG01 X3 Y4 F300\n");
}

TEST(LineGenerator, EqualFeedsThatAreTheLastFeedAreNotWritten) {
    PositionAndFeed state(Point(9, 9, 9), 200);
    EXPECT_EQ(segment({1, 2, 0}, {3, 4, 0}, 200, 200).Generate(&state),
              "G01 Z5 \nG0 Z10\nG0 X1 Y2\nG0 Z5\nG01 Z-1 \nG01 X3 Y4 \n");
    EXPECT_EQ(state.GetFeedRate(), 200);
}

TEST(LineGenerator, EqualFeedsThatDifferFromTheLastFeedAreRepeatedOnTheCutLine) {
    PositionAndFeed state(Point(9, 9, 9), 0);
    EXPECT_EQ(segment({1, 2, 0}, {3, 4, 0}, 200, 200).Generate(&state),
              "G01 Z5 F200\nG0 Z10\nG0 X1 Y2\nG0 Z5\nG01 Z-1 F200\nG01 X3 Y4 F200\n");
}

TEST(LineGenerator, APlungeFeedThatIsTheLastFeedIsNotWrittenButTheCuttingFeedIs) {
    PositionAndFeed state(Point(9, 9, 9), 100);
    EXPECT_EQ(segment({1, 2, 0}, {3, 4, 0}, 300, 100).Generate(&state),
              "G01 Z5 \nG0 Z10\nG0 X1 Y2\nG0 Z5\nG01 Z-1 \nG01 X3 Y4 F300\n");
}

TEST(LineGenerator, TheZFeedOfTheStateIsNeitherReadNorWritten) {
    PositionAndFeed state(Point(9, 9, 9), 0);
    state.SetFeedRateZ(100);
    EXPECT_EQ(segment({1, 2, 0}, {3, 4, 0}, 300, 100).Generate(&state).substr(0, 12),
              "G01 Z5 F100\n");
    EXPECT_EQ(state.GetFeedRateZ(), 100);
}

TEST(LineGenerator, TheStateTakesTheDrawingsZNotTheCuttingDepth) {
    PositionAndFeed state(Point(9, 9, 9), 0);
    segment({1, 2, 3}, {4, 5, 6}, 300, 100).Generate(&state);
    EXPECT_EQ(state.GetPoint(), Point(4, 5, 6));
}

TEST(LineGenerator, LargeAndSmallCoordinatesTakeTheExponentForm) {
    PositionAndFeed state(Point(0, 0, 0), 300);
    EXPECT_EQ(segment({0, 0, 0}, {1234567.0, 0.00001, 0}, 300, 100).Generate(&state),
              "G01 X1.23457e+06 Y1e-05 \n");
}

TEST(LineGenerator, NaNAndInfinityAreWrittenAndNeverMatchAFeedOrPosition) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    PositionAndFeed state(Point(nan, 0, 0), nan);
    EXPECT_EQ(segment({nan, 0, 0}, {inf, -inf, 0}, nan, nan).Generate(&state),
              "G01 Z5 Fnan\nG0 Z10\nG0 Xnan Y0\nG0 Z5\nG01 Z-1 Fnan\nG01 Xinf Y-inf Fnan\n");
}

TEST(LineGenerator, HeightsAreUsedAsConfiguredWithoutACheckOfTheirOrder) {
    Parameters upsideDown;
    upsideDown.SetParams(-3, -9, 4.5, mm);
    PositionAndFeed state(Point(9, 9, 9), 0);
    EXPECT_EQ(LineGCodeGeneratorImpl({1, 2, 0}, {3, 4, 0}, 20, 10, upsideDown).Generate(&state),
              "G01 Z-3 F10\nG0 Z-9\nG0 X1 Y2\nG0 Z-3\nG01 Z4.5 F10\nG01 X3 Y4 F20\n");
}

TEST(LineGenerator, InchesAreFormattedLikeMillimetres) {
    Parameters inch;
    inch.SetParams(5, 10, -1, inches);
    PositionAndFeed state(Point(0, 0, 0), 0);
    EXPECT_EQ(LineGCodeGeneratorImpl({0, 0, 0}, {123.4567, 0.1, 0}, 20, 10, inch).Generate(&state),
              "G01 X123.457 Y0.1 F20\n");
}

TEST(LineGenerator, KeepsItsOwnCopyOfTheParameters) {
    Parameters parameters = heights();
    LineGCodeGeneratorImpl line({1, 2, 0}, {3, 4, 0}, 20, 10, parameters);
    parameters.SetParams(77, 77, 77, inches);
    PositionAndFeed state(Point(9, 9, 9), 0);
    EXPECT_EQ(line.Generate(&state).substr(0, 18), "G01 Z5 F10\nG0 Z10\n");
}

TEST(LineGenerator, WritesThePointAndNoGroupingUnderADecimalCommaLocale) {
    const CommaLocale comma;
    PositionAndFeed state(Point(0, 0, 0), 0);
    EXPECT_EQ(segment({0, 0, 0}, {12345.5, 2.5, 0}, 1200.5, 10).Generate(&state),
              "G01 X12345.5 Y2.5 F1200.5\n");
}

TEST(LineGenerator, ImplementsTheInterfaceThatHasNoVirtualDestructor) {
    static_assert(std::is_base_of_v<GCode::GCodeGeneratorInt, LineGCodeGeneratorImpl>);
    static_assert(!std::has_virtual_destructor_v<GCode::GCodeGeneratorInt>);
    auto line = segment({0, 0, 0}, {1, 1, 0}, 20, 10);
    GCode::GCodeGeneratorInt& generator = line;
    PositionAndFeed state;
    EXPECT_EQ(generator.Generate(&state), "G01 X1 Y1 F20\n");
}
