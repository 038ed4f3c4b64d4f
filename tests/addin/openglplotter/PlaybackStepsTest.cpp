// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/PlaybackSteps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "LiteralSteps.h"
#include "SegmentSteps.h"
#include "openglplotter/ViewNavigation.h"

namespace {

const QMatrix4x4 kIdentity;
const float kInfinity = std::numeric_limits<float>::infinity();
const float kNan = std::numeric_limits<float>::quiet_NaN();

}  // namespace

TEST(DeviceDistance, IsEuclideanIn3d) {
    EXPECT_EQ(deviceDistance({1, 2, 3}, {1, 2, 3}), 0);
    EXPECT_EQ(deviceDistance({0, 0, 0}, {2, 3, 6}), 7);
    EXPECT_EQ(deviceDistance({2, 3, 6}, {0, 0, 0}), 7);
    EXPECT_EQ(deviceDistance({1, 1, 1}, {1, 1, -4}), 5);
}

TEST(DeviceDistance, FormsTheDifferencesInSingleAndTheRestInDouble) {
    EXPECT_EQ(deviceDistance({16777216, 0, 0}, {1, 0, 0}), 16777215);
    EXPECT_EQ(deviceDistance({16777216, 0, 0}, {-1, 0, 0}), 16777216);
    EXPECT_NEAR(deviceDistance({0, 0, 0}, {1e30F, 0, 0}), 1e30, 1e23);  // Not infinite.
}

TEST(SegmentSteps, OfNoLengthAre51EqualPoints) {
    const std::vector<Point3d> steps = segmentSteps({}, {}, kIdentity, 0.005);
    ASSERT_EQ(steps.size(), 51U);
    for (const Point3d& point : steps) {
        EXPECT_EQ(point, Point3d());
    }
}

TEST(SegmentSteps, OfNoLengthAwayFromTheOriginStandThere) {
    const std::vector<Point3d> steps =
        segmentSteps({9, -3, 6}, {9, -3, 6}, fittedProjection(10, 1), 0.005);
    ASSERT_EQ(steps.size(), 51U);
    for (const Point3d& point : steps) {
        EXPECT_NEAR(point.x, 0.6, 1e-6);
        EXPECT_NEAR(point.y, -0.2, 1e-6);
        EXPECT_NEAR(point.z, -0.12, 1e-6);
    }
}

TEST(SegmentSteps, OfNoLengthAndAStepOfZeroAre51Points) {
    EXPECT_EQ(segmentSteps({}, {}, kIdentity, 0).size(), 51U);
}

TEST(SegmentSteps, ANegativeStepLengthCountsAsNoLength) {
    EXPECT_EQ(segmentSteps({}, {1, 0, 0}, kIdentity, -0.005).size(), 51U);
}

TEST(SegmentSteps, IncludeTheStartAlways) {
    const std::vector<Point3d> steps = segmentSteps({0.25F, 0.5F, 0}, {1, 1, 0}, kIdentity, 0.01);
    EXPECT_EQ(steps.front(), Point3d(0.25F, 0.5F, 0));
}

TEST(SegmentSteps, IncludeTheEndOnlyWhenAStepLandsOnIt) {
    const std::vector<Point3d> lands = segmentSteps({}, {1, 0, 0}, kIdentity, 0.25);
    ASSERT_EQ(lands.size(), 5U);
    EXPECT_EQ(lands[1], Point3d(0.25F, 0, 0));
    EXPECT_EQ(lands.back(), Point3d(1, 0, 0));
    const std::vector<Point3d> passes = segmentSteps({}, {1, 0, 0}, kIdentity, 0.4);
    ASSERT_EQ(passes.size(), 3U);
    EXPECT_EQ(passes.back(), Point3d(0.8F, 0, 0));
}

