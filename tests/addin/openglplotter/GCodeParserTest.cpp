// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/GCodeParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "ParserFields.h"
#include "Printing.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The value of a word on a line of its own.
float valueOn(const std::string& line, const std::string& code) {
    GCodeParserN parser;
    parser.parse(line);
    EXPECT_TRUE(parser.hasCode(code)) << code << " in " << line;
    return parser.getCodeValue(code);
}

bool isOn(const std::string& line, const std::string& code) {
    GCodeParserN parser;
    parser.parse(line);
    return parser.hasCode(code);
}

void run(GCodeParserN* parser, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        EXPECT_TRUE(parser->parse(line));
        parser->executeGCodes();
    }
}

std::string commentOf(const std::string& line) {
    GCodeParserN parser;
    parser.parse(line);
    parser.parseComments();
    return ParserFields{parser}.comment();
}

}  // namespace

TEST(GCodeParserReader, AFreshParserIsInMillimetresAbsoluteAndAtTheOrigin) {
    const GCodeParserN parser;
    const ParserFields fields{parser};
    EXPECT_EQ(fields.units(), fields.unitsMm());
    EXPECT_EQ(fields.unitsInches(), 1);
    EXPECT_EQ(fields.unitsMm(), 0);
    EXPECT_EQ(fields.lastGCode(), -1);
    EXPECT_TRUE(fields.absoluteMode());
    EXPECT_EQ(fields.current(), Point3d(0, 0, 0));
    EXPECT_EQ(fields.drillTarget(), Point3d(0, 0, 0));
    EXPECT_EQ(fields.feedrate(), 0.0F);
    EXPECT_EQ(fields.drillRetract(), 0.0F);
    EXPECT_EQ(fields.drillFeedrate(), 0.0F);
    EXPECT_EQ(fields.drillDwell(), 0);
    EXPECT_EQ(fields.drillPecksize(), 0.0F);
}

TEST(GCodeParserReader, ScansForSeventeenLettersInThisOrder) {
    EXPECT_THAT(ParserFields::codes(), ElementsAre("D", "F", "G", "H", "I", "J", "K", "L", "M", "P",
                                                   "Q", "R", "S", "T", "X", "Y", "Z"));
    std::string joined;
    for (const std::string& code : ParserFields::codes()) {
        joined += code;
    }
    EXPECT_EQ(joined, kWordLetters);
}

TEST(GCodeParserReader, LineNumbersAndRotaryAxesAreNoWords) {
    for (const char* code : {"N", "E", "A", "B", "C", "O", "U", "V", "W"}) {
        EXPECT_FALSE(isOn(std::string(code) + "5", code)) << code;
    }
}

TEST(GCodeParserReader, KeepsTheLineAsItIs) {
    using namespace std::string_literals;
    GCodeParserN parser;
    const std::string line = "  G1\0X5 \xFF(a)"s;
    parser.parse(line);
    EXPECT_EQ(ParserFields{parser}.command(), line);
}

TEST(GCodeParserReader, ANumberStandsRightBehindItsLetter) {
    EXPECT_EQ(valueOn("X10Y5", "X"), 10.0F);
    EXPECT_EQ(valueOn("X10Y5", "Y"), 5.0F);
    EXPECT_EQ(valueOn("X-1.5", "X"), -1.5F);
    EXPECT_EQ(valueOn("X+2", "X"), 2.0F);
    EXPECT_EQ(valueOn("X.5", "X"), 0.5F);
    EXPECT_EQ(valueOn("X 5", "X"), 0.0F);
}

TEST(GCodeParserReader, AnExponentIsNotPartOfANumber) {
    EXPECT_EQ(valueOn("X1e3", "X"), 1.0F);
    EXPECT_EQ(valueOn("X1E3", "X"), 1.0F);
}

TEST(GCodeParserReader, AMalformedNumberIsZeroAndItsWordPresent) {
    for (const char* line : {"X-", "X1.2.3", "X5-", "X.", "X--1"}) {
        EXPECT_EQ(valueOn(line, "X"), 0.0F) << line;
    }
}

