// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CutJudge.h"

#include <gtest/gtest.h>

namespace {

using gcode_check::FindingKind;
using gcode_check::PlanePoint;
using gcode_check::ShapeKind;

constexpr double kTolerance = 0.02;

gcode_check::Drawing lineDrawing() {
    gcode_check::Shape line;
    line.kind = ShapeKind::Line;
    line.first = {0, 0};
    line.second = {10, 0};
    return {{line}, 1};
}

gcode_check::Drawing circleDrawing() {
    gcode_check::Shape circle;
    circle.kind = ShapeKind::Circle;
    circle.radius = 5;
    return {{circle}, 1};
}

gcode_check::CheckResult said(std::size_t shape, PlanePoint from, PlanePoint to) {
    gcode_check::Finding finding;
    finding.kind = FindingKind::NotCut;
    finding.shape = shape;
    finding.place.emplace();
    finding.place->drawingFrom = from;
    finding.place->drawingTo = to;
    gcode_check::CheckResult result;
    result.findings.push_back(finding);
    return result;
}

std::size_t complaintsOf(const std::string& cut, const gcode_check::Drawing& drawing,
                         const gcode_check::CheckResult& result = {}) {
    const std::string program = "G0 X0Y0\nG01 Z2 F100\nG0 Z10\n" + cut;
    return judgeCuts(program, drawing, result, kTolerance).complaints.size();
}

TEST(CutJudge, AgreesWhenAllIsCutAndNothingIsSaid) {
    EXPECT_EQ(complaintsOf("G01 Z-1 F100\nG01 X10 Y0 F300\n", lineDrawing()), 0U);
    EXPECT_EQ(complaintsOf("G0 X5 Y0\nG01 Z-1 F100\nG03 X5 Y0 I-5 J0 F300\n", circleDrawing()), 0U);
}

TEST(CutJudge, ComplainsOfABarePlaceThatIsNotNamed) {
    EXPECT_EQ(complaintsOf("G01 X10 Y0 F300\n", lineDrawing()), 1U) << "above the surface";
    EXPECT_EQ(complaintsOf("G01 Z-1\nG01 X9.5 Y0\n", lineDrawing()), 1U) << "too short";
    EXPECT_EQ(complaintsOf("G0 X0 Y0.03\nG01 Z-1\nG01 X10 Y0.03\n", lineDrawing()), 1U) << "beside";
    EXPECT_EQ(complaintsOf("G01 Z-1\nG0 X10 Y0\n", lineDrawing()), 1U) << "by rapid";
    EXPECT_EQ(complaintsOf("G0 X5 Y0\nG01 Z-1\nG03 X-5 Y0 I-5 J0\n", circleDrawing()), 1U)
        << "half";
}

TEST(CutJudge, AgreesWithAFindingThatNamesTheBarePlace) {
    EXPECT_EQ(complaintsOf("G01 Z-1\nG01 X9.5 Y0\n", lineDrawing(), said(0, {9.52, 0}, {10, 0})),
              0U);
    EXPECT_EQ(complaintsOf("G0 X5 Y0\nG01 Z-1\nG03 X-5 Y0 I-5 J0\n", circleDrawing(),
                           said(0, {-5, -0.02}, {5, -0.02})),
              0U);
    EXPECT_EQ(complaintsOf("", circleDrawing(), said(0, {5, 0}, {5, 0})), 0U);
}

TEST(CutJudge, AgreesThatNothingIsCutOnlyWhenNothingIs) {
    gcode_check::CheckResult result;
    result.findings.emplace_back();
    result.findings.back().kind = FindingKind::DepthZero;
    EXPECT_EQ(complaintsOf("G01 X10 Y0\n", lineDrawing(), result), 0U);
    EXPECT_EQ(complaintsOf("G01 Z-1\nG01 X10 Y0\n", lineDrawing(), result), 1U);
}

TEST(CutJudge, ComplainsOfAFindingThatNamesACutPlace) {
    EXPECT_EQ(complaintsOf("G01 Z-1\nG01 X10 Y0\n", lineDrawing(), said(0, {4, 0}, {5, 0})), 1U);
    EXPECT_EQ(complaintsOf("G01 Z-1\nG01 X9.5 Y0\n", lineDrawing(), said(0, {0, 0}, {2, 0})), 2U)
        << "another place than the bare one";
}

}  // namespace
