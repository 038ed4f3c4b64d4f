// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Check.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "findings/Numbers.h"
#include "report/JsonReport.h"
#include "report/TextReport.h"

namespace gcode_check {
namespace {

const std::string kHead = "M3 S6000\nG21\nG90\nG0 X0Y0\nG0 Z2\n";
const std::string kTail = "G0 Z50\nM5\nM30\n";

Shape lineShape(PlanePoint first, PlanePoint second) {
    Shape shape;
    shape.kind = ShapeKind::Line;
    shape.first = first;
    shape.second = second;
    return shape;
}

std::vector<std::string> kindsOf(const CheckResult& result) {
    std::vector<std::string> kinds;
    for (const Finding& finding : result.findings) {
        kinds.emplace_back(identifierOf(finding.kind));
    }
    return kinds;
}

TEST(Check, FindingsStandByLineAndThoseOfTheProgramLast) {
    Drawing drawing;
    drawing.shapes = {lineShape({0, 50}, {9, 50}), lineShape({0, 60}, {9, 60})};
    const CheckResult result =
        check("G90\nG0 X0Y0\nG0 Z2\nG1 Z-1 F100\nG1 X10\nG0 Y10\nG0 Z2\nN5 G0 X0\nN5 M30\n", {},
              &drawing);
    EXPECT_EQ(kindsOf(result), (std::vector<std::string>{
                                   "spindle-stopped", "cut-off-drawing", "rapid-in-material",
                                   "line-numbers-disorder", "not-cut", "not-cut", "unit-missing"}))
        << textReport(result);
    EXPECT_EQ(result.findings[4].shape, 0U);
    EXPECT_EQ(result.findings[5].shape, 1U);
}

TEST(Check, CountsWhatIsBeyondTheMostOfAKind) {
    CheckOptions options;
    options.findingsPerKind = 3;
    Drawing drawing;
    for (int at = 0; at < 10; ++at) {
        drawing.shapes.push_back(lineShape({0, 100.0 + at}, {9, 100.0 + at}));
    }
    const CheckResult result = check(kHead + kTail, options, &drawing);
    EXPECT_EQ(result.findings.size(), 3U);
    EXPECT_EQ(result.leftOut[static_cast<std::size_t>(FindingKind::NotCut)], 7U);
    EXPECT_EQ(countOf(result, Severity::Warning), 10U);
    EXPECT_FALSE(hasErrors(result));
    EXPECT_NE(textReport(result).find("not-cut: 10, the first 3 of them above"), std::string::npos);
    EXPECT_NE(jsonReport(result).find("\"not-cut\": 7"), std::string::npos);
}

// So many passes along one line, each `step` deeper than the one before.
std::string passes(int count, double step, const std::string& more = "") {
    std::string program = kHead;
    for (int pass = 0; pass < count; ++pass) {
        program +=
            "G0 X0 Y0\nG1 Z" + std::to_string(-1 - pass * step) + " F100\nG1 X9 F600\nG0 Z2\n";
    }
    return program + more + kTail;
}

TEST(Check, TellsOfACrowdOfCutsWhatItTellsOfAFew) {
    Drawing drawing;
    drawing.shapes.assign(5, lineShape({0, 0}, {9, 0}));
    for (const int count : {3, 200}) {
        const CheckResult result = check(passes(count, 0), {}, &drawing);
        ASSERT_EQ(kindsOf(result), std::vector<std::string>(5, "cut-twice")) << count;
        for (const Finding& finding : result.findings) {
            EXPECT_EQ(finding.line, 12U) << count;
            EXPECT_NE(finding.sentence.find("here and in line 8 already: 9 mm of 9 mm"),
                      std::string::npos)
                << finding.sentence;
        }
        EXPECT_EQ(kindsOf(check(passes(count, 0.01), {}, &drawing)), std::vector<std::string>());
        const std::string again = "G0 X3 Y0\nG1 Z-1 F100\nG1 X5 F600\nG0 Z2\n";
        const CheckResult last = check(passes(count, 0.01, again), {}, &drawing);
        ASSERT_EQ(kindsOf(last), std::vector<std::string>(5, "cut-twice")) << count;
        EXPECT_NE(last.findings.front().sentence.find(": 2 mm of 9 mm, from X3 Y0 to X5 Y0"),
                  std::string::npos)
            << last.findings.front().sentence;
        EXPECT_EQ(last.findings.front().line, static_cast<std::uint32_t>(8 + 4 * count));
    }
}

Drawing circleOfRadiusFive() {
    Shape circle;
    circle.kind = ShapeKind::Circle;
    circle.radius = 5;
    Drawing drawing;
    drawing.shapes = {circle};
    return drawing;
}

TEST(Check, ChordsOfACircleCutAgainAreCutTwiceThoughAHairIsMissingWhereTheyJoin) {
    const Drawing drawing = circleOfRadiusFive();
    std::string program = kHead + "G0 X5.01 Y0\nG1 Z-1 F100\nF600\n";
    for (int turn = 0; turn < 2; ++turn) {
        for (int chord = 1; chord <= 180; ++chord) {
            const double angle = chord * 2 * 3.14159265358979323846 / 180;
            program += "G1 X" + numberText(5.01 * std::cos(angle)) + " Y" +
                       numberText(5.01 * std::sin(angle)) + "\n";
        }
    }
    const CheckResult result = check(program + kTail, {}, &drawing);
    ASSERT_EQ(kindsOf(result), std::vector<std::string>{"cut-twice"}) << textReport(result);
    EXPECT_NEAR(result.findings.front().numbers.front().value, 31.4159, 0.01);
}

TEST(Check, TheJoinsOfVeryShortChordsAreNoSecondCut) {
    const Drawing drawing = circleOfRadiusFive();
    for (const double radius : {4.985, 5.0, 5.015}) {
        std::string program = kHead + "G0 X" + numberText(radius) + " Y0\nG1 Z-1 F100\nF600\n";
        for (int chord = 1; chord <= 4000; ++chord) {
            const double angle = chord * 2 * 3.14159265358979323846 / 4000;
            program += "G1 X" + numberText(radius * std::cos(angle)) + " Y" +
                       numberText(radius * std::sin(angle)) + "\n";
        }
        EXPECT_EQ(kindsOf(check(program + kTail, {}, &drawing)), std::vector<std::string>())
            << radius;
    }
}

const Finding* firstOf(const CheckResult& result, FindingKind kind) {
    for (const Finding& finding : result.findings) {
        if (finding.kind == kind) {
            return &finding;
        }
    }
    return nullptr;
}

TEST(Check, AnUprightArcCutsExactlyWhereItIsBelowTheSurface) {
    // From X-10 Z15 down to the depth and up again to X20 Z15.
    for (const double depth : {0.01, 1.0, 5.0}) {
        const double middle = (450 - depth * depth) / (30 + 2 * depth);
        const double half = std::sqrt((middle + depth) * (middle + depth) - middle * middle);
        Drawing drawing;
        drawing.shapes = {lineShape({-50, 0}, {50, 0})};
        CheckOptions options;
        options.tolerance = 0.001;
        const std::string program = kHead + "G0 X-10 Y0\nG0 Z15\nG18 F100\nG2 X20 Z15 I15 K" +
                                    numberText(middle - 15, 9) + "\n" + kTail;
        const CheckResult result = check(program, options, &drawing);
        ASSERT_EQ(result.reading.stopLine, 0U) << textReport(result);
        const Finding* const missing = firstOf(result, FindingKind::NotCut);
        ASSERT_NE(missing, nullptr) << textReport(result);
        EXPECT_NEAR(missing->place->to.x, 5 - half - options.tolerance, 1e-5) << depth;
        EXPECT_EQ(firstOf(result, FindingKind::CutOffDrawing), nullptr);
    }
}

TEST(Check, AnUprightHelixIsOffItsPathByLessThanTheTolerance) {
    // A turn in G18 with a radius of 200 that goes along Y: seen from above no straight line.
    const std::string program = kHead + "G0 Z-1\nG18 F100\nG2 X0 Y40 Z-1 I0 K-200\n" + kTail;
    Drawing drawing;
    CheckOptions options;
    options.tolerance = 0.002;
    const double turn = 2 * 3.14159265358979323846;
    const auto at = [turn](int place) {
        const double t = place / 5000.0;
        return PlanePoint{-200 * std::sin(turn * t), 40 * t};
    };
    for (int part = 0; part < 5000; ++part) {
        drawing.shapes.push_back(lineShape(at(part), at(part + 1)));
    }
    const CheckResult result = check(program, options, &drawing);
    EXPECT_EQ(firstOf(result, FindingKind::CutOffDrawing), nullptr) << textReport(result);
    EXPECT_EQ(firstOf(result, FindingKind::NotCut), nullptr);
    EXPECT_EQ(result.shapesCut, drawing.shapes.size());
}

TEST(Check, ManyTurnsOfAnUprightArcDoNotFillTheMemory) {
    Drawing drawing;
    drawing.shapes = {lineShape({-5, 0}, {5, 0})};
    const CheckResult result =
        check(kHead + "G1 Z-5 F9\nG18\nG2 X0 Z-5 I0 K5 P5000.0000\n" + kTail, {}, &drawing);
    EXPECT_EQ(result.reading.stopLine, 0U) << textReport(result);
    EXPECT_TRUE(result.coverageJudged);
}

TEST(Check, APlaceNamesItsMotionAndBothCoordinates) {
    Drawing drawing;
    drawing.mmPerUnit = 25.4;
    drawing.shapes = {lineShape({1, 1}, {3, 1})};
    const std::string program =
        kHead + "G0 X25.4 Y25.4\nG1 Z-1 F100\nG1 X76.2 F600\nG1 Y50.8\n" + kTail;
    const CheckResult result = check(program, {}, &drawing);
    ASSERT_EQ(kindsOf(result), std::vector<std::string>{"cut-off-drawing"});
    const Finding& finding = result.findings.front();
    ASSERT_TRUE(finding.place);
    EXPECT_EQ(finding.line, 9U);
    EXPECT_EQ(result.reading.motions.at(*finding.place->firstMotion).line, 9U);
    EXPECT_NEAR(finding.place->to.x, 76.2, 1e-9);
    EXPECT_NEAR(finding.place->to.y, 50.8, 1e-9);
    EXPECT_NEAR(finding.place->to.z, -1, 1e-9);
    EXPECT_NEAR(finding.place->drawingTo.x, 3, 1e-9);
    EXPECT_NEAR(finding.place->drawingTo.y, 2, 1e-9);
    // The tolerance is in the drawing's unit, so the first half millimetre counts as cut.
    EXPECT_NEAR(finding.place->from.y, 25.4 + 0.02 * 25.4, 1e-6);
}

TEST(Check, WhatStandsBehindARejectedLineIsNotCalledUncut) {
    Drawing drawing;
    drawing.shapes = {lineShape({10, 10}, {20, 10})};
    const std::string cut = "G0 X10 Y10\nG1 Z-1 F100\nG1 X20 F600\n";
    const CheckResult before = check(kHead + "G999\n" + cut + kTail, {}, &drawing);
    EXPECT_EQ(kindsOf(before), std::vector<std::string>{"controller-rejects"});
    EXPECT_FALSE(before.coverageJudged);
    const CheckResult behind = check(kHead + cut + "G999\n" + kTail, {}, &drawing);
    EXPECT_EQ(kindsOf(behind), std::vector<std::string>{"controller-rejects"});
    EXPECT_TRUE(behind.coverageJudged);
    EXPECT_EQ(behind.shapesCut, 1U);
}

TEST(Check, EveryGapOfAnObjectIsNamed) {
    Drawing drawing;
    drawing.shapes = {lineShape({0, 0}, {30, 0})};
    const CheckResult result = check(kHead + "G0 X10\nG1 Z-1 F100\nG1 X20\n" + kTail, {}, &drawing);
    ASSERT_EQ(kindsOf(result), (std::vector<std::string>{"not-cut", "not-cut"}));
    const Place& before = *result.findings[0].place;
    const Place& behind = *result.findings[1].place;
    EXPECT_NEAR(before.drawingFrom.x, 0, 1e-9);
    EXPECT_NEAR(before.drawingTo.x, 9.98, 1e-9);
    EXPECT_NEAR(behind.drawingFrom.x, 20.02, 1e-9);
    EXPECT_NEAR(behind.drawingTo.x, 30, 1e-9);
}

TEST(Check, SaysInPlainWordsWhatARejectedLineOfThePanelLacks) {
    const auto sentenceOf = [](const std::string& line) {
        const CheckResult result = check(kHead + line + "\n" + kTail);
        return result.findings.empty() ? std::string() : result.findings.front().sentence;
    };
    EXPECT_EQ(sentenceOf("G0 X1e-05"),
              "A controller stops here: found a number with an exponent, as very small and very "
              "large ones are written; numbers must be plain.");
    EXPECT_NE(sentenceOf("Safe height G0 X0 Y0;").find("Remarks must stand in parentheses"),
              std::string::npos);
    EXPECT_NE(sentenceOf("G83 X1 Y1 Z-2R1P0.5Q0.5F100").find("A dwell does not belong to G83"),
              std::string::npos);
    EXPECT_EQ(sentenceOf("G0 X1 (a remark)"), "");
    EXPECT_EQ(sentenceOf("G0 X4 YY40"),
              "A controller stops here: found Y, expected a number after Y.");
    EXPECT_EQ(sentenceOf("G0 W#<depth of cut>"),
              "A controller stops here: found W, expected an axis of X, Y, Z, A, B, C.");
    EXPECT_EQ(sentenceOf("GO X4"),
              "A controller stops here: found the letter O; a zero was meant?");
    EXPECT_EQ(sentenceOf("GO XO YO"),
              "A controller stops here: found the letter O; a zero was meant?");
    EXPECT_EQ(sentenceOf("go to X4"),
              "A controller stops here: found o, expected a number after G. Remarks must stand in "
              "parentheses or behind a semicolon.");
    EXPECT_EQ(sentenceOf("G0 X4 O2"),
              "A controller stops here: found the letter O in the middle of a line. In a number a "
              "zero was meant; an O word must be the first of its line.");
    EXPECT_EQ(sentenceOf("F9 G18 G2 X4 J4")
                  .find("A controller stops here: found J, expected I and "
                        "K, the offsets of the plane XZ (G18)."),
              0U);
}

TEST(Check, SaysThatDecimalsStandBehindAPointNotBehindAComma) {
    const auto sentenceOf = [](const char* program) {
        return check(program, {}, nullptr).findings.front().sentence;
    };
    EXPECT_EQ(sentenceOf("G21\nG0 X10,5\n"),
              "A controller stops here: found a comma within a number; decimals stand behind a "
              "point.");
    EXPECT_EQ(sentenceOf("G21\nG0 X10, Y5\n"),
              "A controller stops here: found ,, expected a word or a comment.");
}

// Of the first finding.
std::string sentenceOf(const std::string& program) {
    const CheckResult result = check(program);
    return result.findings.empty() ? "" : result.findings.front().sentence;
}

TEST(Check, SaysThatLinesEndWithCarriageReturnsAlone) {
    EXPECT_EQ(
        sentenceOf("G21\rG0 X1\rG0 X2\rM30\r")
            .find(
                "A controller stops here: the lines of this file end with carriage returns alone"),
        0U);
    EXPECT_EQ(sentenceOf("G21\r\nG0 X1\r\nG0 X2\r\nM30\r\n"), "");
}

TEST(Check, SaysWhyAFeedOrASpeedIsMissing) {
    const std::string cut = "G1 Z-1\nG1 X5\n" + kTail;
    const std::string rest = " What the program cuts from here on was not checked.";
    const std::string begin = "The tool is to cut, but ";
    EXPECT_EQ(
        sentenceOf(kHead + cut),
        begin + "no feed is set, a controller stops here: an F word above 0 is missing." + rest);
    EXPECT_EQ(sentenceOf(kHead + "F0\n" + cut),
              begin +
                  "the feed is 0, a controller stops here: F0 stands in line 6, it must be "
                  "above 0." +
                  rest);
    EXPECT_EQ(sentenceOf(kHead + "F9\nG94\n" + cut).find(begin + "the F word in line 6 does not"),
              0U);
    EXPECT_EQ(sentenceOf("M3 S0\nG21\nG0 X0Y0Z5\nF9\n" + cut),
              "The tool cuts, but the spindle is on with speed 0: S0 stands in line 1, it must be "
              "above 0.");
    EXPECT_EQ(sentenceOf("M3\nG21\nG0 X0Y0Z5\nF9\n" + cut),
              "The tool cuts, but the spindle is on with speed 0: no S word was given.");
}

TEST(Check, SaysWhatEndsItFromWhichLineOnAndWhatToDo) {
    const auto foundIn = [](const std::string& line) {
        const std::string sentence = sentenceOf(kHead + line + "\n" + kTail);
        const std::string begin = "The check ends here: ";
        EXPECT_EQ(sentence.find(begin), 0U) << sentence;
        const std::size_t middle = sentence.find(". From line 6 of 9 on nothing was checked. ");
        EXPECT_NE(middle, std::string::npos) << sentence;
        return sentence.substr(begin.size(), middle - begin.size());
    };
    EXPECT_EQ(foundIn("O12 (a name)"),
              "O12 is the number of the program or of a subroutine (an O word)");
    EXPECT_EQ(foundIn("o<a b> call [1]"),
              "o<a b> call belongs to a subroutine, a loop or a condition (an O word)");
    EXPECT_EQ(foundIn("#<depth>=3"),
              "#<depth> is a parameter, whose value only the controller knows");
    EXPECT_EQ(foundIn("#<\x1b[1m\xff>=3"),
              "#<?[1m?> is a parameter, whose value only the controller knows");
    EXPECT_EQ(
        foundIn("#<" + std::string(200, 'a') + ">=3"),
        "#<" + std::string(38, 'a') + "... is a parameter, whose value only the controller knows");
    EXPECT_EQ(foundIn("G0 X#12"), "#12 is a parameter, whose value only the controller knows");
    EXPECT_EQ(foundIn("G0 X[1+2]"), "the controller is to reckon an expression here");
    EXPECT_EQ(foundIn("G84 Z-1 R2"), "G84 (tapping) is not followed by the check");
    EXPECT_EQ(foundIn("g 33.1 Z-1 K1"), "g 33.1 (cutting a thread) is not followed by the check");
    EXPECT_EQ(foundIn("M19 R5"),
              "M19 (turning the spindle to an angle) is not followed by the check");
    EXPECT_EQ(foundIn("T4 M6 G41 D4"),
              "G41 without a known diameter of tool 4 is not followed by the check");
    EXPECT_EQ(
        foundIn("G42"),
        "G42 without a known diameter of the tool in the spindle is not followed by the check");
    EXPECT_EQ(foundIn("M190"),
              "M190 (a command of its machine alone) is not followed by the check");
    EXPECT_EQ(foundIn("G10 L1 P1 Z1"),
              "G10 L1 (a change of the tool table) is not followed by the check");
    EXPECT_EQ(foundIn("M123"),
              "M123 (a command of its machine alone) is not followed by the check");
}

TEST(Check, SaysHowADiameterIsToldBothToTheCommandAndToTheWindow) {
    const auto todoIn = [](const std::string& line) {
        const std::string sentence = sentenceOf(kHead + line + "\n" + kTail);
        return sentence.substr(sentence.find("checked. ") + 9);
    };
    EXPECT_EQ(
        todoIn("T4 M6 G42 D4"),
        "Say how wide it is, if it has 6 mm: --tool 4=6 on the command line, 4=6 under Tools in "
        "the window; or write G42.1 with its diameter as D.");
    EXPECT_EQ(
        todoIn("T12 M6 G41"),
        "Say how wide it is, if it has 6 mm: --tool 12=6 on the command line, 12=6 under Tools "
        "in the window; or write G41.1 with its diameter as D.");
    EXPECT_EQ(todoIn("G41"),
              "Name the tool in the program (T4 M6) and say how wide it is, if it has 6 mm: --tool "
              "4=6 on the command line, 4=6 under Tools in the window; or write G41.1 with its "
              "diameter as D.");
}

TEST(Check, TellsOfTheFirstLineOnlyThatItDoesNotFollow) {
    const CheckResult result = check(kHead + "O1 sub\nG0 X#1\nO1 endsub\n" + kTail);
    EXPECT_EQ(kindsOf(result), std::vector<std::string>{"not-interpreted"});
    EXPECT_TRUE(hasErrors(result));
    const CheckResult behind = check(kHead + "G999\nG0 X#1\n" + kTail);
    ASSERT_EQ(kindsOf(behind), (std::vector<std::string>{"controller-rejects", "not-interpreted"}));
    EXPECT_EQ(behind.findings[1].sentence.find("Once line 6 is mended, the check will end here: "),
              0U);
}

TEST(Check, AFileThatIsNoTextHasOneErrorWhateverItHolds) {
    std::string bytes;
    for (int at = 0; at < 100000; ++at) {
        bytes += static_cast<char>(at * 7919 % 251);
    }
    const Drawing drawing;
    const CheckResult result = check(bytes, {}, &drawing);
    EXPECT_EQ(kindsOf(result), std::vector<std::string>{"controller-rejects"});
    EXPECT_EQ(result.findings[0].sentence.find("This is not a text: "), 0U);
    // Three such bytes may stand in a text, as a tape's leader or by mistake.
    const std::string leader(3, '\0');
    EXPECT_EQ(sentenceOf(leader + kHead).find("A controller stops here: found byte 0x00"), 0U);
}

TEST(Check, AMovedZeroIsToldOncePerChangeAndNotAtHomeAgain) {
    const std::string cut = "G0 X1\nG1 Z-1 F9\nX2\nG0 Z5\n";
    const auto linesOf = [&cut](const std::string& first, const std::string& second,
                                const std::string& third) {
        const CheckResult result = check(kHead + first + cut + second + cut + third + cut + kTail);
        std::vector<std::uint32_t> lines;
        for (const Finding& finding : result.findings) {
            EXPECT_EQ(finding.kind, FindingKind::ZeroMoved) << finding.sentence;
            lines.push_back(finding.line);
        }
        return lines;
    };
    using Lines = std::vector<std::uint32_t>;
    EXPECT_EQ(linesOf("G52 X5\n", "G52 X5\n", "G52 X5\n"), (Lines{6}));
    EXPECT_EQ(linesOf("G52 X5\n", "G52 X6\n", "G52 X0\n"), (Lines{6, 11}));
    EXPECT_EQ(linesOf("G54\n", "G55\n", "G54\n"), (Lines{11}));
    EXPECT_EQ(linesOf("G55\n", "G54\n", "G55\n"), (Lines{6, 16}));
    EXPECT_EQ(linesOf("G55\n", "G56\n", "G56\n"), (Lines{6, 11}));
    EXPECT_EQ(linesOf("G92 Z6\n", "G92.2\n", "G92.3\n"), (Lines{6, 16}));
    EXPECT_EQ(linesOf("G92 Z6\nG92.1\n", "G43 H1\n", "G49\n").size(), 0U);
    EXPECT_EQ(linesOf("G10 L2 P2 X5\n", "G10 L2 P1 X0\n", "G10 L2 P1 X0\n"), (Lines{11}));
}

TEST(Check, SaysHowFarAZeroIsMovedWhereTheProgramTellsIt) {
    const std::string cut = "G1 Z-1 F9\nX2\n" + kTail;
    const auto foundIn = [&cut](const std::string& lines) {
        const std::string sentence = sentenceOf(kHead + lines + cut);
        const std::string begin = "The zero is moved here ";
        EXPECT_EQ(sentence.find(begin), 0U) << sentence;
        return sentence.substr(begin.size(), sentence.find(". From") - begin.size());
    };
    EXPECT_EQ(foundIn("G52 X1 Y-2 Z3\n"), "(G52), by X1 Y-2 Z3 mm");
    EXPECT_EQ(foundIn("G0 X4\nG92 X1\n"), "(G92), by X3 Y0 Z0 mm");
    EXPECT_EQ(foundIn("G0 X4\nG10 L20 P1 X1\n"), "(G10 L20), by X3 Y0 Z0 mm");
    EXPECT_EQ(foundIn("G55\nM70\nG54\nM72\n"),
              "(M72), how far in X, Y, Z the program does not tell");
    EXPECT_EQ(foundIn("G52 Z1\nG55\n"), "(G55), how far in X, Y, Z the program does not tell");
    EXPECT_EQ(foundIn("G10 L2 P1 X3\nG52 Y1\n"),
              "(G52), by Y1 Z0 mm, how far in X the program does not tell");
    EXPECT_EQ(foundIn("G28 X0\nG92 X1 Y1\n").find("(G92), how far in X, Y the"), 0U);
    EXPECT_EQ(foundIn("G10 L2 P1 R30\n"), "(G10 L2), turned by 30 degrees");
}

TEST(Check, AnEmptySelectionMakesEveryCutOneTooMany) {
    const Drawing drawing;
    const CheckResult result =
        check(kHead + "G0 X10 Y10\nG1 Z-1 F100\nG1 X20 F600\n" + kTail, {}, &drawing);
    EXPECT_EQ(kindsOf(result), std::vector<std::string>{"cut-off-drawing"});
}

TEST(Check, ObjectsWithNumbersThatAreNoneAreNeverCut) {
    Drawing drawing;
    const double none = std::numeric_limits<double>::quiet_NaN();
    drawing.shapes = {lineShape({10, 10}, {20, 10}), lineShape({none, 0}, {1, 1}),
                      lineShape({0, 0}, {INFINITY, 1})};
    const CheckResult result =
        check(kHead + "G0 X10 Y10\nG1 Z-1 F100\nG1 X20 F600\n" + kTail, {}, &drawing);
    EXPECT_EQ(kindsOf(result), (std::vector<std::string>{"not-cut", "not-cut"}));
}

TEST(Check, EqualInputGivesEqualBytes) {
    Drawing drawing;
    for (int at = 0; at < 50; ++at) {
        drawing.shapes.push_back(lineShape({1.0 * at, 0}, {1.0 * at, 9}));
    }
    const std::string program = kHead + "G0 X10 Y10\nG1 Z-1 F100\nG1 X20 F600\nG1 Y0\nG1 X0\n";
    const CheckResult first = check(program, {}, &drawing);
    const CheckResult second = check(program, {}, &drawing);
    EXPECT_EQ(textReport(first), textReport(second));
    EXPECT_EQ(jsonReport(first), jsonReport(second));
    EXPECT_GT(first.findings.size(), 40U);
}

TEST(Check, ACutExactlyAtTheToleranceIsOnItsObject) {
    Drawing drawing;
    drawing.shapes = {lineShape({10, 10}, {50, 10})};
    const auto kindsAt = [&drawing](const char* y) {
        return kindsOf(
            check(kHead + "G0 X10 Y" + y + "\nG1 Z-1 F100\nG1 X50 F600\n" + kTail, {}, &drawing));
    };
    EXPECT_TRUE(kindsAt("10.0199").empty());
    EXPECT_EQ(kindsAt("10.0201"), (std::vector<std::string>{"cut-off-drawing", "not-cut"}));
}

TEST(Check, ManyObjectsAndManyMovesTakeSeconds) {
    std::string program = kHead + "F600\n";
    Drawing drawing;
    for (int at = 0; at < 20000; ++at) {
        const double x = at % 200 * 5;
        const double y = (at - at % 200) / 200.0 * 5;
        drawing.shapes.push_back(lineShape({x, y}, {x + 4, y + 3}));
        const std::string start = "X" + std::to_string(x) + " Y" + std::to_string(y);
        const std::string end = "X" + std::to_string(x + 4) + " Y" + std::to_string(y + 3);
        program += "G0 Z2\nG0 " + start + "\nG1 Z-1\nG1 " + end + "\n";
    }
    const CheckResult result = check(program + kTail, {}, &drawing);
    EXPECT_TRUE(result.findings.empty()) << textReport(result);
    EXPECT_EQ(result.shapesCut, 20000U);
}

}  // namespace
}  // namespace gcode_check