TEST(GCodeParserReader, PresenceAndValueAreDecidedApart) {
    EXPECT_EQ(valueOn("X", "X"), 0.0F);
    EXPECT_EQ(valueOn("X Y2", "X"), 0.0F);
    EXPECT_EQ(valueOn("(X) X7", "X"), 7.0F);
    EXPECT_EQ(valueOn("G G1", "G"), 1.0F);
}

TEST(GCodeParserReader, OnlyTheFirstNumberOfALetterCounts) {
    EXPECT_EQ(valueOn("G90 G1 X10", "G"), 90.0F);
    EXPECT_EQ(valueOn("G90 G1 X10", "X"), 10.0F);
    EXPECT_EQ(valueOn("X- X5", "X"), 0.0F);
}

TEST(GCodeParserReader, LowerCaseWordsAreNotRecognised) {
    EXPECT_FALSE(isOn("g1 x10", "G"));
    EXPECT_FALSE(isOn("g1 x10", "X"));
    EXPECT_FALSE(isOn("g1 x10", "x"));
}

TEST(GCodeParserReader, ALineNumberIsIgnored) {
    EXPECT_EQ(valueOn("N10 G1 X5", "G"), 1.0F);
    EXPECT_EQ(valueOn("N10 G1 X5", "X"), 5.0F);
}

TEST(GCodeParserReader, CapitalLettersInCommentsAreWords) {
    EXPECT_EQ(valueOn("(Z safe height)", "Z"), 0.0F);
    EXPECT_EQ(valueOn("; Retract", "R"), 0.0F);
    EXPECT_EQ(valueOn("(to X12)", "X"), 12.0F);
}

TEST(GCodeParserReader, ACommentWithZIsAModalMoveToZ0) {
    GCodeParserN parser;
    run(&parser, {"G1 X1 Y2 Z3", "(Z safe height)"});
    EXPECT_THAT(parser.GetVector(), ElementsAre(Point3d(1, 2, 3), Point3d(1, 2, 0)));
    EXPECT_EQ(parser.getCodeValue("G"), 1.0F);
}

TEST(GCodeParserReader, ACommentWithGAndAMinusIsARapid) {
    EXPECT_EQ(valueOn("(G-code file)", "G"), 0.0F);
    GCodeParserN parser;
    run(&parser, {"G1 X5", "(G-code file)"});
    EXPECT_THAT(parser.GetVector(), ElementsAre(Point3d(5, 0, 0), Point3d(5, 0, 0)));
    EXPECT_THAT(parser.GetColorVector(), ElementsAre(Color(0, 1, 0, 0), Color(0.7F, 0, 0, 0)));
}

TEST(GCodeParserReader, CoordinatesAloneRepeatTheLastGNumber) {
    for (const char* line : {"X5", "Y5", "Z5"}) {
        GCodeParserN parser;
        run(&parser, {"G1 X1", line});
        EXPECT_TRUE(parser.hasCode("G")) << line;
        EXPECT_EQ(parser.getCodeValue("G"), 1.0F) << line;
        EXPECT_EQ(parser.GetVector().size(), 2) << line;
    }
}

TEST(GCodeParserReader, ALineWithoutCoordinatesGetsNoGWord) {
    for (const char* line : {"F100", "I1 J2", "M30", "R5", ""}) {
        GCodeParserN parser;
        run(&parser, {"G1 X1", line});
        EXPECT_FALSE(parser.hasCode("G")) << line;
        EXPECT_EQ(parser.GetVector().size(), 1) << line;
    }
}

TEST(GCodeParserReader, TheModalNumberSurvivesLinesWithoutG) {
    GCodeParserN parser;
    run(&parser, {"G1 X1", "F100", "M3 S1000", "X2", "X3"});
    EXPECT_THAT(parser.GetVector(),
                ElementsAre(Point3d(1, 0, 0), Point3d(2, 0, 0), Point3d(3, 0, 0)));
}

