// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PositionAndFeed.h"

#include <gtest/gtest.h>

using GCode::Point;
using GCode::PositionAndFeed;

TEST(PositionAndFeed, StartsAtTheOriginWithBothFeedsZero) {
    const PositionAndFeed state;
    EXPECT_EQ(state.GetPoint(), Point(0, 0, 0));
    EXPECT_EQ(state.GetFeedRate(), 0.0);
    EXPECT_EQ(state.GetFeedRateZ(), 0.0);
}

TEST(PositionAndFeed, FromPointAndFeedSetsPointAndXyFeedOnly) {
    const PositionAndFeed state(Point(1, 2, 3), 250.0);
    EXPECT_EQ(state.GetPoint(), Point(1, 2, 3));
    EXPECT_EQ(state.GetFeedRate(), 250.0);
    EXPECT_EQ(state.GetFeedRateZ(), 0.0);
}

TEST(PositionAndFeed, SettersSetOneFieldEach) {
    PositionAndFeed state;
    state.SetPoint(Point(4, 5, 6));
    state.SetFeedRate(300.0);
    state.SetFeedRateZ(100.0);
    EXPECT_EQ(state.m_point, Point(4, 5, 6));
    EXPECT_EQ(state.m_feedRateXY, 300.0);
    EXPECT_EQ(state.m_feedRateZ, 100.0);
}

TEST(PositionAndFeed, GetPointGivesACopy) {
    PositionAndFeed state(Point(1, 2, 3), 0.0);
    state.GetPoint().SetPoint(9, 9, 9);
    EXPECT_EQ(state.GetPoint(), Point(1, 2, 3));
}
