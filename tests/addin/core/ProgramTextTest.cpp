// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/ProgramText.h"

#include <gtest/gtest.h>

#include "CommaLocale.h"

using GCode::ArcGeometry;
using GCode::DrillCycle;
using GCode::drillCycleText;
using GCode::DrillSettings;
using GCode::MotionMode;
using GCode::motionModeFromText;
using GCode::Point;
using GCode::PositionAndFeed;
using GCode::postambleText;
using GCode::preambleText;
using GCode::ToolPathSettings;
using GCode::ToolPathWriter;

namespace {

const Point kOrigin;

ToolPathSettings settingsFor(MotionMode mode) {
    ToolPathSettings settings{mode, 300, 100, {}};
    settings.parameters.SetParams(5, 10, -1, mm);
    return settings;
}

std::string approach(const std::string& travel, const std::string& feed) {
    return "G01 Z5 " + feed + "\nG0 Z10\nG0 " + travel + "\nG0 Z5\nG01 Z-1 " + feed + "\n";
}

/// A writer with its own tool state, as one generation has it.
struct Generation {
    explicit Generation(MotionMode mode) : writer(settingsFor(mode), &state) {}
    PositionAndFeed state;
    ToolPathWriter writer;
};

const DrillSettings kDrill{-2, 1, 100, 0.5, 0.25};

}  // namespace

TEST(MotionModeText, IsRelativeForExactlyThatWord) {
    EXPECT_EQ(motionModeFromText("Relative"), MotionMode::relative);
    for (const char* text : {"Absolute", "relative", "RELATIVE", "Relative ", ""}) {
        EXPECT_EQ(motionModeFromText(text), MotionMode::absolute) << text;
    }
}

TEST(PreambleText, HoldsTheTypedTextTheModeAndTheStartLine) {
    EXPECT_EQ(preambleText("M3\nG21", MotionMode::absolute, kOrigin), "M3\nG21\nG90\nG0 X0Y0\n");
    EXPECT_EQ(preambleText("M3\nG21", MotionMode::relative, kOrigin), "M3\nG21\nG91\nG0 X0Y0\n");
}

TEST(PreambleText, KeepsAnEmptyTextAsABlankLine) {
    EXPECT_EQ(preambleText("", MotionMode::absolute, kOrigin), "\nG90\nG0 X0Y0\n");
}

TEST(PreambleText, WritesTheStartWithoutItsZ) {
    EXPECT_EQ(preambleText("%", MotionMode::absolute, Point(1.5, -2.25, 7)),
              "%\nG90\nG0 X1.5Y-2.25\n");
}

TEST(PostambleText, IsTheTypedTextAndALineFeed) {
    EXPECT_EQ(postambleText("G0 Z50;\nSafe height G0 X0 Y0;\nM30; Rewind program"),
              "G0 Z50;\nSafe height G0 X0 Y0;\nM30; Rewind program\n");
    EXPECT_EQ(postambleText(""), "\n");
}

TEST(ProgramText, OfAnEmptySelectionIsPreambleAndPostambleOnly) {
    EXPECT_EQ(preambleText("G21", MotionMode::absolute, kOrigin) +
                  drillCycleText(DrillCycle::g81, kDrill, MotionMode::absolute, {}) +
                  postambleText("M30"),
              "G21\nG90\nG0 X0Y0\nM30\n");
}

TEST(ToolPathAbsolute, APointKeepsItsCoordinates) {
    Generation generation(MotionMode::absolute);
    EXPECT_EQ(generation.writer.point({3.00004, 0.005, 0}), approach("X3.00004 Y0.005 ", "F100"));
    EXPECT_EQ(generation.state.GetPoint(), Point(3.00004, 0.005, 0));
}

TEST(ToolPathAbsolute, JoinedLinesAreOneCut) {
    Generation generation(MotionMode::absolute);
    EXPECT_EQ(generation.writer.line({0, 0, 0}, {10, 0, 0}), "G01 X10 Y0 F300\n");
    EXPECT_EQ(generation.writer.line({10, 0, 0}, {10, 5, 0}), "G01 X10 Y5 \n");
}

TEST(ToolPathAbsolute, ACircleIsCounterClockwiseWithItsCentreOffsets) {
    Generation generation(MotionMode::absolute);
    const ArcGeometry circle{{15, 5, 0}, {15, 5, 0}, {10, 5, 0}, 5};
    EXPECT_EQ(generation.writer.arc(circle),
              approach("X15 Y5", "F100") + "G03 X15 Y5 I-5 J0 F300\n");
}

