// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/ViewNavigation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

TEST(RoundedPosition, RoundsToTheNearestPixelWithHalvesUp) {
    const struct {
        double position;
        int pixel;
    } rows[] = {{0, 0},         {0.49, 0},
                {0.5, 1},       {1.5, 2},
                {2.5, 3},       {2.4999, 2},
                {-0.4, 0},      {-0.5, 0},
                {-0.51, -1},    {-1.5, -1},
                {-2.5, -2},     {-2.51, -3},
                {1e6, 1000000}, {-1e6 - 0.5, -1000000}};
    for (const auto& row : rows) {
        EXPECT_EQ(roundedPosition({row.position, 7}), QPoint(row.pixel, 7)) << row.position;
        EXPECT_EQ(roundedPosition({7, row.position}), QPoint(7, row.pixel)) << row.position;
    }
}

TEST(RoundedPosition, RoundsAsQtDoesOnRandomPositions) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> positions(-5000, 5000);
    for (int i = 0; i < 20000; ++i) {
        const double x = positions(random);
        const double half = std::floor(positions(random)) + 0.5;
        ASSERT_EQ(roundedPosition({x, half}), QPoint(qRound(x), qRound(half))) << x << ", " << half;
    }
}

TEST(TurnedAlpha, FourHundredPixelsToTheLeftFromTheStartGiveTen) {
    EXPECT_EQ(turnedAlpha(kStartAlphaDeg, -400), 10);
}

TEST(TurnedAlpha, IsOneDegreeAPixelAgainstTheDrag) {
    EXPECT_EQ(turnedAlpha(100, 1), 99);
    EXPECT_EQ(turnedAlpha(100, -1), 101);
    EXPECT_EQ(turnedAlpha(0.25, 0), 0.25);
}

TEST(TurnedAlpha, IsBroughtIntoFrom0To360WithoutThe360) {
    EXPECT_EQ(turnedAlpha(kStartAlphaDeg, 0), 330);
    EXPECT_EQ(turnedAlpha(0, 1), 359);
    EXPECT_EQ(turnedAlpha(359, -1), 0);
    EXPECT_EQ(turnedAlpha(10, 10), 0);
    EXPECT_EQ(turnedAlpha(10, 3610), 0);
    EXPECT_EQ(turnedAlpha(10, -3600 - 349), 359);
}

TEST(TurnedAlpha, StaysInRangeAndCongruentOnRandomDrags) {
    std::mt19937 random(2);
    std::uniform_int_distribution<int> drags(-5000, 5000);
    double alpha = kStartAlphaDeg;
    long sum = -30;
    for (int i = 0; i < 20000; ++i) {
        const int drag = drags(random);
        alpha = turnedAlpha(alpha, drag);
        sum -= drag;
        ASSERT_EQ(alpha, static_cast<double>((sum % 360 + 360) % 360));
    }
}

TEST(TiltedBeta, IsOneDegreeAPixelAgainstTheDrag) {
    EXPECT_EQ(tiltedBeta(kStartBetaDeg, 10), 20);
    EXPECT_EQ(tiltedBeta(kStartBetaDeg, -10), 40);
}

TEST(TiltedBeta, DraggingDownFarEnoughLeavesMinusNinety) {
    EXPECT_EQ(tiltedBeta(kStartBetaDeg, 120), -90);
    EXPECT_EQ(tiltedBeta(kStartBetaDeg, 121), -90);
    EXPECT_EQ(tiltedBeta(-90, 5000), -90);
}

TEST(TiltedBeta, DraggingUpFarEnoughLeavesNinety) {
    EXPECT_EQ(tiltedBeta(kStartBetaDeg, -60), 90);
    EXPECT_EQ(tiltedBeta(kStartBetaDeg, -61), 90);
    EXPECT_EQ(tiltedBeta(90, -5000), 90);
}

