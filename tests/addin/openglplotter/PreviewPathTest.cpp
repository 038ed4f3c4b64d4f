// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/PreviewPath.h"

#include <QByteArray>
#include <type_traits>

#include "LiteralGCodeParser.h"
#include "PreviewTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Point3d kOne(1, 0, 0);
const Point3d kTwo(2, 0, 0);
const Point3d kThree(3, 0, 0);

}  // namespace

TEST(PreviewPath, AnyLineEndEndsALine) {
    for (const char* end : {"\n", "\r", "\r\n", "\n\r", "\n\n", "\r\r", "\r\n\r\n", "\n\r\r\n\n"}) {
        const std::string text = std::string("G1 X1") + end + "X2" + end + "X3" + end;
        EXPECT_THAT(verticesOf(text), ElementsAre(kOne, kTwo, kThree)) << text;
    }
}

TEST(PreviewPath, MixedLineEndsGiveTheSameLines) {
    EXPECT_THAT(verticesOf("G1 X1\r\nX2\n\rX3"), ElementsAre(kOne, kTwo, kThree));
    EXPECT_THAT(verticesOf("\n\r\n\rG1 X1\rX2\r\r\nX3"), ElementsAre(kOne, kTwo, kThree));
}

TEST(PreviewPath, AFileOfLoneCarriageReturnsIsSplit) {
    EXPECT_THAT(verticesOf("G1 X1\r\r\rX2\rX3\r"), ElementsAre(kOne, kTwo, kThree));
}

TEST(PreviewPath, TheLastLineNeedsNoEnd) {
    EXPECT_THAT(verticesOf("G1 X1"), ElementsAre(kOne));
}

TEST(PreviewPath, OtherBytesEndNoLine) {
    using namespace std::string_view_literals;
    for (const std::string_view text : {"G1 X1\fX2"sv, "G1 X1\vX2"sv, "G1 X1\0X2"sv, "G1 X1\tX2"sv,
                                        "G1 X1\xC2\x85X2"sv, "G1 X1\xE2\x80\xA8X2"sv}) {
        EXPECT_THAT(verticesOf(text), ElementsAre(kOne)) << text;
    }
}

TEST(PreviewPath, BlankLinesAreSkipped) {
    EXPECT_THAT(verticesOf("G1 X1\n\n\nX2"), ElementsAre(kOne, kTwo));
    EXPECT_THAT(verticesOf("\n\r\n\r"), IsEmpty());
}

TEST(PreviewPath, AnEmptyTextIsAnEmptyPath) {
    const PreviewPath path = interpretProgram("");
    EXPECT_THAT(path.vertices, IsEmpty());
    EXPECT_THAT(path.colors, IsEmpty());
    EXPECT_FALSE(path.stop);
    EXPECT_THAT(interpretProgram(std::string_view()).vertices, IsEmpty());
}

TEST(PreviewPath, AByteOrderMarkDoesNotMatter) {
    EXPECT_THAT(verticesOf("\xEF\xBB\xBFG1 X1"), ElementsAre(kOne));
}

TEST(PreviewPath, EveryLineIsExecutedBeforeTheNextIsRead) {
    EXPECT_THAT(verticesOf("G91\nG1 X1\nX1\nG90\nG1 X3"), ElementsAre(kOne, kTwo, kThree));
}

TEST(PreviewPath, ALoneSurrogateDoesNotHideALineEnd) {
    QString text("G1 X1");
    text += QChar(0xD83D);
    text += "\nX2";
    text += QChar(0xDE00);
    text += "\nX3";
    const QByteArray utf8 = text.toUtf8();
    EXPECT_EQ(literalLines(text).size(), 3);
    EXPECT_THAT(verticesOf({utf8.constData(), static_cast<std::size_t>(utf8.size())}),
                ElementsAre(kOne, kTwo, kThree));
}

