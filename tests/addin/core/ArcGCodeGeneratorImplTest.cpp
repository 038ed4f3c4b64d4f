// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/ArcGCodeGeneratorImpl.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "CommaLocale.h"

using GCode::Arc;
using GCode::ArcGCodeGeneratorImpl;
using GCode::Point;
using GCode::PositionAndFeed;

namespace {

const Arc kArc({0, 0, 0}, {10, 0, 0}, {5, 0, 0}, 5);

Parameters heights() {
    Parameters parameters;
    parameters.SetParams(5, 10, -1, mm);
    return parameters;
}

ArcGCodeGeneratorImpl generatorFor(const Arc& arc, GCode::Direction direction,
                                   GCode::Arcform form = GCode::ijkForm, double feedXY = 300,
                                   double feedZ = 100) {
    ArcGCodeGeneratorImpl generator(arc, direction, form, feedXY, feedZ, heights());
    generator.CalculateCenterDistance(arc.GetStartPoint());
    return generator;
}

}  // namespace

TEST(ArcGenerator, ClockwiseArcAtTheToolIsOneLineWithItsFeed) {
    const Arc arc({20, 0, 0}, {10, 0, 0}, {15, 0, 0}, 5);
    PositionAndFeed state(Point(20, 0, 0), 0);
    EXPECT_EQ(generatorFor(arc, GCode::CW).Generate(&state), "G02 X10 Y0 I-5 J0 F300\n");
    EXPECT_EQ(state.GetFeedRate(), 300);
}

TEST(ArcGenerator, CounterClockwiseArcWithAnUnchangedFeedEndsInABlank) {
    const Arc arc({20, 0, 0}, {10, 0, 0}, {15, 0, 0}, 5);
    PositionAndFeed state(Point(20, 0, 0), 300);
    EXPECT_EQ(generatorFor(arc, GCode::CCW).Generate(&state), "G03 X10 Y0 I-5 J0 \n");
}