TEST(GCodeParserReader, AnyGNumberBecomesTheModalOne) {
    for (const int g : {4, 17, 80, 90, 91}) {
        GCodeParserN parser;
        run(&parser, {"G1 X1", "G" + std::to_string(g), "X5"});
        EXPECT_EQ(parser.getCodeValue("G"), static_cast<float>(g));
        EXPECT_EQ(parser.GetVector().size(), 1) << "G" << g;
    }
}

TEST(GCodeParserReader, CoordinatesAfterG90AreReadAsG90AndDrawNothing) {
    GCodeParserN parser;
    run(&parser, {"G90", "X5", "Y5"});
    EXPECT_THAT(parser.GetVector(), IsEmpty());
}

TEST(GCodeParserReader, TheModalNumberIsTruncated) {
    GCodeParserN parser;
    run(&parser, {"G1.9 X1", "X2"});
    EXPECT_EQ(parser.getCodeValue("G"), 1.0F);
    run(&parser, {"G-0.9 X1", "X2"});
    EXPECT_EQ(parser.getCodeValue("G"), 0.0F);
}

TEST(GCodeParserReader, AModalNumberBeyondThirtyTwoBitsIsTheLimitAndDrawsNothing) {
    GCodeParserN parser;
    run(&parser, {"G" + std::string(50, '9'), "X5"});
    EXPECT_EQ(ParserFields{parser}.lastGCode(), 2147483647);
    EXPECT_EQ(parser.getCodeValue("G"), 2147483648.0F);
    EXPECT_THAT(parser.GetVector(), IsEmpty());
}

TEST(GCodeParserReader, CoordinatesBeforeTheFirstGWordDrawNothing) {
    GCodeParserN parser;
    run(&parser, {"X5 Y5", "Z1"});
    EXPECT_EQ(parser.getCodeValue("G"), -1.0F);
    EXPECT_THAT(parser.GetVector(), IsEmpty());
}

TEST(GCodeParserReader, TheWordsOfALineAreGoneWithTheNext) {
    GCodeParserN parser;
    parser.parse("G1 X5 F100");
    parser.parse("Y1");
    EXPECT_FALSE(parser.hasCode("X"));
    EXPECT_FALSE(parser.hasCode("F"));
    EXPECT_EQ(parser.getCodeValue("X"), 0.0F);
    parser.parse("");
    EXPECT_FALSE(parser.hasCode("Y"));
}

TEST(GCodeParserReader, CleanupKeepsTheGNumberAndEmptiesTheTable) {
    GCodeParserN parser;
    parser.parse("G2 X5");
    parser.parseComments();
    parser.cleanup();
    EXPECT_EQ(ParserFields{parser}.lastGCode(), 2);
    EXPECT_EQ(ParserFields{parser}.comment(), "");
    EXPECT_FALSE(parser.hasCode("G"));
    EXPECT_EQ(parser.getCodeValue("X"), 0.0F);
    parser.cleanup();
    EXPECT_EQ(ParserFields{parser}.lastGCode(), 2);
}

TEST(GCodeParserReader, FindCodeLooksForTheTextAnywhere) {
    GCodeParserN parser;
    EXPECT_FALSE(parser.findCode("G"));
    parser.parse("abc G1 X5");
    EXPECT_TRUE(parser.findCode("abc"));
    EXPECT_TRUE(parser.findCode("1 X"));
    EXPECT_FALSE(parser.findCode("g"));
    EXPECT_FALSE(parser.findCode("Y"));
}

TEST(GCodeParserReader, ParseCodeGivesTheNumberAndMarksTheWord) {
    GCodeParserN parser;
    parser.parse("N10 G1 X5");
    EXPECT_EQ(parser.parseCode("X"), 5.0F);
    EXPECT_EQ(parser.parseCode("Y"), 0.0F);
    EXPECT_FALSE(parser.hasCode("Y"));
    EXPECT_FALSE(parser.hasCode("N"));
    EXPECT_EQ(parser.parseCode("N"), 10.0F);
    EXPECT_TRUE(parser.hasCode("N"));
    EXPECT_EQ(parser.getCodeValue("N"), 0.0F);
    parser.parse("N20");
    EXPECT_FALSE(parser.hasCode("N"));
}