TEST(DeviceCoordinate, RunsFromMinusOneToOneAlongTheWidget) {
    EXPECT_EQ(deviceCoordinate(0, 270), -1.0F);
    EXPECT_EQ(deviceCoordinate(135, 270), 0.0F);
    EXPECT_EQ(deviceCoordinate(270, 270), 1.0F);
    EXPECT_EQ(deviceCoordinate(405, 270), 2.0F);
    EXPECT_EQ(deviceCoordinate(-135, 270), -2.0F);
}

TEST(DeviceCoordinate, IsComputedInDoubleAndStoredAsFloat) {
    EXPECT_EQ(deviceCoordinate(1, 3), static_cast<float>(1 / (0.5 * 3) - 1));
    // In single precision the last bits would be lost before the subtraction.
    EXPECT_NE(deviceCoordinate(1, 3), 1.0F / (0.5F * 3.0F) - 1.0F);
}

TEST(PannedOffset, IsTheDragInDeviceUnits) {
    EXPECT_EQ(pannedOffset(0, 135, 270), 1.0F);
    EXPECT_EQ(pannedOffset(0, -27, 270), -0.2F);
    EXPECT_EQ(pannedOffset(0, 0, 270), 0.0F);
}

TEST(PannedOffset, AnOffsetThatNoFrameConsumedIsAddedToThePixelsAndDividedAgain) {
    EXPECT_EQ(pannedOffset(1, 135, 270), 2 * (1.0F + 135.0F) / 270.0F);
    EXPECT_EQ(pannedOffset(1, 0, 270), 2.0F / 270.0F);
}

TEST(WheelStep, IsAFiftiethOfAnEighthOfTheDelta) {
    EXPECT_EQ(wheelStep(120), 0.3F);
    EXPECT_EQ(wheelStep(-120), -0.3F);
    EXPECT_EQ(wheelStep(240), 0.6F);
    EXPECT_EQ(wheelStep(0), 0.0F);
}

TEST(WheelStep, TheEighthIsTruncatedTowardsZero) {
    EXPECT_EQ(wheelStep(7), 0.0F);
    EXPECT_EQ(wheelStep(-7), 0.0F);
    EXPECT_EQ(wheelStep(8), 0.02F);
    EXPECT_EQ(wheelStep(15), 0.02F);
    EXPECT_EQ(wheelStep(-15), -0.02F);
    EXPECT_EQ(wheelStep(-16), -0.04F);
}

TEST(VerticalWheel, OneNotchChangesTheScaleByThreeTenths) {
    EXPECT_EQ(zoomedByVerticalWheel(1, 120), 1 + static_cast<double>(0.3F));
    EXPECT_EQ(zoomedByVerticalWheel(1, -120), 1 + static_cast<double>(-0.3F));
}

TEST(VerticalWheel, AScaleOfZeroOrLessBecomesAHundredth) {
    EXPECT_EQ(zoomedByVerticalWheel(0.2, -120), 0.01);
    EXPECT_EQ(zoomedByVerticalWheel(static_cast<double>(0.3F), -120), 0.01);
    EXPECT_EQ(zoomedByVerticalWheel(0.01, -120), 0.01);
    EXPECT_EQ(zoomedByVerticalWheel(-5, 120), 0.01);
    EXPECT_EQ(zoomedByVerticalWheel(0.301, -120), 0.301 + static_cast<double>(-0.3F));
}

TEST(HorizontalWheel, HasTheOtherSign) {
    EXPECT_EQ(zoomedByHorizontalWheel(1, 120), 1 - static_cast<double>(0.3F));
    EXPECT_EQ(zoomedByHorizontalWheel(1, -120), 1 + static_cast<double>(0.3F));
}

TEST(HorizontalWheel, HasNoGuardAndMayMirrorThePicture) {
    EXPECT_EQ(zoomedByHorizontalWheel(0.2, 120), 0.2 - static_cast<double>(0.3F));
    EXPECT_LT(zoomedByHorizontalWheel(0.2, 120), 0);
    EXPECT_EQ(zoomedByHorizontalWheel(static_cast<double>(0.3F), 120), 0);
}
