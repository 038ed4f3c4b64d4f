// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "ParserFields.h"
#include "PreviewTest.h"

using testing::Each;
using testing::ElementsAre;

namespace {

void run(GCodeParserN* parser, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        parser->parse(line);
        parser->executeGCodes();
    }
}

/// The Z of all vertices but the first `skipped`.
std::vector<float> depthsOf(std::string_view program, int skipped = 0) {
    std::vector<float> depths;
    for (const Point3d& vertex : verticesOf(program).mid(skipped)) {
        depths.push_back(vertex.z);
    }
    return depths;
}

}  // namespace

TEST(GCodeParserDrill, G81GoesAcrossDownAndUpToTheRetractLevel) {
    EXPECT_THAT(verticesOf("G1 Z5\nG81 X10 Y10 Z-5 R2 F100").mid(1),
                ElementsAre(Point3d(10, 10, 5), Point3d(10, 10, -5), Point3d(10, 10, 2)));
}

TEST(GCodeParserDrill, RisesFirstWhenTheRetractLevelIsAboveTheTool) {
    EXPECT_THAT(
        verticesOf("G81 X10 Y10 Z-5 R2"),
        ElementsAre(Point3d(0, 0, 2), Point3d(10, 10, 2), Point3d(10, 10, -5), Point3d(10, 10, 2)));
}

TEST(GCodeParserDrill, G82DrawsAsG81) {
    EXPECT_EQ(verticesOf("G82 X1 Y2 Z-5 R2 P3"), verticesOf("G81 X1 Y2 Z-5 R2"));
}

TEST(GCodeParserDrill, EveryVertexIsGreen) {
    EXPECT_THAT(interpretProgram("G83 X1 Y1 Z-3 R1 Q1").colors, Each(kGreen));
}

TEST(GCodeParserDrill, G83ReturnsAfterEveryPeckAndGoesBackDown) {
    EXPECT_THAT(depthsOf("G83 X0 Y0 Z-6 R1 Q2"),
                ElementsAre(1, 1, -1, 1, -1, -3, 1, -3, -5, 1, -5, -6, 1));
}

TEST(GCodeParserDrill, G183StaysDownBetweenThePecksAndRetractsOnce) {
    EXPECT_THAT(depthsOf("G183 X0 Y0 Z-6 R1 Q2"), ElementsAre(1, 1, -1, -3, -5, -6, 1));
}

TEST(GCodeParserDrill, APeckBelowOneIsASinglePlunge) {
    EXPECT_THAT(depthsOf("G83 X0 Y0 Z-6 R1 Q0.9"), ElementsAre(1, 1, -6, 1));
    EXPECT_THAT(depthsOf("G183 X0 Y0 Z-6 R1 Q0.9"), ElementsAre(1, 1, -6, 1));
}

TEST(GCodeParserDrill, ThePeckIsTheWholePartWithoutItsSign) {
    GCodeParserN parser;
    run(&parser, {"G83 Z-6 R1 Q-2.7"});
    EXPECT_EQ(ParserFields{parser}.drillPecksize(), 2.0F);
    run(&parser, {"G83 Z-6 R1 Q0.5"});
    EXPECT_EQ(ParserFields{parser}.drillPecksize(), 0.0F);
    run(&parser, {"G83 Z-6 R1 Q" + std::string(50, '9')});
    EXPECT_EQ(ParserFields{parser}.drillPecksize(), 2147483648.0F);
    run(&parser, {"G83 Z-6 R1 Q-" + std::string(50, '9')});
    EXPECT_EQ(ParserFields{parser}.drillPecksize(), 2147483648.0F);
}

TEST(GCodeParserDrill, WithoutQThePreviousPeckStays) {
    EXPECT_THAT(depthsOf("G183 Z-4 R0 Q2\nG183 X1", 3), ElementsAre(0, 0, -2, -4, 0));
}

TEST(GCodeParserDrill, G81AndG82ForgetThePeck) {
    for (const char* line : {"G81 X1", "G82 X1"}) {
        GCodeParserN parser;
        run(&parser, {"G83 Z-4 R0 Q2", line});
        EXPECT_EQ(ParserFields{parser}.drillPecksize(), 0.0F) << line;
    }
}

TEST(GCodeParserDrill, TheDwellIsTruncatedAndKeptUntilG81) {
    GCodeParserN parser;
    run(&parser, {"G82 Z-1 P2.9"});
    EXPECT_EQ(ParserFields{parser}.drillDwell(), 2);
    run(&parser, {"G83 Z-1"});
    EXPECT_EQ(ParserFields{parser}.drillDwell(), 2);
    run(&parser, {"G83 Z-1 P-3.5"});
    EXPECT_EQ(ParserFields{parser}.drillDwell(), -3);
    run(&parser, {"G183 Z-1 P" + std::string(50, '9')});
    EXPECT_EQ(ParserFields{parser}.drillDwell(), 2147483647);
    run(&parser, {"G81 Z-1 P7"});
    EXPECT_EQ(ParserFields{parser}.drillDwell(), 0);
}