TEST(ToolPathAbsolute, WhatFollowsAnArcApproachesAnewThoughItBeginsAtTheArcsEnd) {
    Generation generation(MotionMode::absolute);
    EXPECT_EQ(generation.writer.arc({{0, 0, 0}, {10, 0, 0}, {5, 0, 0}, 5}),
              "G03 X10 Y0 I5 J0 F300\n");
    EXPECT_EQ(generation.writer.line({10, 0, 0}, {20, 0, 0}),
              approach("X10 Y0", "F100") + "G01 X20 Y0 F300\n");
}

TEST(ToolPathAbsolute, WhatFollowsAnArcIsJoinedWhenItBeginsWhereTheArcDid) {
    Generation generation(MotionMode::absolute);
    generation.writer.arc({{0, 0, 0}, {10, 0, 0}, {5, 0, 0}, 5});
    EXPECT_EQ(generation.writer.line({0, 0, 0}, {20, 0, 0}), "G01 X20 Y0 \n");
}

TEST(ToolPathAbsolute, ArcOffsetsAreCountedFromTheRoundedStart) {
    Generation generation(MotionMode::absolute);
    // 0.005 lies in the dead band around zero, so the offset is counted from 0.
    EXPECT_EQ(generation.writer.arc({{0.005, 0, 0}, {10, 0, 0}, {5, 0, 0}, 5}),
              approach("X0.005 Y0", "F100") + "G03 X10 Y0 I5 J0 F300\n");
}

TEST(ToolPathRelative, PointsAreDifferencesFromTheLastPoint) {
    Generation generation(MotionMode::relative);
    EXPECT_EQ(generation.writer.point({3, 4, 0}), approach("X3 Y4 ", "F100"));
    EXPECT_EQ(generation.writer.point({13, 2, 0}), approach("X10 Y-2 ", ""));
    EXPECT_EQ(generation.state.GetPoint(), Point(10, -2, 0));
}

TEST(ToolPathRelative, APointTheSameStepAwayAgainYieldsNoText) {
    Generation generation(MotionMode::relative);
    EXPECT_NE(generation.writer.point({3, 4, 0}), "");
    EXPECT_EQ(generation.writer.point({6, 8, 0}), "");
}

TEST(ToolPathRelative, AMoveOfHalfAHundredthBecomesZero) {
    Generation generation(MotionMode::relative);
    EXPECT_EQ(generation.writer.line({0, 0, 0}, {0.005, 7, 0}), "G01 X0 Y7 F300\n");
    EXPECT_EQ(generation.writer.point({0.005, 7, 0}), approach("X0 Y0 ", "F100"));
}

TEST(ToolPathRelative, EveryCoordinateIsRoundedUpToFourDecimals) {
    Generation generation(MotionMode::relative);
    EXPECT_EQ(generation.writer.line({0, 0, 0}, {3.00004, -3.00009, 0}), "G01 X3.0001 Y-3 F300\n");
}

TEST(ToolPathRelative, ALinesEndIsADifferenceFromItsStart) {
    Generation generation(MotionMode::relative);
    EXPECT_EQ(generation.writer.line({10, 20, 0}, {15, 18, 0}),
              approach("X10 Y20", "F100") + "G01 X5 Y-2 F300\n");
    EXPECT_EQ(generation.writer.line({16, 18, 0}, {16, 28, 0}),
              approach("X1 Y0", "F100") + "G01 X0 Y10 F300\n");
}

TEST(ToolPathRelative, JoinedLinesApproachAnewBecauseTheStateHoldsDifferences) {
    Generation generation(MotionMode::relative);
    EXPECT_EQ(generation.writer.line({0, 0, 0}, {10, 0, 0}), "G01 X10 Y0 F300\n");
    EXPECT_EQ(generation.writer.line({10, 0, 0}, {10, 5, 0}),
              approach("X0 Y0", "F100") + "G01 X0 Y5 F300\n");
}

TEST(ToolPathRelative, ZIsADifferenceToo) {
    Generation generation(MotionMode::relative);
    generation.writer.line({0, 0, 1}, {10, 0, 4});
    EXPECT_EQ(generation.state.GetPoint(), Point(10, 0, 3));
}

