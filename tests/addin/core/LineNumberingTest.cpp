// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/LineNumbering.h"

#include <gtest/gtest.h>

#include "CommaLocale.h"

using GCode::numberLines;

TEST(LineNumbering, StartsAtFiveAndGoesUpByFive) {
    EXPECT_EQ(numberLines("G90\nG0 X0Y0\nM30\n"), "N5 G90\nN10 G0 X0Y0\nN15 M30\n");
}

TEST(LineNumbering, NumbersCommentAndBlankLinesToo) {
    EXPECT_EQ(numberLines("; note\n\nG90\n"), "N5 ; note\nN10 \nN15 G90\n");
    EXPECT_EQ(numberLines("\n"), "N5 \n");
}

TEST(LineNumbering, EndsALastLineThatHasNoLineFeed) {
    EXPECT_EQ(numberLines("G90\nM30"), "N5 G90\nN10 M30\n");
}

TEST(LineNumbering, GivesNothingForAnEmptyText) {
    EXPECT_EQ(numberLines(""), "");
}

TEST(LineNumbering, NumbersANumberedTextASecondTime) {
    EXPECT_EQ(numberLines(numberLines("G90\nM30\n")), "N5 N5 G90\nN10 N10 M30\n");
}

TEST(LineNumbering, KeepsTrailingBlanksAndOtherBytes) {
    EXPECT_EQ(numberLines("G01 Z5 \n\xC3\xA4\tb\n"), "N5 G01 Z5 \nN10 \xC3\xA4\tb\n");
}

TEST(LineNumbering, WritesLargeNumbersWithoutGroupingInAnyLocale) {
    const CommaLocale comma;
    const std::string numbered = numberLines(std::string(400, '\n'));
    EXPECT_EQ(numbered.substr(numbered.size() - 14), "N1995 \nN2000 \n");
}
