// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <limits>

#include "ParserFields.h"
#include "PreviewTest.h"

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const float kInfinity = std::numeric_limits<float>::infinity();

void run(GCodeParserN* parser, std::string_view line) {
    parser->parse(line);
    parser->executeGCodes();
}

PathExtents extentsOf(const GCodeParserN& parser) {
    PathExtents box;
    parser.GetMinMaxValues(&box.minX, &box.minY, &box.minZ, &box.maxX, &box.maxY, &box.maxZ,
                           &box.min, &box.max);
    return box;
}

}  // namespace

TEST(GCodeParserMotion, AFeedMoveGivesOneGreenVertexAndItsExtents) {
    const PreviewPath path = interpretProgram("G1 X10 Y0 Z0");
    EXPECT_THAT(path.vertices, ElementsAre(Point3d(10, 0, 0)));
    EXPECT_THAT(path.colors, ElementsAre(kGreen));
    EXPECT_EQ(path.extents.minX, 0.0F);
    EXPECT_EQ(path.extents.maxX, 10.0F);
    EXPECT_EQ(path.extents.minY, 0.0F);
    EXPECT_EQ(path.extents.maxY, 0.0F);
    EXPECT_EQ(path.extents.max, 10.0F);
}

TEST(GCodeParserMotion, ARapidIsDarkRed) {
    const PreviewPath path = interpretProgram("G0 X5");
    EXPECT_THAT(path.vertices, ElementsAre(Point3d(5, 0, 0)));
    EXPECT_THAT(path.colors, ElementsAre(Color(0.7F, 0, 0, 0)));
}

TEST(GCodeParserMotion, TheColourFollowsTheValueAndTheMoveItsWholePart) {
    EXPECT_THAT(interpretProgram("G0.5 X1\nG-0.5 X2\nG-0 X3\nG00 X4").colors,
                ElementsAre(kGreen, kGreen, kRed, kRed));
}

TEST(GCodeParserMotion, OnlyTheFirstGNumberMoves) {
    EXPECT_THAT(verticesOf("G90 G1 X5"), IsEmpty());
    EXPECT_THAT(verticesOf("G1 G90 X5"), ElementsAre(Point3d(5, 0, 0)));
}

TEST(GCodeParserMotion, MissingCoordinatesStayAsTheyAre) {
    EXPECT_THAT(
        verticesOf("G1 X1 Y2 Z3\nG1 Y5\nG1\nG1 F5"),
        ElementsAre(Point3d(1, 2, 3), Point3d(1, 5, 3), Point3d(1, 5, 3), Point3d(1, 5, 3)));
}

TEST(GCodeParserMotion, NoVertexStandsForTheStart) {
    EXPECT_THAT(verticesOf("G1 X1"), ElementsAre(Point3d(1, 0, 0)));
}

TEST(GCodeParserMotion, IncrementalMovesAddUp) {
    EXPECT_THAT(verticesOf("G91\nG1 X1\nG1 X1"), ElementsAre(Point3d(1, 0, 0), Point3d(2, 0, 0)));
    EXPECT_THAT(verticesOf("G91\nG1 X1 Y2 Z3\nG1 Z-1\nG90\nG1 X1 Y1"),
                ElementsAre(Point3d(1, 2, 3), Point3d(1, 2, 2), Point3d(1, 1, 2)));
}

TEST(GCodeParserMotion, OtherWordsDrawNothing) {
    for (const char* line :
         {"G4 P1",  "G17",     "G18",     "G19",    "G20",    "G21",    "G28 X0 Y0",
          "G40 X1", "G41 X1",  "G42 X1",  "G43 Z1", "G79 X1", "G84 X1", "G89 X1",
          "G92 X1", "G182 X1", "G184 X1", "G-1 X1", "M3",     "M6 T1",  "S100",
          "T1",     "H1",      "D1",      "L1",     "F100",   "%",      "O100"}) {
        EXPECT_THAT(verticesOf(line), IsEmpty()) << line;
    }
}

TEST(GCodeParserMotion, AGNumberBeyondThirtyTwoBitsDrawsNothing) {
    EXPECT_THAT(verticesOf("G4294967297 X1"), IsEmpty());
    EXPECT_THAT(verticesOf("G-99999999999999999999999999999999999999999999999999 X1"), IsEmpty());
}

TEST(GCodeParserMotion, TheFeedIsKeptUnconverted) {
    GCodeParserN parser;
    run(&parser, "F120.5");
    EXPECT_EQ(ParserFields{parser}.feedrate(), 120.5F);
    run(&parser, "G1 X1");
    EXPECT_EQ(ParserFields{parser}.feedrate(), 120.5F);
    run(&parser, "G1 F");
    EXPECT_EQ(ParserFields{parser}.feedrate(), 0.0F);
}

TEST(GCodeParserMotion, AVertexWithoutAGWordIsBlue) {
    GCodeParserN parser;
    parser.setTarget({1, 2, 3});
    EXPECT_THAT(parser.GetColorVector(), ElementsAre(Color(0, 0, 255, 0)));
    EXPECT_THAT(parser.GetVector(), ElementsAre(Point3d(1, 2, 3)));
    EXPECT_EQ(ParserFields{parser}.current(), Point3d(1, 2, 3));
}

