// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/Parameters.h"

#include <gtest/gtest.h>

TEST(Parameters, StartWithSafeHeightTenClearanceHundredDepthZeroAndMillimetres) {
    const Parameters parameters;
    EXPECT_EQ(parameters.GetZSafeHeight(), 10.0);
    EXPECT_EQ(parameters.GetZClearance(), 100.0);
    EXPECT_EQ(parameters.GetZDepth(), 0.0);
    EXPECT_EQ(parameters.GetUnits(), mm);
}

TEST(Parameters, SetParamsSetsTheFourFieldsInOrder) {
    Parameters parameters;
    parameters.SetParams(5.0, 20.0, -1.5, inches);
    EXPECT_EQ(parameters.GetZSafeHeight(), 5.0);
    EXPECT_EQ(parameters.GetZClearance(), 20.0);
    EXPECT_EQ(parameters.GetZDepth(), -1.5);
    EXPECT_EQ(parameters.GetUnits(), inches);
}

TEST(Parameters, HeightsAreTakenWithoutAnyCheck) {
    Parameters parameters;
    parameters.SetParams(-5.0, -20.0, 7.0, mm);
    EXPECT_EQ(parameters.GetZSafeHeight(), -5.0);
    EXPECT_EQ(parameters.GetZClearance(), -20.0);
    EXPECT_EQ(parameters.GetZDepth(), 7.0);
}

TEST(Parameters, UnitsHaveTheirFixedValues) {
    EXPECT_EQ(static_cast<int>(Units::mm), 1);
    EXPECT_EQ(static_cast<int>(Units::inches), 2);
    EXPECT_EQ(sizeof(Units), 4U);
}
