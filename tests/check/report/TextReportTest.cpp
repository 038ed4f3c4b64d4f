// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/TextReport.h"

#include <algorithm>

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
        "\n"
        "line 8: error: The program ends with the tool in the material, at Z-1.5, 1.5 mm below "
        "the surface. [ends-in-material]\n"
        "program: warning: The tool does not cut 19.98 mm of the 40 mm of line 4 of layer CUT, "
        "from X30.02 Y10 to X50 Y10. [not-cut]\n"
        "\n"
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
        "  time: 4 s (feed 4 s, rapid 0 s, dwell 0 s)\n"
        "\n"
        "Surface at Z0\n"
        "Not checked: how deep the program may cut, as no depth was given\n"
        "0 of 1 selected object cut entirely\n"
        "1 error, 1 warning\n");
}

const std::string kClean = "M3 S9\nG21 G90\nG0 X0 Y0\nG0 Z5\nG1 Z-1 F50\nG1 X9 F90\nG0 Z5\nM30\n";

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST(TextReport, EndsWithItsVerdictBehindWhatWasNotChecked) {
    ReportHead head;
    head.surfaceGiven = false;
    const std::string clean = textReport(check(kClean), head);
    EXPECT_TRUE(endsWith(clean,
                         "\nSurface at Z0, as nothing else was said\n"
                         "Not checked: how deep the program may cut, as no depth was given\n"
                         "Not checked: what is cut where, as no drawing was given\n"
                         "No findings\n"))
        << clean;
    CheckOptions options;
    options.surfaceZ = 0.5;
    EXPECT_NE(textReport(check(kClean, options)).find("\nSurface at Z0.5\n"), std::string::npos);
    options.depth = -1;
    EXPECT_EQ(textReport(check(kClean, options)).find("how deep"), std::string::npos);
    const std::string warned = textReport(check("G21 G90\nG0 X0 Y0\nG0 Z5\n"));
    EXPECT_TRUE(endsWith(warned, "\nNo errors, 1 warning\n")) << warned;
    const std::string stopped = textReport(check("G21\nfoul\nG0 X5\n"));
    EXPECT_TRUE(endsWith(stopped,
                         "Not checked: moves behind line 2, where the reading stops\n"
                         "Not checked: how deep the program may cut, as no depth was given\n"
                         "Not checked: what is cut where, as no drawing was given\n"
                         "1 error\n"))
        << stopped;
}

// 120 holes that lie on no object and so many rapids in the material.
std::string badProgram(int holes) {
    std::string program = "M3 S9\nG21 G90\nG0 X0 Y0\nG0 Z5\nF50\n";
    for (int hole = 0; hole < holes; ++hole) {
        const std::string x = std::to_string(hole + 100);
        program += "G0 X" + x + "\nG1 Z-1\nG1 X" + x + ".5\nG0 X" + x + ".7\nG0 Z5\n";
    }
    return program + "M30\n";
}

TEST(TextReport, SumsUpAListThatIsLongerThanAGlance) {
    Drawing drawing;
    drawing.shapes.emplace_back();
    const std::string few = textReport(check(badProgram(2), {}, &drawing));
    EXPECT_EQ(few.find("Findings by kind"), std::string::npos) << few;
    const std::string some = textReport(check(badProgram(20), {}, &drawing));
    EXPECT_NE(some.find("\n\nFindings by kind\n  rapid-in-material: 20\n  cut-off-drawing: "
                        "20\n  not-cut: 1\n\nFigures (mm)\n"),
              std::string::npos)
        << some;
    const std::string many = textReport(check(badProgram(5000), {}, &drawing));
    EXPECT_NE(many.find("  cut-off-drawing: 5000, the first 100 of them above\n"),
              std::string::npos);
    EXPECT_TRUE(endsWith(many, "\n10000 errors, 1 warning\n"));
    EXPECT_LT(std::count(many.begin(), many.end(), '\n'), 250);
}

TEST(TextReport, SaysWhenObjectsWereNotLookedFor) {
    const Drawing drawing;
    const CheckResult result = check("G21\nG999\nG1 X5 F100\n", {}, &drawing);
    EXPECT_NE(textReport(result).find("Not checked: which objects are not cut"), std::string::npos);
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
    EXPECT_NE(unknown.find(
                  "1 of 1 selected object followed entirely, but see the findings about heights"),
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