TEST(ArcGenerator, LiftsTravelsPlungesAndCutsWhenTheToolStandsElsewhere) {
    PositionAndFeed state(Point(50, 50, 0), 300);
    EXPECT_EQ(generatorFor(kArc, GCode::CCW).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X0 Y0\nG0 Z5\nG01 Z-1 F100\nG03 X10 Y0 I5 J0 F300\n");
    EXPECT_EQ(state.GetFeedRate(), 300);
}

TEST(ArcGenerator, AStartThatDiffersOnlyInZTakesTheFullApproach) {
    PositionAndFeed state(Point(0, 0, 1e-12), 300);
    EXPECT_EQ(generatorFor(kArc, GCode::CCW).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X0 Y0\nG0 Z5\nG01 Z-1 F100\nG03 X10 Y0 I5 J0 F300\n");
}

TEST(ArcGenerator, EqualFeedsThatDifferFromTheLastFeedAreRepeatedOnTheArcLine) {
    PositionAndFeed state(Point(50, 50, 0), 0);
    EXPECT_EQ(generatorFor(kArc, GCode::CCW, GCode::ijkForm, 200, 200).Generate(&state),
              "G01 Z5 F200\nG0 Z10\nG0 X0 Y0\nG0 Z5\nG01 Z-1 F200\nG03 X10 Y0 I5 J0 F200\n");
}

TEST(ArcGenerator, EqualFeedsThatAreTheLastFeedAreNotWritten) {
    PositionAndFeed state(Point(50, 50, 0), 200);
    EXPECT_EQ(generatorFor(kArc, GCode::CCW, GCode::ijkForm, 200, 200).Generate(&state),
              "G01 Z5 \nG0 Z10\nG0 X0 Y0\nG0 Z5\nG01 Z-1 \nG03 X10 Y0 I5 J0 \n");
}

TEST(ArcGenerator, NeverUpdatesThePositionOfTheState) {
    PositionAndFeed elsewhere(Point(50, 51, 52), 0);
    generatorFor(kArc, GCode::CCW).Generate(&elsewhere);
    EXPECT_EQ(elsewhere.GetPoint(), Point(50, 51, 52));
    PositionAndFeed atStart(Point(0, 0, 0), 0);
    generatorFor(kArc, GCode::CW).Generate(&atStart);
    EXPECT_EQ(atStart.GetPoint(), Point(0, 0, 0));
    generatorFor(kArc, GCode::CW, GCode::radiusForm).Generate(&elsewhere);
    EXPECT_EQ(elsewhere.GetPoint(), Point(50, 51, 52));
}

TEST(ArcGenerator, RadiusFormAtTheToolIsEmptyButStillTakesTheFeed) {
    PositionAndFeed state(Point(0, 0, 0), 0);
    EXPECT_EQ(generatorFor(kArc, GCode::CCW, GCode::radiusForm).Generate(&state), "");
    EXPECT_EQ(state.GetFeedRate(), 300);
}

TEST(ArcGenerator, RadiusFormElsewhereWritesTheApproachOnlyAndStillTakesTheFeed) {
    PositionAndFeed state(Point(50, 50, 0), 0);
    EXPECT_EQ(generatorFor(kArc, GCode::CCW, GCode::radiusForm).Generate(&state),
              "G01 Z5 F100\nG0 Z10\nG0 X0 Y0\nG0 Z5\nG01 Z-1 F100\n");
    EXPECT_EQ(state.GetFeedRate(), 300);
}

TEST(ArcGenerator, ADirectionThatIsNoEnumeratorGivesALineThatBeginsWithABlank) {
    PositionAndFeed state(Point(0, 0, 0), 300);
    EXPECT_EQ(generatorFor(kArc, static_cast<GCode::Direction>(0)).Generate(&state),
              " X10 Y0 I5 J0 \n");
}

TEST(ArcGenerator, AFullCircleEndsWhereItStarts) {
    const Arc circle({10, 5, 0}, {10, 5, 0}, {5, 5, 0}, 5);
    PositionAndFeed state(Point(10, 5, 0), 300);
    EXPECT_EQ(generatorFor(circle, GCode::CCW).Generate(&state), "G03 X10 Y5 I-5 J0 \n");
}

TEST(ArcGenerator, OffsetsAreCountedFromTheGivenPointWithoutItsZ) {
    ArcGCodeGeneratorImpl generator(kArc, GCode::CCW, GCode::ijkForm, 300, 100, heights());
    generator.CalculateCenterDistance(Point(1, -2, 99));
    PositionAndFeed state(Point(0, 0, 0), 300);
    EXPECT_EQ(generator.Generate(&state), "G03 X10 Y0 I4 J2 \n");
}

TEST(ArcGenerator, OffsetsInTheDeadBandAreWrittenAsZero) {
    const Arc arc({0, 0, 0}, {10, 0, 0}, {0.01, -0.01, 0}, 5);
    PositionAndFeed state(Point(0, 0, 0), 300);
    EXPECT_EQ(generatorFor(arc, GCode::CCW).Generate(&state), "G03 X10 Y0 I0 J0 \n");
}

TEST(ArcGenerator, OffsetsAreRoundedUpToFourDecimals) {
    const Arc arc({5, 3.00004, 0}, {10, 0, 0}, {4.98, 0, 0}, 5);
    PositionAndFeed state(Point(5, 3.00004, 0), 300);
    EXPECT_EQ(generatorFor(arc, GCode::CCW).Generate(&state), "G03 X10 Y0 I-0.0199 J-3.0001 \n");
}

TEST(ArcGenerator, DeltaFunctionIsTheRoundedDifference) {
    const ArcGCodeGeneratorImpl generator = generatorFor(kArc, GCode::CCW);
    EXPECT_EQ(generator.DeltaFunction(5.0, 4.995), 0.0);
    EXPECT_EQ(generator.DeltaFunction(3.00004, 0), 3.0001);
}

TEST(ArcGenerator, TheRadiusIsNotUsed) {
    const Arc other({0, 0, 0}, {10, 0, 0}, {5, 0, 0}, -777);
    PositionAndFeed state(Point(50, 50, 0), 300);
    PositionAndFeed stateOfOther(Point(50, 50, 0), 300);
    EXPECT_EQ(generatorFor(kArc, GCode::CW).Generate(&state),
              generatorFor(other, GCode::CW).Generate(&stateOfOther));
}

TEST(ArcGenerator, NaNIsWrittenAndNeverMatchesThePosition) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Arc arc({nan, 0, 0}, {1, 2, 0}, {std::copysign(nan, 1.0), 3, 0}, 5);
    PositionAndFeed state(Point(nan, 0, 0), 300);
    ArcGCodeGeneratorImpl generator(arc, GCode::CCW, GCode::ijkForm, 300, 300, heights());
    generator.CalculateCenterDistance(Point(0, 0, 0));
    EXPECT_EQ(generator.Generate(&state),
              "G01 Z5 \nG0 Z10\nG0 Xnan Y0\nG0 Z5\nG01 Z-1 \nG03 X1 Y2 Inan J3 \n");
}

TEST(ArcGenerator, WritesThePointAndNoGroupingUnderADecimalCommaLocale) {
    const CommaLocale comma;
    const Arc arc({0, 0, 0}, {12345.5, 0.5, 0}, {6172.75, 0.25, 0}, 6172.75);
    PositionAndFeed state(Point(0, 0, 0), 0);
    EXPECT_EQ(generatorFor(arc, GCode::CCW, GCode::ijkForm, 1200.5).Generate(&state),
              "G03 X12345.5 Y0.5 I6172.75 J0.25 F1200.5\n");
}
