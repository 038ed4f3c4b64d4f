// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Intervals.h"

#include <gtest/gtest.h>

namespace {

using gcode_check::Interval;

TEST(Intervals, PartsThatTouchBecomeOne) {
    std::vector<Interval> parts{{0.5, 0.7}, {0, 0.2}, {0.2, 0.3}, {0.6, 0.8}};
    gcode_check::unite(parts);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].to, 0.3);
    EXPECT_EQ(parts[1].from, 0.5);
    EXPECT_EQ(parts[1].to, 0.8);
    EXPECT_NEAR(widthOf(parts), 0.6, 1e-12);
}

TEST(Intervals, AHairBetweenLongPartsIsNone) {
    std::vector<Interval> parts{{0, 0.2}, {0.201, 0.4}, {0.45, 0.6}, {0.601, 0.602}, {0.603, 0.7}};
    gcode_check::joinAcross(parts, 0.01);
    ASSERT_EQ(parts.size(), 4U);
    EXPECT_EQ(parts[0].to, 0.4);
    EXPECT_EQ(parts[1].from, 0.45);
    EXPECT_EQ(parts[2].to, 0.602);
}

TEST(Intervals, GapsAreWhatIsLeftAndLongerThanTheLeast) {
    std::vector<Interval> parts{{0.1, 0.5}, {0.5001, 0.9}};
    const std::vector<Interval> gaps = gcode_check::gapsOf(parts, 0.001);
    ASSERT_EQ(gaps.size(), 2U);
    EXPECT_EQ(gaps[0].to, 0.1);
    EXPECT_EQ(gaps[1].from, 0.9);
    EXPECT_EQ(gaps[1].to, 1);
}

TEST(Intervals, WithoutAnyPartAllIsAGap) {
    std::vector<Interval> none;
    const std::vector<Interval> gaps = gcode_check::gapsOf(none, 0.001);
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(widthOf(gaps), 1);
}

}  // namespace
