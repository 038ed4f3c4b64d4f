// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Check.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

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