TEST(SegmentSteps, AreAboutLengthByStepPlusOne) {
    for (const double length : {0.1, 0.37, 1.0, 1.9}) {
        for (const double step : {0.005, 0.02, 0.05}) {
            const auto to = static_cast<float>(length);
            const std::vector<Point3d> steps = segmentSteps({}, {0, to, 0}, kIdentity, step);
            EXPECT_NEAR(static_cast<double>(steps.size()), length / step + 1, 1.5);
        }
    }
}

TEST(SegmentSteps, ASegmentShorterThanAStepIsItsStartAlone) {
    const std::vector<Point3d> steps = segmentSteps({1, 0, 0}, {1.001F, 0, 0}, kIdentity, 0.005);
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0], Point3d(1, 0, 0));
}

TEST(SegmentSteps, LengthIsMeasuredAfterTheProjection) {
    // 15 units are half the width of a scene of 10 under its projection.
    const std::size_t count = segmentSteps({}, {15, 0, 0}, fittedProjection(10, 1), 0.25).size();
    EXPECT_EQ(count, segmentSteps({}, {1, 0, 0}, kIdentity, 0.25).size());
}

TEST(SegmentSteps, AreCappedAt80000) {
    const std::vector<Point3d> at = segmentSteps({}, {400, 0, 0}, kIdentity, 0.005);
    const std::vector<Point3d> above = segmentSteps({}, {4e6F, 0, 0}, kIdentity, 0.005);
    EXPECT_NEAR(static_cast<double>(at.size()), 80001, 2000);
    EXPECT_EQ(above.size(), at.size());
    EXPECT_LT(segmentSteps({}, {399, 0, 0}, kIdentity, 0.005).size(), at.size());
}

