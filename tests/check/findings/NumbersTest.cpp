// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Numbers.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

using gcode_check::numberText;
using gcode_check::Wording;

TEST(Numbers, HaveNoTrailingZerosAndNoNegativeZero) {
    EXPECT_EQ(numberText(2.5), "2.5");
    EXPECT_EQ(numberText(10), "10");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(-1e-9), "0");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(numberText(-1.23456789), "-1.234568");
    EXPECT_EQ(numberText(1.99996, 4), "2");
}

TEST(Numbers, ThatAreVeryLargeOrNoneAreStillTold) {
    EXPECT_EQ(numberText(1e300, 2), "1.00e+300");
    EXPECT_EQ(numberText(std::nan("")), "not a number");
    EXPECT_EQ(numberText(std::numeric_limits<double>::infinity()), "infinite");
    EXPECT_EQ(numberText(-std::numeric_limits<double>::infinity()), "-infinite");
}

TEST(Numbers, CarryTheProgramsUnit) {
    EXPECT_EQ(Wording(false).length(1.5), "1.5 mm");
    EXPECT_EQ(Wording(true).feed(20), "20 in/min");
    EXPECT_EQ(Wording(true).place({1, -2.25}), "X1 Y-2.25");
    EXPECT_EQ(Wording(true).height(-0.5), "Z-0.5");
}

TEST(Numbers, CountsHaveTheirWord) {
    EXPECT_EQ(gcode_check::counted(1, "line", "lines"), "one line");
    EXPECT_EQ(gcode_check::counted(0, "line", "lines"), "0 lines");
}

}  // namespace