TEST(GCodeParserMotion, EveryVertexHasAColour) {
    const PreviewPath path =
        interpretProgram("G0 X1\nG2 X5 I2\nG83 Z-5 R1 Q1\nG91\nX1\nG3 I1 J1\nG80\nX5");
    EXPECT_EQ(path.vertices.size(), path.colors.size());
    EXPECT_GT(path.vertices.size(), 60);
}

TEST(GCodeParserMotion, ExecutingALineAgainDrawsItAgain) {
    GCodeParserN parser;
    run(&parser, "G1 X1");
    parser.executeGCodes();
    EXPECT_EQ(parser.GetVector().size(), 2);
}

TEST(GCodeParserMotion, WhatWasHandedOutStaysAsItWas) {
    GCodeParserN parser;
    run(&parser, "G1 X1");
    const QVector<Point3d> before = parser.GetVector();
    run(&parser, "G1 X2");
    EXPECT_THAT(before, ElementsAre(Point3d(1, 0, 0)));
    EXPECT_THAT(parser.GetVector(), ElementsAre(Point3d(1, 0, 0), Point3d(2, 0, 0)));
}

TEST(GCodeParserExtents, OfNoVertexAreZero) {
    const PathExtents box = interpretProgram("").extents;
    for (const float value :
         {box.minX, box.minY, box.minZ, box.maxX, box.maxY, box.maxZ, box.min, box.max}) {
        EXPECT_EQ(value, 0.0F);
    }
}

TEST(GCodeParserExtents, AlwaysHoldTheOrigin) {
    const PathExtents box = interpretProgram("G1 X5 Y-8 Z3\nG1 X8 Y-5 Z2").extents;
    EXPECT_EQ(box.minX, 0.0F);
    EXPECT_EQ(box.maxX, 8.0F);
    EXPECT_EQ(box.minY, -8.0F);
    EXPECT_EQ(box.maxY, 0.0F);
    EXPECT_EQ(box.minZ, 0.0F);
    EXPECT_EQ(box.maxZ, 3.0F);
    EXPECT_EQ(box.min, -8.0F);
    EXPECT_EQ(box.max, 8.0F);
}

TEST(GCodeParserExtents, AreWidenedByAPointAndCleared) {
    GCodeParserN parser;
    parser.CalculateMinMax({-1, 2, -3});
    parser.CalculateMinMax({4, -5, 6});
    PathExtents box = extentsOf(parser);
    EXPECT_EQ(Point3d(box.minX, box.minY, box.minZ), Point3d(-1, -5, -3));
    EXPECT_EQ(Point3d(box.maxX, box.maxY, box.maxZ), Point3d(4, 2, 6));
    EXPECT_EQ(box.min, -5.0F);
    EXPECT_EQ(box.max, 6.0F);
    parser.ClearMinMaxValue();
    box = extentsOf(parser);
    EXPECT_EQ(Point3d(box.minX, box.minY, box.minZ), Point3d(0, 0, 0));
    EXPECT_EQ(Point3d(box.maxX, box.maxY, box.maxZ), Point3d(0, 0, 0));
    EXPECT_THAT(parser.GetVector(), IsEmpty());
}

TEST(GCodeParserExtents, AreNotWidenedByWhatIsNoNumber) {
    GCodeParserN parser;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    parser.CalculateMinMax({nan, nan, 1});
    EXPECT_EQ(extentsOf(parser).minX, 0.0F);
    EXPECT_EQ(extentsOf(parser).maxY, 0.0F);
    EXPECT_EQ(extentsOf(parser).maxZ, 1.0F);
}

TEST(GCodeParserExtents, OfNumbersThatOverflowAreInfinite) {
    const PreviewPath path = interpretProgram("G1 X" + std::string(50, '9'));
    EXPECT_THAT(path.vertices, ElementsAre(Point3d(kInfinity, 0, 0)));
    EXPECT_EQ(path.extents.maxX, kInfinity);
}

TEST(GCodeParserDistance, IgnoresZ) {
    const GCodeParserN parser;
    EXPECT_EQ(parser.GetDistance({1, 1, 0}, {4, 5, 100}), 5.0);
    EXPECT_EQ(parser.GetDistance({0, 0, 0}, {0, 0, 7}), 0.0);
}

TEST(GCodeParserDistance, TakesFloatDifferencesInDouble) {
    const GCodeParserN parser;
    const double difference = static_cast<double>(0.3F - 0.1F);
    EXPECT_EQ(parser.GetDistance({0.3F, 0, 0}, {0.1F, 0, 0}), difference);
    EXPECT_NE(difference, static_cast<double>(0.3F) - static_cast<double>(0.1F));
    // The squares of floats overflow, their doubles don't.
    EXPECT_EQ(parser.GetDistance({3e30F, 0, 0}, {0, 0, 0}), static_cast<double>(3e30F));
}