TEST(GCodeParserDrill, TheFeedOfACycleIsKeptTwice) {
    GCodeParserN parser;
    run(&parser, {"G81 Z-1 F80", "G1 F90"});
    EXPECT_EQ(ParserFields{parser}.drillFeedrate(), 80.0F);
    EXPECT_EQ(ParserFields{parser}.feedrate(), 90.0F);
}

TEST(GCodeParserDrill, TheRetractLevelIsAbsoluteInIncrementalModeToo) {
    EXPECT_THAT(verticesOf("G1 X1 Y1 Z10\nG91\nG81 X2 Y2 Z-15 R3").mid(1),
                ElementsAre(Point3d(3, 3, 10), Point3d(3, 3, -5), Point3d(3, 3, 3)));
}

TEST(GCodeParserDrill, CoordinatesAloneRepeatTheCycle) {
    EXPECT_THAT(verticesOf("G83 X0 Y0 Z-2 R1 Q2\nX5 Y5").mid(7),
                ElementsAre(Point3d(5, 5, 1), Point3d(5, 5, -1), Point3d(5, 5, 1),
                            Point3d(5, 5, -1), Point3d(5, 5, -2), Point3d(5, 5, 1)));
}

TEST(GCodeParserDrill, WithoutZAndRThePreviousLevelsStay) {
    EXPECT_THAT(depthsOf("G81 X1 Z-3 R1\nG1 Z9\nG81 X2", 5), ElementsAre(9, -3, 1));
}

TEST(GCodeParserDrill, WithoutAnyLevelsPlungesFromZeroToZero) {
    EXPECT_THAT(verticesOf("G81 X1 Y2"),
                ElementsAre(Point3d(1, 2, 0), Point3d(1, 2, 0), Point3d(1, 2, 0)));
}

TEST(GCodeParserDrill, G80ResetsTheCycleAndDrawsNothing) {
    GCodeParserN parser;
    run(&parser, {"G83 X1 Y2 Z-3 R4 Q1 P5 F6"});
    const int before = parser.GetVector().size();
    run(&parser, {"G80 X9"});
    const ParserFields fields{parser};
    EXPECT_EQ(parser.GetVector().size(), before);
    EXPECT_EQ(fields.drillTarget(), Point3d(0, 0, 0));
    EXPECT_EQ(fields.drillRetract(), 0.0F);
    EXPECT_EQ(fields.drillFeedrate(), 0.0F);
    EXPECT_EQ(fields.drillDwell(), 0);
    EXPECT_EQ(fields.drillPecksize(), 0.0F);
    EXPECT_EQ(fields.feedrate(), 6.0F);
}

TEST(GCodeParserDrill, CoordinatesAfterG80DrawNothing) {
    EXPECT_EQ(verticesOf("G81 X1 Z-1 R1\nG80\nX5\nY5").size(), 4);
}

TEST(GCodeParserDrill, ADepthAboveTheRetractLevelIsOnePlungeUpwards) {
    EXPECT_THAT(depthsOf("G81 X1 Z5 R2"), ElementsAre(2, 2, 5, 2));
    EXPECT_THAT(depthsOf("G83 X1 Z5 R2 Q1"), ElementsAre(2, 2, 5, 2));
    EXPECT_THAT(depthsOf("G183 X1 Z5 R2 Q1"), ElementsAre(2, 2, 5));
}

TEST(GCodeParserDrill, ADepthAtTheRetractLevelIsOnePlunge) {
    EXPECT_THAT(depthsOf("G83 X1 Z2 R2 Q1"), ElementsAre(2, 2, 2, 2));
    EXPECT_THAT(depthsOf("G183 X1 Z2 R2 Q1"), ElementsAre(2, 2, 2));
}

TEST(GCodeParserDrill, WithoutAPeckThePlungeEndsExactlyAtTheDepth) {
    // The retract level minus the difference of both levels would miss the depth.
    EXPECT_THAT(depthsOf("G81 Z-0.0000001 R12345678"),
                ElementsAre(12345678.0F, 12345678.0F, -0.0000001F, 12345678.0F));
}

TEST(GCodeParserDrill, PecksAreCountedInDouble) {
    // In float 16777220 - 1 would stay what it was.
    EXPECT_EQ(depthsOf("G183 Z16777210 R16777220 Q1").size(), 2U + 10U + 1U);
}
