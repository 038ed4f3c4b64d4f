// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/CompensationGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace gcode_check;  // NOLINT(google-build-using-namespace): a test's own source

namespace {

constexpr double kPi = 3.14159265358979323846;

ProgrammedPath line(AxisPair start, AxisPair end) {
    ProgrammedPath result;
    result.start = start;
    result.end = end;
    return result;
}

ProgrammedPath arc(AxisPair start, AxisPair end, AxisPair centre, bool isClockwise) {
    ProgrammedPath result = line(start, end);
    result.centre = centre;
    result.isArc = true;
    result.isClockwise = isClockwise;
    return result;
}

void expectAt(const AxisPair& point, double first, double second) {
    EXPECT_NEAR(point.first, first, 1e-9);
    EXPECT_NEAR(point.second, second, 1e-9);
}

// From the left along the first axis to the origin.
const ProgrammedPath kArriving = line({-100, 0}, {0, 0});

ProgrammedPath leavingAt(double degrees) {
    const double angle = degrees * kPi / 180;
    return line({0, 0}, {100 * std::cos(angle), 100 * std::sin(angle)});
}

}  // namespace

TEST(CompensationGeometry, TheToolIsBesideALine) {
    expectAt(besideStart(kArriving, 5), -100, 5);
    expectAt(besideEnd(kArriving, 5), 0, 5);
    expectAt(besideEnd(kArriving, -5), 0, -5);
}

TEST(CompensationGeometry, TheToolIsOnTheRadiusOfAnArc) {
    const ProgrammedPath counterClockwise = arc({20, 0}, {0, 20}, {0, 0}, false);
    expectAt(besideStart(counterClockwise, 5), 15, 0);
    expectAt(besideEnd(counterClockwise, 5), 0, 15);
    expectAt(besideEnd(counterClockwise, -5), 0, 25);
    const ProgrammedPath clockwise = arc({0, 20}, {20, 0}, {0, 0}, true);
    expectAt(besideEnd(clockwise, 5), 25, 0);
}

TEST(CompensationGeometry, ALineHasRoomAndAnArcAroundTheToolWhenItIsLarger) {
    const ProgrammedPath around = arc({20, 0}, {0, 20}, {0, 0}, false);
    EXPECT_TRUE(hasRoom(kArriving, 500));
    EXPECT_TRUE(hasRoom(around, 19.99));
    EXPECT_FALSE(hasRoom(around, 20));
    EXPECT_TRUE(hasRoom(around, -500));
}

TEST(CompensationGeometry, ACornerTurnsToTheToolOrAway) {
    EXPECT_EQ(cornerOf(kArriving, leavingAt(90), 5), Corner::Concave);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(90), -5), Corner::Convex);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(-90), 5), Corner::Convex);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(-90), -5), Corner::Concave);
}

TEST(CompensationGeometry, LessThanATwentiethRadianIsNoCorner) {
    EXPECT_EQ(cornerOf(kArriving, leavingAt(2.8), 5), Corner::Straight);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(-2.8), 5), Corner::Straight);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(2.9), 5), Corner::Concave);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(-2.9), 5), Corner::Convex);
}

TEST(CompensationGeometry, AToolWithoutRadiusHasNoCorners) {
    EXPECT_EQ(cornerOf(kArriving, leavingAt(90), 0), Corner::Straight);
}

TEST(CompensationGeometry, BackAlongALineIsConvex) {
    EXPECT_EQ(cornerOf(kArriving, leavingAt(180), 5), Corner::Convex);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(178), 5), Corner::Convex);
    EXPECT_EQ(cornerOf(kArriving, leavingAt(177), 5), Corner::Concave);
}

TEST(CompensationGeometry, BackAlongAnArcIsConcaveWhereItBendsToTheTool) {
    const ProgrammedPath bendsToTheTool = arc({0, 0}, {-20, 20}, {0, 20}, true);
    const ProgrammedPath bendsAway = arc({0, 0}, {-20, -20}, {0, -20}, false);
    EXPECT_EQ(cornerOf(kArriving, bendsToTheTool, 5), Corner::Concave);
    EXPECT_EQ(cornerOf(kArriving, bendsAway, 5), Corner::Convex);
}

