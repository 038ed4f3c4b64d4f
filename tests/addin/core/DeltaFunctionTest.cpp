// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/DeltaFunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/MotionLine.h"

using GCode::formatNumber;
using GCode::roundedDifference;

TEST(DeltaFunction, ADifferenceInsideTheDeadBandIsZero) {
    EXPECT_EQ(roundedDifference(5.0, 4.995), 0.0);
    EXPECT_EQ(roundedDifference(4.995, 5.0), 0.0);
    EXPECT_EQ(roundedDifference(0.005, 0.0), 0.0);
}

TEST(DeltaFunction, OperandsAreRoundedUpBeforeTheSubtraction) {
    EXPECT_EQ(formatNumber(roundedDifference(5.0, 4.98)), "0.0199");
    EXPECT_EQ(roundedDifference(5.0, 4.98), 5.0 - 4.9801);
    EXPECT_EQ(roundedDifference(3.00004, 0), 3.0001);
    EXPECT_EQ(roundedDifference(-3.00009, 0), -3.0);
}

TEST(DeltaFunction, SmallValuesAreRoundedUpIntoTheDeadBand) {
    EXPECT_EQ(roundedDifference(0.00001, 0), 0.0);
    EXPECT_EQ(roundedDifference(-0.00019, 0), 0.0);
}

TEST(DeltaFunction, BothBoundsOfTheDeadBandAreInside) {
    EXPECT_EQ(roundedDifference(0.01, 0), 0.0);
    EXPECT_EQ(roundedDifference(-0.01, 0), 0.0);
    EXPECT_EQ(roundedDifference(0, 0.01), 0.0);
    EXPECT_EQ(roundedDifference(0.0101, 0), 0.0101);
    EXPECT_EQ(roundedDifference(-0.0101, 0), -0.0101);
}

TEST(DeltaFunction, TheBandIsNotWidenedForWhatBinaryRoundingPutsOutsideIt) {
    EXPECT_EQ(roundedDifference(1.01, 1.0), 0.010000000000000009);
    EXPECT_EQ(formatNumber(roundedDifference(1.01, 1.0)), "0.01");
}

TEST(DeltaFunction, TheZeroOfTheDeadBandIsPositive) {
    EXPECT_FALSE(std::signbit(roundedDifference(-0.00019, 0)));
    EXPECT_FALSE(std::signbit(roundedDifference(-0.01, 0)));
    EXPECT_FALSE(std::signbit(roundedDifference(-0.0, 0.0)));
    EXPECT_EQ(formatNumber(roundedDifference(-0.0, 0.0)), "0");
}

TEST(DeltaFunction, NaNPassesThrough) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(roundedDifference(nan, 0)));
    EXPECT_TRUE(std::isnan(roundedDifference(0, nan)));
    EXPECT_TRUE(std::isnan(roundedDifference(inf, inf)));
}

TEST(DeltaFunction, InfinityStaysInfinity) {
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(roundedDifference(inf, 1), inf);
    EXPECT_EQ(roundedDifference(1, inf), -inf);
}