TEST(PreviewPath, HoldsTheOnlyCopyOfItsLists) {
    EXPECT_FALSE(std::is_copy_constructible_v<PreviewPath>);
    GCodeParserN parser;
    parser.parse("G1 X1");
    parser.executeGCodes();
    EXPECT_EQ(parser.takeVertices().size(), 1);
    EXPECT_EQ(parser.takeColors().size(), 1);
    EXPECT_THAT(parser.GetVector(), IsEmpty());
    EXPECT_THAT(parser.GetColorVector(), IsEmpty());
}

TEST(PreviewPathStop, AsManyVerticesAsAllowedAreNotCutShort) {
    const PreviewPath path = interpretProgram("G1 X1\nX2\nX3\nM30", 3);
    EXPECT_EQ(path.vertices.size(), 3);
    EXPECT_FALSE(path.stop);
}

TEST(PreviewPathStop, TellsHowManyPointsWereKeptAndWhereItStopped) {
    const PreviewPath path = interpretProgram("G1 X1\n\nX2\r\nX3 Y5\nX4", 2);
    EXPECT_THAT(path.vertices, ElementsAre(kOne, kTwo));
    EXPECT_EQ(path.colors.size(), 2);
    ASSERT_TRUE(path.stop);
    EXPECT_EQ(path.stop->points, 2U);
    EXPECT_EQ(path.stop->lineNumber, 4U);
    EXPECT_EQ(path.stop->offset, 11U);
}

TEST(PreviewPathStop, WhatWasDroppedDoesNotWidenTheExtents) {
    const PreviewPath path = interpretProgram("G1 X1\nX2 Y9", 1);
    EXPECT_EQ(path.extents.maxX, 1.0F);
    EXPECT_EQ(path.extents.maxY, 0.0F);
}

TEST(PreviewPathStop, AnArcKeepsItsFirstVertices) {
    const PreviewPath path = interpretProgram("G1 X1\nG2 I5\nG1 X9", 10);
    EXPECT_EQ(path.vertices.size(), 10);
    EXPECT_EQ(path.vertices.toVector(), verticesOf("G1 X1\nG2 I5\nG1 X9").mid(0, 10));
    ASSERT_TRUE(path.stop);
    EXPECT_EQ(path.stop->lineNumber, 2U);
}

TEST(PreviewPathStop, APeckCycleKeepsItsFirstVertices) {
    const PreviewPath path = interpretProgram("G83 Z-100 R1 Q1\nG1 X9", 50);
    EXPECT_EQ(path.vertices.toVector(), verticesOf("G83 Z-100 R1 Q1").mid(0, 50));
    ASSERT_TRUE(path.stop);
    EXPECT_EQ(path.stop->lineNumber, 1U);
    EXPECT_EQ(path.stop->offset, 0U);
}

TEST(PreviewPathStop, NoVertexAtAllMayBeAllowed) {
    const PreviewPath path = interpretProgram("M3\nG90\nG1 X1", 0);
    EXPECT_THAT(path.vertices, IsEmpty());
    ASSERT_TRUE(path.stop);
    EXPECT_EQ(path.stop->points, 0U);
    EXPECT_EQ(path.stop->lineNumber, 3U);
}

TEST(PreviewPathStop, AParserThatStoppedDrawsNoMore) {
    GCodeParserN parser(1);
    parser.parse("G1 X1");
    parser.executeGCodes();
    EXPECT_FALSE(parser.isCutShort());
    parser.executeGCodes();
    EXPECT_TRUE(parser.isCutShort());
    parser.parse("G1 X5");
    parser.executeGCodes();
    parser.DrawArc(0, 0, 0, 5, 0, 90, 2147483647);
    parser.DrawCircle(0, 0, 5, 2147483647);
    EXPECT_THAT(parser.GetVector(), ElementsAre(kOne));
    EXPECT_EQ(parser.GetColorVector().size(), 1);
}

TEST(PreviewPathStop, EndsArcsOfAnyNumberOfSegments) {
    GCodeParserN arc(100);
    arc.DrawArc(0, 0, 0, 5, 0, 90, 2147483647);
    EXPECT_EQ(arc.GetVector().size(), 100);
    GCodeParserN circle(100);
    circle.DrawCircle(0, 0, 5, 2147483647);
    EXPECT_EQ(circle.GetVector().size(), 100);
}