TEST(CompensationGeometry, BetweenTwoLinesTheToolTouchesBoth) {
    const auto right = meetingPoint(kArriving, leavingAt(90), 5);
    ASSERT_TRUE(right);
    expectAt(*right, -5, 5);
    const auto sharp = meetingPoint(kArriving, leavingAt(135), 5);
    ASSERT_TRUE(sharp);
    expectAt(*sharp, -5 - 5 * std::sqrt(2), 5);
}

TEST(CompensationGeometry, BetweenALineAndAnArcTheToolTouchesBoth) {
    // Round (0, 20), the tool inside, at 15.
    const ProgrammedPath inside = arc({16, 8}, {0, 40}, {0, 20}, false);
    const ProgrammedPath to = line({-60, 8}, {16, 8});
    const auto point = meetingPoint(to, inside, 5);
    ASSERT_TRUE(point);
    expectAt(*point, std::sqrt(225 - 49.0), 13);
    // The other way round.
    const ProgrammedPath back = arc({0, 40}, {16, 8}, {0, 20}, true);
    const auto same = meetingPoint(back, line({16, 8}, {-60, 8}), -5);
    ASSERT_TRUE(same);
    expectAt(*same, point->first, point->second);
}

TEST(CompensationGeometry, BetweenTwoArcsTheToolTouchesBoth) {
    const ProgrammedPath first = arc({-40, 0}, {0, 0}, {-20, 0}, true);
    const ProgrammedPath second = arc({0, 0}, {40, 0}, {20, 0}, true);
    const auto point = meetingPoint(first, second, 5);
    ASSERT_TRUE(point);
    expectAt(*point, 0, 15);
}

TEST(CompensationGeometry, ATooLargeToolHasNoPlaceBetweenALineAndAnArc) {
    const ProgrammedPath inside = arc({16, 8}, {0, 40}, {0, 20}, false);
    EXPECT_FALSE(meetingPoint(line({-60, 8}, {16, 8}), inside, 16.1));
}

TEST(CompensationGeometry, AMoveIsTurnedRoundWhenItsEndsPassedEachOther) {
    EXPECT_FALSE(isTurnedRound(kArriving, {-95, 5}, {-5, 5}, 0.01));
    EXPECT_FALSE(isTurnedRound(kArriving, {-5, 5}, {-5, 5}, 0.01));
    EXPECT_TRUE(isTurnedRound(kArriving, {-5, 5}, {-95, 5}, 0.01));
    const ProgrammedPath quarter = arc({20, 0}, {0, 20}, {0, 0}, false);
    EXPECT_FALSE(isTurnedRound(quarter, {15, 0}, {0, 15}, 0.01));
    EXPECT_TRUE(isTurnedRound(quarter, {0, 15}, {15, 0}, 0.01));
    const ProgrammedPath full = arc({20, 0}, {20, 0}, {0, 0}, false);
    EXPECT_FALSE(isTurnedRound(full, {15, 0}, {15, 0}, 0.01));
}

TEST(CompensationGeometry, TheFirstArcEndsBesideItsEndInItsDirection) {
    const ProgrammedPath half = arc({0, 0}, {100, 0}, {50, 0}, false);
    const auto centre = entryCentre(half, 10);
    ASSERT_TRUE(centre);
    expectAt(*centre, 45, 0);
    const ProgrammedPath quarter = arc({1, 4}, {2, 3}, {2, 4}, false);
    const auto other = entryCentre(quarter, -0.125);
    ASSERT_TRUE(other);
    EXPECT_NEAR(distance(*other, {1, 4}), distance(*other, {2, 2.875}), 1e-12);
    EXPECT_EQ(other->first, 2);
}

TEST(CompensationGeometry, AFirstArcThatWouldTurnTheOtherWayHasNoCentre) {
    const ProgrammedPath roundAbout = arc({0, 0}, {-0.1663, 1.0607}, {5.7936, 1.4516}, false);
    EXPECT_FALSE(entryCentre(roundAbout, 1));
    EXPECT_TRUE(entryCentre(roundAbout, -1));
}
