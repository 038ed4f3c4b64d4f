// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "ReadingText.h"

using gcode_check::FactKind;
using gcode_check::MachineOptions;
using gcode_check::read;
using gcode_check::Reading;

namespace {

std::string factsOf(const std::string& program) {
    static const char* const names[] = {"n",       "unit",  "distance", "system", "spindle",
                                        "feed",    "speed", "tool",     "end",    "percent",
                                        "comment", "slash", "after"};
    std::ostringstream out;
    for (const gcode_check::Fact& fact : read(program).facts) {
        out << fact.line << names[static_cast<int>(fact.kind)] << fact.value << " ";
    }
    return out.str();
}

}  // namespace

TEST(Reading, SaysWhatStandsInTheLines) {
    EXPECT_EQ(factsOf("N5 G21 G90 (a)\nM3 S100 F5 T1\nG55\nM30"),
              "1comment12 1n5 1unit21 1distance90 2feed5 2speed100 2tool1 2spindle3 3system2 "
              "4end30 ");
}

TEST(Reading, LinesBehindTheEndAndBehindARejectedOneHaveFactsButNoSteps) {
    const std::string program = "G0 X1\nM2\nN3 G20\n\nM30";
    EXPECT_EQ(factsOf(program), "2end2 3after1 3n3 3unit20 5after1 5end30 ");
    EXPECT_EQ(stepsOf(program), "rapid 1 0 0 | end");
    EXPECT_EQ(read(program).endLine, 2U);
    EXPECT_TRUE(read(program).diagnostics.empty());

    const Reading stopped = read("G0 X1 Q1\nG20 G0 X5\nG0 X1 X2\nM30");
    EXPECT_EQ(stopped.stopLine, 1U);
    EXPECT_TRUE(stopped.motions.empty());
    EXPECT_EQ(stopped.facts.size(), 2U);
    ASSERT_EQ(stopped.diagnostics.size(), 2U);
    EXPECT_EQ(stopped.diagnostics[1].line, 3U);
    EXPECT_EQ(stopped.endLine, 0U);
}

TEST(Reading, PercentLinesOpenAndCloseAProgram) {
    EXPECT_EQ(stepsOf("\n%\nG0 X1\n % \nG0 X2"), "rapid 1 0 0 | end");
    EXPECT_EQ(stepsOf("%\nG0 X1\nM2\n%"), "rapid 1 0 0 | end");
    EXPECT_EQ(stepsOf("G0 X1\n%"), "rapid 1 0 0 ! 2:1 program-not-opened");
    EXPECT_EQ(stopOf("% text"), "1:1 unknown-character");
}

TEST(Reading, StateIsThatAfterTheLastLine) {
    const Reading reading = read("G20 G91 G18 G99 G55 S500 M3 M8 T4 M6\nG0 X1 F2\nG92 X0");
    EXPECT_TRUE(reading.state.inches);
    EXPECT_TRUE(reading.state.relative);
    EXPECT_EQ(reading.state.plane, gcode_check::Plane::XZ);
    EXPECT_EQ(reading.state.system, 2);
    EXPECT_EQ(reading.state.spindle, gcode_check::Spindle::Clockwise);
    EXPECT_EQ(reading.state.coolant, 2);
    EXPECT_EQ(reading.state.tool, 4);
    EXPECT_EQ(reading.state.motionMode, 0);
    EXPECT_DOUBLE_EQ(reading.state.feed, 50.8);
    EXPECT_DOUBLE_EQ(reading.state.position.x, 25.4);
    EXPECT_TRUE(reading.state.offset92On);
    EXPECT_DOUBLE_EQ(reading.state.offset92.x, 25.4);
}

TEST(Reading, EachStepBeginsWhereTheOneBeforeEnded) {
    const Reading reading =
        read("G0 X1 Y1 F9\nG92 X9 Y9\nG1 X8\nG10 L2 P2 X3 R30\nG55 X1 Y2\nG43.1 Z3\nG2 I3\nG20 X2");
    ASSERT_GE(reading.motions.size(), 4U);
    for (std::size_t i = 1; i < reading.motions.size(); ++i) {
        EXPECT_EQ(reading.motions[i].from, reading.motions[i - 1].to) << i;
    }
}

TEST(Reading, FrameLeadsFromMachineToProgramAndBack) {
    const Reading reading = read("G10 L2 P1 X10 Y20 Z30 R30\nG0 X1 Y2 Z3");
    const gcode_check::Motion& motion = reading.motions.at(0);
    const gcode_check::Frame& frame = reading.frames.at(motion.frame);
    const gcode_check::Point program = toProgram(frame, motion.to);
    EXPECT_NEAR(program.x, 1, 1e-12);
    EXPECT_NEAR(program.y, 2, 1e-12);
    EXPECT_NEAR(program.z, 3, 1e-12);
    const gcode_check::Point machine = toMachine(frame, program);
    EXPECT_NEAR(machine.x, motion.to.x, 1e-12);
    EXPECT_NEAR(machine.y, motion.to.y, 1e-12);
}

TEST(Reading, AFewWordsCannotAskForMoreStepsThanTheLimit) {
    MachineOptions options;
    options.motionsBesides = 1000;
    for (const std::string& program : std::vector<std::string>{
             "F9\nG81 X1 Z-1 R1 L2000000000\nG0 X1", "F9\nG83 X1 Z-1000000000 R1 Q.0001",
             "F9\nG73 X1 Z-100000000000000000000000 R100000000000000000000000 Q1"}) {
        const Reading reading = read(program, options);
        EXPECT_LE(reading.motions.size(), 1000U + 4U * 3U + 4U) << program;
        ASSERT_EQ(reading.diagnostics.size(), 1U) << program;
        EXPECT_EQ(reading.diagnostics[0].rule, gcode_check::Rule::TooManyMotions);
        EXPECT_EQ(reading.stopLine, 2U);
    }
}

TEST(Reading, DiagnosticsAreBoundedAndTheRestIsCounted) {
    std::string program;
    for (int i = 0; i < 2000; ++i) {
        program += "G0 X1 X2\n";
    }
    const Reading reading = read(program);
    EXPECT_EQ(reading.diagnostics.size(), 1000U);
    EXPECT_EQ(reading.diagnosticsLeftOut, 1000U);
}

TEST(Reading, HugeNumbersAreReadAndNotConvertedPastTheirLimits) {
    const std::string huge = std::string(200, '9');
    for (const std::string& program : std::vector<std::string>{
             "G0 X" + huge, "G20 G0 X" + huge, "F9\nG2 X1 I" + huge, "F9\nG2 X" + huge + " R5",
             "T" + huge, "L" + huge, "G10 L2 P" + huge, "G" + huge, "M" + huge,
             "N" + huge + " G0 X1", "M61 Q" + huge, "F9\nG2 I5 P" + huge, "H" + huge,
             "F9\nG81 Z-1 R1 L" + huge,
             "F9\nG0 X" + huge + "\nX-" + huge + "\nG91 G2 I" + huge + " J-" + huge}) {
        const Reading reading = read(program);
        EXPECT_EQ(reading.lines,
                  static_cast<std::uint32_t>(1 + std::count(program.begin(), program.end(), '\n')));
    }
}
