// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cmath>

#include <gtest/gtest.h>

#include "findings/Check.h"

namespace gcode_check {
namespace {

constexpr double kPiOfTest = 3.14159265358979323846;

Figures figuresOf(const char* program, const CheckOptions& options = {}) {
    return check(program, options).figures;
}

TEST(Figures, LengthsAndTimesOfALine) {
    const Figures figures = figuresOf(
        "M3 S1000\nG21 G90\nG0 Z5\nG0 X10 Y0\nG1 Z-1 F60\nG1 X10 Y30 F120\nG4 P2\nG0 Z5\nM30\n");
    EXPECT_NEAR(figures.cuttingDepth, 1, 1e-9);
    EXPECT_NEAR(figures.cutLength, 31, 1e-9);
    EXPECT_NEAR(figures.feedLength, 36, 1e-9);
    EXPECT_NEAR(figures.rapidLength, 5 + 10 + 6, 1e-9);
    EXPECT_NEAR(figures.feedSeconds, 6 + 15, 1e-9);
    EXPECT_NEAR(figures.rapidSeconds, 21 / 5000.0 * 60, 1e-9);
    EXPECT_NEAR(figures.dwellSeconds, 2, 1e-9);
    EXPECT_EQ(figures.dwells, 1U);
    EXPECT_EQ(figures.toolDowns, 1U);
    EXPECT_EQ(figures.toolUps, 1U);
    EXPECT_EQ(figures.strokes, 0U);
}

TEST(Figures, AStrokeThatGoesNoDeeperAtTheSamePlaceIsAnother) {
    const std::string head = "M3 S1000\nG21 G90\nG0 Z5\nG0 X10 Y0\n";
    const auto strokesOf = [&head](const std::string& lines) {
        return figuresOf((head + lines + "G0 Z50\nM30\n").c_str()).strokes;
    };
    EXPECT_EQ(strokesOf("G81 Z-2 R1 F100 L3\nG80\n"), 3U);
    EXPECT_EQ(strokesOf("G83 Z-2 R1 Q.1 F100 L2\nG80\n"), 2U);
    EXPECT_EQ(strokesOf("G85 Z-2 R1 F100 L2\nG80\n"), 2U);
    EXPECT_EQ(strokesOf("G89 Z-2 R1 P0 F100 L2\nG80\n"), 2U);
    EXPECT_EQ(strokesOf("G1 Z-2 F100\nG0 Z1\nG1 Z-2\n"), 2U);
    EXPECT_EQ(strokesOf("G1 Z-2 F100\nG0 Z1\nG0 Z-1.9\nG1 Z-3\n"), 1U);
}

TEST(Figures, AreInTheProgramsUnit) {
    CheckOptions options;
    options.rapidRate = 2540;  // millimetres
    const Figures figures = figuresOf(
        "M3 S1000\nG20 G90\nG0 Z1\nG0 X10 Y0\nG1 Z-.5 F6\nG1 X12 F12\nG0 Z1\nM30\n", options);
    EXPECT_NEAR(figures.cuttingDepth, 0.5, 1e-9);
    EXPECT_NEAR(figures.cutLength, 2.5, 1e-9);
    EXPECT_NEAR(figures.moves.max.x, 12, 1e-9);
    EXPECT_NEAR(figures.feedSeconds, 15 + 10, 1e-9);
    EXPECT_NEAR(figures.rapidSeconds, (1 + 10 + 1.5) / 100 * 60, 1e-9);
}

TEST(Figures, ExtentsHoldWhereArcsTurnBackAndOnlyWhatCuts) {
    const Figures figures = figuresOf(
        "M3 S1000\nG21 G90\nG0 Z5\nG0 X10 Y0\nG1 Z-1 F60\nG3 X-10 Y0 I-10 J0\nG0 Z50\nM30\n");
    EXPECT_NEAR(figures.cutting.max.y, 10, 1e-9);
    EXPECT_NEAR(figures.cutting.min.y, 0, 1e-9);
    EXPECT_NEAR(figures.cutting.max.z, 0, 1e-9);
    EXPECT_NEAR(figures.cutting.min.z, -1, 1e-9);
    EXPECT_NEAR(figures.moves.max.z, 50, 1e-9);
    EXPECT_NEAR(figures.cutLength, 10 * kPiOfTest + 1, 1e-9);
}

TEST(Figures, AHelixIsAsLongAsItsRamp) {
    const Figures figures = figuresOf(
        "M3 S1000\nG21 G90\nG0 Z5\nG0 X10 Y0\nG1 Z-1 F60\nG3 X10 Y0 Z-3 I-10 J0\nG0 Z5\nM30\n");
    EXPECT_NEAR(figures.cutLength, 1 + std::hypot(20 * kPiOfTest, 2), 1e-9);
    EXPECT_NEAR(figures.cuttingDepth, 3, 1e-9);
}

TEST(Figures, AHoleIsOneStrokeHoweverOftenItIsPecked) {
    const char* const cycle =
        "M3 S1000\nG21 G90\nG0 Z5\nG83 X1 Y1 Z-6 R1 Q2 F60\nX5\nG80\nG0 Z5\nM30\n";
    EXPECT_EQ(figuresOf(cycle).strokes, 2U);
    const char* const plain =
        "M3 S1000\nG21 G90\nG0 Z2\nG0 X5 Y5\nG1 Z-2 F100\nG0 Z2\nG0 Z-1.8\nG1 Z-4\nG0 Z2\nM30\n";
    EXPECT_EQ(figuresOf(plain).strokes, 1U);
    EXPECT_EQ(figuresOf(plain).toolDowns, 2U);
}

TEST(Figures, FeedsPerRevolutionAndInverseTimeTakeTheirTime) {
    const Figures turning =
        figuresOf("M3 S100\nG21 G90\nG0 Z5\nG0 X0 Y0\nG95 F0.5\nG1 Z-5\nG94\nG0 Z5\nM30\n");
    EXPECT_NEAR(turning.feedSeconds, 10 / 50.0 * 60, 1e-9);
    const Figures inverse =
        figuresOf("M3 S100\nG21 G90\nG0 Z5\nG0 X0 Y0\nG93\nG1 Z-5 F2\nG94\nG0 Z5\nM30\n");
    EXPECT_NEAR(inverse.feedSeconds, 30, 1e-9);
}

TEST(Figures, OfNothingAreNothing) {
    const Figures figures = figuresOf("");
    EXPECT_TRUE(figures.moves.empty());
    EXPECT_TRUE(figures.cutting.empty());
    EXPECT_EQ(figures.seconds(), 0);
    EXPECT_EQ(figures.cuttingDepth, 0);
}

TEST(Figures, TheWayToTheFirstPlaceIsNotAmongTheExtents) {
    const Figures figures =
        figuresOf("M3 S1\nG21 G90\nG0 X10 Y10 Z5\nG1 Z-1 F60\nG1 X20\nG0 Z5\nM30\n");
    EXPECT_NEAR(figures.moves.min.x, 10, 1e-9);
    EXPECT_NEAR(figures.moves.min.z, -1, 1e-9);
}

TEST(Figures, AHoleDrilledAgainInTheNextLineIsAnotherStroke) {
    const char* const again =
        "M3 S1000\nG21 G90\nG0 Z5\nG81 X10 Y0 Z-5 R2 F60\nX30\nX30\nG80\nM30\n";
    EXPECT_EQ(figuresOf(again).strokes, 3U);
}

}  // namespace
}  // namespace gcode_check
