// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "ReadingText.h"

namespace {

struct Row {
    const char* name;
    const char* program;
    const char* steps;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.program;
}

class Text : public testing::TestWithParam<Row> {};
TEST_P(Text, GivesTheseSteps) {
    EXPECT_EQ(stepsOf(GetParam().program), GetParam().steps);
}
INSTANTIATE_TEST_SUITE_P(
    Lines, Text,
    testing::Values(Row{"anyCase", "g0 x1\nG0 Y2", "rapid 1 0 0 | rapid 1 2 0"},
                    Row{"blanksMeanNothing", "G 0 x 1 . 5\ty - 2 0", "rapid 1.5 -20 0"},
                    Row{"anyOrder", "x1 g0 y2", "rapid 1 2 0"},
                    Row{"formsOfNumbers", "G00 X+1. Y.5 Z--3", "rapid 1 0.5 3"},
                    Row{"manyDigits", "G0 X0.12345678901234567890 Y000000000000000000012",
                        "rapid 0.123457 12 0"},
                    Row{"exponentIsAWord", "G0 X1e3", " ! 1:6 word-without-use"},
                    Row{"lineNumbers", "N10 G0 X1\nn 2 0 . 5 x2", "rapid 1 0 0 | rapid 2 0 0"},
                    Row{"comments", "(a) G0 (b; c) X1 ; (d", "rapid 1 0 0"},
                    Row{"slashIsReadWithoutTheSwitch", "/G0 X1\n / N5 X2",
                        "rapid 1 0 0 | rapid 2 0 0"},
                    Row{"carriageReturns", "G0 X1\r\nX2\r\n", "rapid 1 0 0 | rapid 2 0 0"},
                    Row{"formFeedsAtTheEnd", "\f\v\nG0 X1\f\nX2 \v", "rapid 1 0 0 | rapid 2 0 0"},
                    Row{"formFeedBeforeAWord", "\fG0 X1", " ! 1:1 unknown-character"},
                    Row{"verticalTabInANumber", "G0 X1\v2", " ! 1:6 unknown-character"},
                    Row{"pointAtTheEndOfALineNumber", "N20. G0 X1", " ! 1:4 number-unreadable"},
                    Row{"emptyLines", "\n \n\t\nG0 X1", "rapid 1 0 0"}, Row{"nothing", "", ""},
                    Row{"lastWordWithoutNumber", "G0 X", " ! 1:5 number-missing"},
                    Row{"wordsAreNoNumbers", "Safe height", " ! 1:2 number-missing"},
                    Row{"twoPoints", "G0 X1.2.3", " ! 1:8 number-unreadable"},
                    Row{"pointAlone", "G0 X.", " ! 1:6 number-unreadable"},
                    Row{"numberEndsAtAComment", "G0 X1(a)5", " ! 1:9 unknown-character"},
                    Row{"commentNotClosed", "G0 X1 (a", " ! 1:7 comment-not-closed"},
                    Row{"commentInAComment", "(a (b))", " ! 1:4 nested-comment"},
                    Row{"numberNotAtTheFront", "G0 N5 X1", " ! 1:4 unknown-character"},
                    Row{"axesThatAMillLacks", "G0 U1", " ! 1:4 unknown-character"},
                    Row{"controlBytes", "G0 X1\x01", " ! 1:6 unknown-character"},
                    Row{"twice", "G0 X1 X1", " ! 1:7 word-twice"},
                    Row{"negativeFeed", "F-1", " ! 1:1 number-out-of-range"},
                    Row{"toolIsWhole", "T1.5", " ! 1:1 number-out-of-range"},
                    Row{"unknownG", "G1.5 X1", " ! 1:1 unknown-g-code"},
                    Row{"unknownM", "M10", " ! 1:1 unknown-m-code"},
                    Row{"controlWord", "O100 sub", " ! 1:1 control-word"},
                    Row{"controlWordBehindANumber", "/N10 (a) o<b> call", " ! 1:10 control-word"},
                    Row{"letterForZero", "G0 X5O", " ! 1:6 unknown-character"},
                    Row{"letterForZeroOfACode", "GO X5", " ! 1:2 number-missing"},
                    Row{"controlWordBehindAWord", "G0 X5 O100", " ! 1:7 unknown-character"},
                    Row{"parameterAsValue", "G0 X#1", " ! 1:5 parameter"},
                    Row{"parameterIsSet", "#1 = 5", " ! 1:1 parameter"},
                    Row{"expression", "G0 X[1+2]", " ! 1:5 expression"},
                    Row{"functionOfAnExpression", "G0 X-sin[3]", " ! 1:6 expression"},
                    Row{"codeOfALathe", "G76", " ! 1:1 not-interpreted-code"},
                    Row{"contourOfALathe", "G71 Q100", " ! 1:1 not-interpreted-code"},
                    Row{"contourWithoutNumber", "X1 G70", " ! 1:4 word-missing"},
                    Row{"codeOfNobody", "G84.2 X1", " ! 1:1 unknown-g-code"},
                    Row{"radiusCompensation", "G41 D1", " ! 1:1 not-interpreted-code"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace

TEST(Text, LongestLineHas252Characters) {
    const std::string words = "G0 X1";
    EXPECT_EQ(stopOf(words + std::string(247, ' ')), "");
    EXPECT_EQ(stopOf(words + std::string(248, ' ')), "1:253 words-too-many");
}

TEST(Text, BlockDeleteLeavesTheLineOutWhenTheSwitchIsOn) {
    gcode_check::MachineOptions options;
    options.blockDelete = true;
    EXPECT_EQ(stepsOf("/G0 X1\nG0 X2", options), "rapid 2 0 0");
}

TEST(Text, NotInterpretedIsAVerdictOfItsOwn) {
    using gcode_check::Verdict;
    EXPECT_EQ(gcode_check::read("O1 sub").diagnostics.at(0).verdict, Verdict::NotInterpreted);
    EXPECT_EQ(gcode_check::read("G38.2 X1").diagnostics.at(0).verdict, Verdict::NotInterpreted);
    EXPECT_EQ(gcode_check::read("G0 X1 X1").diagnostics.at(0).verdict, Verdict::Rejected);
}

TEST(Text, DiagnosticSaysWhatWasFoundAndWhatExpected) {
    const auto reading = gcode_check::read("G0 X1\nG0 G1 X2");
    const gcode_check::Diagnostic& diagnostic = reading.diagnostics.at(0);
    EXPECT_EQ(diagnostic.line, 2U);
    EXPECT_EQ(diagnostic.column, 4U);
    EXPECT_EQ(diagnostic.found, "G1");
    EXPECT_EQ(diagnostic.expected, "one code of the group of G0 on a line");
}