TEST(SegmentSteps, HaveRoomHoweverTheStepIsRounded) {
    std::size_t most = 0;
    for (int length = 75'000; length <= 80'000; length += 7) {
        most = std::max(most,
                        segmentSteps({}, {static_cast<float>(length), 0, 0}, kIdentity, 1).size());
    }
    most = std::max(most, segmentSteps({}, {80'000, 0, 0}, kIdentity, 1).size());
    EXPECT_LE(most, kMostStepPoints);
    EXPECT_GT(most, kMostSteps * 0.95);
}

TEST(SegmentSteps, OfInfiniteLengthAreCappedToo) {
    const std::size_t most = segmentSteps({}, {4e6F, 0, 0}, kIdentity, 0.005).size();
    EXPECT_EQ(segmentSteps({}, {kInfinity, 0, 0}, kIdentity, 0.005).size(), most);
    EXPECT_EQ(segmentSteps({-3e38F, 0, 0}, {3e38F, 0, 0}, kIdentity, 0.005).size(), most);
    EXPECT_EQ(segmentSteps({}, {1, 0, 0}, kIdentity, 0).size(), most);
}

TEST(SegmentSteps, OfALengthThatIsNotANumberAre51) {
    EXPECT_EQ(segmentSteps({}, {kNan, 0, 0}, kIdentity, 0.005).size(), 51U);
    EXPECT_EQ(segmentSteps({kInfinity, 0, 0}, {kInfinity, 0, 0}, kIdentity, 0.005).size(), 51U);
    EXPECT_EQ(segmentSteps({}, {1, 0, 0}, kIdentity, std::nan("")).size(), 51U);
}

TEST(SegmentSteps, OfTheSmallestLengthIsItsStart) {
    const float least = std::numeric_limits<float>::denorm_min();
    EXPECT_EQ(segmentSteps({}, {least, 0, 0}, kIdentity, 0.005).size(), 1U);
    EXPECT_EQ(segmentSteps({}, {1, 0, 0}, kIdentity, 1e300).size(), 1U);
}

TEST(SegmentSteps, AreTheLiteralOnesBitForBitOnRandomSegments) {
    std::mt19937 random(11);
    std::uniform_real_distribution<float> coordinates(-200, 200);
    std::uniform_real_distribution<double> sizes(1, 400);
    std::uniform_int_distribution<int> speeds(1, 10);
    const auto point = [&] {
        return Point3d(coordinates(random), coordinates(random), coordinates(random));
    };
    for (int i = 0; i < 5000; ++i) {
        const QMatrix4x4 projection = fittedProjection(sizes(random), 0.3 + sizes(random) / 200);
        const double stepLength = speeds(random) * kStepLengthPerSpeed;
        const Point3d from = point();
        const Point3d to = i % 10 == 0 ? from : point();
        ASSERT_TRUE(sameBits(segmentSteps(from, to, projection, stepLength),
                             literalSteps(from, to, projection, stepLength)))
            << "segment " << i;
    }
}

TEST(SegmentSteps, AreTheLiteralOnesBitForBitOnHugeAndOddSegments) {
    std::mt19937 random(12);
    std::uniform_real_distribution<float> exponents(-45, 39);
    const float odd[] = {0, -0.0F, kInfinity, -kInfinity, kNan, 3e38F, -3e38F, 1e-45F};
    std::uniform_int_distribution<std::size_t> picks(0, std::size(odd) + 3);
    const auto number = [&] {
        const std::size_t pick = picks(random);
        return pick < std::size(odd) ? odd[pick] : std::pow(10.0F, exponents(random));
    };
    const double lengths[] = {0.005, 0.05, 0, -0.005, 1e-300, 1e300};
    for (int i = 0; i < 600; ++i) {
        const Point3d from(number(), number(), number());
        const Point3d to(number(), number(), number());
        const double stepLength = lengths[static_cast<std::size_t>(i) % std::size(lengths)];
        const std::vector<Point3d> steps = segmentSteps(from, to, kIdentity, stepLength);
        ASSERT_LT(steps.size(), 84000U);
        ASSERT_TRUE(sameBits(steps, literalSteps(from, to, kIdentity, stepLength)))
            << "segment " << i;
    }
}

TEST(ModelPointOf, BringsAStepBackIntoTheModel) {
    const QMatrix4x4 projection = fittedProjection(30, 2);
    const Point3d point = modelPointOf({0.5F, -1, 0.1F}, projection);
    EXPECT_NEAR(point.x, 45, 1e-4);
    EXPECT_NEAR(point.y, -45, 1e-4);
    EXPECT_NEAR(point.z, -15, 1e-4);
    EXPECT_EQ(modelPointOf({0.5F, -1, 0.1F}, kIdentity), Point3d(0.5F, -1, 0.1F));
}

TEST(ModelPointOf, OfTheDeviceOriginIsTheModelOrigin) {
    EXPECT_EQ(modelPointOf({}, fittedProjection(37, 1.3)), Point3d());
}

TEST(ModelPointOf, UndoesTheProjectionOnRandomPoints) {
    std::mt19937 random(13);
    std::uniform_real_distribution<float> coordinates(-300, 300);
    const QMatrix4x4 projection = fittedProjection(200, 1.7);
    for (int i = 0; i < 2000; ++i) {
        const QVector3D point(coordinates(random), coordinates(random), coordinates(random));
        const QVector3D device = projection.map(point);
        const Point3d back = modelPointOf({device.x(), device.y(), device.z()}, projection);
        ASSERT_LT((QVector3D(back.x, back.y, back.z) - point).length(), 1e-3F);
    }
}

TEST(ChangedStepLength, GrowsByFiveThousandthsPerStepOfTheSlider) {
    EXPECT_DOUBLE_EQ(changedStepLength(0.02, 6), 0.05);
    EXPECT_NEAR(changedStepLength(0.05, -9), 0.005, 1e-15);  // Sums of doubles.
    EXPECT_EQ(changedStepLength(0.02, 0), 0.02);
}

TEST(ChangedStepLength, ANegativeLengthStartsAgainFromTheLowestSpeed) {
    EXPECT_DOUBLE_EQ(changedStepLength(-0.01, 3), 0.02);
    EXPECT_DOUBLE_EQ(changedStepLength(-1e-9, 0), 0.005);
    EXPECT_DOUBLE_EQ(changedStepLength(0, 3), 0.015);  // Zero isn't negative.
}
