// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/TextReport.h"

#include <gtest/gtest.h>

namespace gcode_check {
namespace {

TEST(TextReport, HasAFindingALineThenCountsObjectsAndFigures) {
    Drawing drawing;
    Shape shape;
    shape.kind = ShapeKind::Line;
    shape.first = {10, 10};
    shape.second = {50, 10};
    shape.name = "line 4 of layer CUT";
    drawing.shapes = {shape};
    const CheckResult result =
        check("M3 S6000\nG21\nG90\nG0 X0Y0\nG0 Z2\nG0 X10 Y10\nG1 Z-1.5 F100\nG1 X30 F600\nM30\n",
              {}, &drawing);
    EXPECT_EQ(
        textReport(result, {"plate.nc", "plate.dxf"}),
        "Program: plate.nc\n"
        "Drawing: plate.dxf\n"
        "line 8: error: The program ends with the tool in the material, at Z-1.5, 1.5 mm below "
        "the surface. [ends-in-material]\n"
        "program: warning: The tool does not cut 19.98 mm of the 40 mm of line 4 of layer CUT, "
        "from X30.02 Y10 to X50 Y10. [not-cut]\n"
        "one error, one warning, 0 notes\n"
        "0 of 1 selected object cut entirely\n"
        "Figures (mm)\n"
        "  moves: X0 to 30, Y0 to 10, Z-1.5 to 2\n"
        "  cutting: X10 to 30, Y10 to 10, Z-1.5 to 0\n"
        "  cutting depth: 1.5\n"
        "  cut length: 21.5\n"
        "  feed length: 23.5\n"
        "  rapid length: 16.1421\n"
        "  drill strokes: 0\n"
        "  tool down: 1\n"
        "  tool up: 0\n"
        "  tool changes: 0\n"
        "  time: 4 s (feed 4 s, rapid 0 s, dwell 0 s)\n");
}

TEST(TextReport, SaysWhenObjectsWereNotLookedFor) {
    const Drawing drawing;
    const CheckResult result = check("G21\nG999\nG1 X5 F100\n", {}, &drawing);
    EXPECT_NE(textReport(result).find("Objects that are not cut were not looked for"),
              std::string::npos);
}

TEST(TextReport, DoesNotCallCutWhatIsFollowedAtWrongHeights) {
    Drawing drawing;
    Shape shape;
    shape.kind = ShapeKind::Line;
    shape.second = {10, 0};
    drawing.shapes = {shape};
    const std::string start = "M3 S1000\nG21 G90\nG0 X0 Y0\n";
    const std::string end = "G1 X10 F100\nG0 Z5\nM30\n";
    const std::string unknown = textReport(check(start + end, {}, &drawing));
    EXPECT_NE(unknown.find("1 of 1 selected object followed entirely, but see the heights above"),
              std::string::npos)
        << unknown;
    const std::string known = textReport(check(start + "G0 Z5\nG1 Z-1 F50\n" + end, {}, &drawing));
    EXPECT_NE(known.find("1 of 1 selected object cut entirely"), std::string::npos) << known;
}

TEST(TextReport, IsInTheProgramsUnit) {
    const CheckResult result =
        check("M3 S1\nG20\nG90\nG0 X0Y0\nG0 Z.1\nG1 Z-.05 F4\nG1 X3 F20\nM30\n");
    EXPECT_NE(textReport(result).find("0.05 in below"), std::string::npos);
    EXPECT_NE(textReport(result).find("Figures (in)"), std::string::npos);
}

}  // namespace
}  // namespace gcode_check