TEST(GCodeParserReader, ALetterNeverEnteredIsAbsentAndZero) {
    GCodeParserN parser;
    parser.parse("X5");
    EXPECT_FALSE(parser.hasCode("Q"));
    EXPECT_EQ(parser.getCodeValue("Q"), 0.0F);
    EXPECT_FALSE(parser.hasCode(""));
    EXPECT_FALSE(parser.hasCode("XY"));
    EXPECT_EQ(parser.getCodeValue("XY"), 0.0F);
}

TEST(GCodeParserReader, ANegativeZeroIsReturnedAsPositiveZero) {
    const float value = valueOn("X-0", "X");
    EXPECT_EQ(value, 0.0F);
    EXPECT_FALSE(std::signbit(value));
}

TEST(GCodeParserReader, ConvertsInchesOnly) {
    const GCodeParserN parser;
    EXPECT_EQ(parser.convertToMM(2, 1), 50.8F);
    EXPECT_EQ(parser.convertToMM(0.1F, 1), static_cast<float>(static_cast<double>(0.1F) * 25.4));
    for (const int other : {0, 2, -1, 25}) {
        EXPECT_EQ(parser.convertToMM(2, other), 2.0F) << other;
    }
}

TEST(GCodeParserReader, UnitWordsOfTheFileChangeNothing) {
    for (const char* line : {"G20", "G21", "G70", "G71"}) {
        GCodeParserN parser;
        run(&parser, {line, "G1 X10 Y20 Z30"});
        EXPECT_EQ(ParserFields{parser}.units(), ParserFields{parser}.unitsMm());
        EXPECT_THAT(parser.GetVector(), ElementsAre(Point3d(10, 20, 30))) << line;
    }
}

TEST(GCodeParserReader, ScreenSizeIsKept) {
    GCodeParserN parser;
    parser.setScreenSize(640, 480);
    EXPECT_EQ(ParserFields{parser}.width(), 640.0F);
    EXPECT_EQ(ParserFields{parser}.height(), 480.0F);
}

TEST(GCodeParserComments, AreTakenFromParentheses) {
    EXPECT_EQ(commentOf("G1 X5 (to the left)"), "to the left");
    EXPECT_EQ(commentOf("G1 (a) X5 (b)"), "a) X5 (b");
}

TEST(GCodeParserComments, OfASemicolonWin) {
    EXPECT_EQ(commentOf("G1 X5 ; drill"), "drill");
    EXPECT_EQ(commentOf("G1 (a) ; b"), "b");
    EXPECT_EQ(commentOf("G1 ; b (a)"), "b (a)");
    EXPECT_EQ(commentOf("G1 ;"), "");
}

TEST(GCodeParserComments, AtTheBeginningOfTheLineAreNotCutOut) {
    EXPECT_EQ(commentOf("(a) G1"), "(a) G1");
    EXPECT_EQ(commentOf(";b"), ";b");
    EXPECT_EQ(commentOf("(a) ; b"), "b");
}

TEST(GCodeParserComments, WithoutAnyAreTheWholeLine) {
    EXPECT_EQ(commentOf("  G1 X5\t"), "G1 X5");
    EXPECT_EQ(commentOf(""), "");
}

TEST(GCodeParserComments, TurnBarsIntoLineFeeds) {
    EXPECT_EQ(commentOf("G1 ( one|two|three )"), "one\ntwo\nthree");
    EXPECT_EQ(commentOf("G1 ; \xC3\xA9|x"), "\xC3\xA9\nx");
}

TEST(GCodeParserComments, AreEmptiedByTheNextLine) {
    GCodeParserN parser;
    parser.parse("G1 ; a");
    parser.parseComments();
    parser.parse("G1 ; b");
    EXPECT_EQ(ParserFields{parser}.comment(), "");
}

TEST(GCodeParserComments, StrippingThemHasNoEffect) {
    GCodeParserN parser;
    parser.parse("G1 X5 (a) ; b");
    parser.stripComments();
    EXPECT_EQ(ParserFields{parser}.command(), "G1 X5 (a) ; b");
    EXPECT_EQ(ParserFields{parser}.comment(), "");
}