TEST(ToolPathRelative, AnArcHasRelativeEndsAndOffsetsFromItsAbsoluteStart) {
    Generation generation(MotionMode::relative);
    generation.writer.line({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(generation.writer.arc({{12, 1, 0}, {22, 3, 0}, {17, 2, 0}, 5}),
              approach("X2 Y1", "F100") + "G03 X10 Y2 I5 J1 F300\n");
    // The last point is the arc's end.
    EXPECT_EQ(generation.writer.point({25, 7, 0}), approach("X3 Y4 ", "F100"));
}

TEST(ToolPathRelative, AFullCircleEndsAtZero) {
    Generation generation(MotionMode::relative);
    EXPECT_EQ(generation.writer.arc({{15, 5, 0}, {15, 5, 0}, {10, 5, 0}, 5}),
              approach("X15 Y5", "F100") + "G03 X0 Y0 I-5 J0 F300\n");
}

TEST(DrillCycleText, G81HasDepthRetractAndFeed) {
    EXPECT_EQ(
        drillCycleText(DrillCycle::g81, kDrill, MotionMode::absolute, {{10, 20, 0}, {30, 5, 0}}),
        "X10 Y20\nG81 Z-2R1F100\nX30 Y5\nG80\n");
}

TEST(DrillCycleText, G82HasTheDwellToo) {
    EXPECT_EQ(drillCycleText(DrillCycle::g82, kDrill, MotionMode::absolute, {{10, 20, 0}}),
              "X10 Y20\nG82 Z-2R1P0.5F100\nG80\n");
}

TEST(DrillCycleText, G83HasDwellAndPeckDepth) {
    EXPECT_EQ(drillCycleText(DrillCycle::g83, kDrill, MotionMode::absolute, {{10, 20, 0}}),
              "X10 Y20\nG83 Z-2R1P0.5Q0.25F100\nG80\n");
}

TEST(DrillCycleText, AnyOtherCycleHasNoCycleLine) {
    EXPECT_EQ(drillCycleText(static_cast<DrillCycle>(3), kDrill, MotionMode::absolute,
                             {{10, 20, 0}, {30, 5, 0}}),
              "X10 Y20\nX30 Y5\nG80\n");
}

TEST(DrillCycleText, WithoutPositionsIsEmpty) {
    for (const auto mode : {MotionMode::absolute, MotionMode::relative}) {
        EXPECT_EQ(drillCycleText(DrillCycle::g81, kDrill, mode, {}), "");
    }
}

TEST(DrillCycleText, RelativePositionsAreDifferencesButTheFirstIsAbsolute) {
    EXPECT_EQ(drillCycleText(DrillCycle::g81, kDrill, MotionMode::relative,
                             {{10, 20, 0}, {30, 5, 0}, {31, 7, 0}}),
              "X10 Y20\nG81 Z-2R1F100\nX20 Y-15\nX1 Y2\nG80\n");
}

TEST(DrillCycleText, DifferencesAreNotRoundedIntoTheDeadBand) {
    EXPECT_EQ(drillCycleText(DrillCycle::g81, kDrill, MotionMode::relative,
                             {{0, 0, 0}, {0.005, 0.00001, 0}}),
              "X0 Y0\nG81 Z-2R1F100\nX0.005 Y1e-05\nG80\n");
}

TEST(DrillCycleText, UnreadSettingsAreWrittenAsZero) {
    EXPECT_EQ(drillCycleText(DrillCycle::g83, {}, MotionMode::absolute, {{1, 2, 0}}),
              "X1 Y2\nG83 Z0R0P0Q0F0\nG80\n");
}

TEST(ProgramText, FollowsNeitherDecimalCommaNorGroupingOfTheGlobalLocale) {
    const CommaLocale comma;
    EXPECT_EQ(preambleText("", MotionMode::absolute, Point(12345.5, 0.5, 0)),
              "\nG90\nG0 X12345.5Y0.5\n");
    EXPECT_EQ(drillCycleText(DrillCycle::g83, {-2.5, 1.5, 1000, 0.5, 0.25}, MotionMode::absolute,
                             {{12345.5, 0.5, 0}}),
              "X12345.5 Y0.5\nG83 Z-2.5R1.5P0.5Q0.25F1000\nG80\n");
}
