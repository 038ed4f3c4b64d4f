// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>

#include "PreviewTest.h"

using testing::Each;
using testing::IsEmpty;

namespace {

void expectNear(const Point3d& p, const Point3d& expected) {
    constexpr float kTolerance = 1e-4F;
    EXPECT_NEAR(p.x, expected.x, kTolerance);
    EXPECT_NEAR(p.y, expected.y, kTolerance);
    EXPECT_EQ(p.z, expected.z);
}

Point3d onCircle(const Point3d& center, double radius, double angleDeg) {
    const double angle = angleDeg * 3.141592653589793 / 180;
    return {static_cast<float>(center.x + radius * std::cos(angle)),
            static_cast<float>(center.y + radius * std::sin(angle)), center.z};
}

/// The vertices lie at 30 equal steps from the first angle on; the last angle is left out.
void expectArc(const QVector<Point3d>& vertices, const Point3d& center, double radius,
               double firstDeg, double lastDeg) {
    ASSERT_EQ(vertices.size(), 30);
    for (int k = 0; k < 30; ++k) {
        SCOPED_TRACE(k);
        const double angle = firstDeg + k * (lastDeg - firstDeg) / 30;
        expectNear(vertices[k], onCircle(center, radius, angle));
    }
}

}  // namespace

TEST(GCodeParserArc, TheLowerHalfStopsOneSegmentShortOfItsEnd) {
    const QVector<Point3d> vertices = verticesOf("G2 X10 Y0 I5 J0");
    expectArc(vertices, {5, 0, 0}, 5, 180, 360);
    expectNear(vertices.front(), {0, 0, 0});
    expectNear(vertices[15], {5, -5, 0});
    expectNear(vertices.back(), onCircle({5, 0, 0}, 5, 354));
}

TEST(GCodeParserArc, BothDirectionsDrawTheSameVertices) {
    EXPECT_EQ(verticesOf("G2 X10 Y0 I5 J0"), verticesOf("G3 X10 Y0 I5 J0"));
    EXPECT_EQ(verticesOf("G2 X3 Y4 I1 J-7"), verticesOf("G3 X3 Y4 I1 J-7"));
    GCodeParserN clockwise;
    clockwise.drawArc({0, 0, 0}, {5, 0, 0}, {10, 0, 0}, true);
    GCodeParserN counterclockwise;
    counterclockwise.drawArc({0, 0, 0}, {5, 0, 0}, {10, 0, 0}, false);
    EXPECT_EQ(clockwise.GetVector(), counterclockwise.GetVector());
}

TEST(GCodeParserArc, IsGreen) {
    EXPECT_THAT(interpretProgram("G2 X10 Y0 I5 J0").colors, Each(kGreen));
}

TEST(GCodeParserArc, TheNextMoveStartsWhereTheArcStopped) {
    const QVector<Point3d> vertices = verticesOf("G2 X10 Y0 I5 J0\nG91\nG1 X0");
    ASSERT_EQ(vertices.size(), 31);
    EXPECT_EQ(vertices[30], vertices[29]);
}

TEST(GCodeParserArc, OneCentreWordIsEnough) {
    expectArc(verticesOf("G3 X10 Y0 I5"), {5, 0, 0}, 5, 180, 360);
    expectArc(verticesOf("G3 X0 Y10 J5"), {0, 5, 0}, 5, -90, 90);
}

TEST(GCodeParserArc, GivenByItsRadiusIsNotDrawn) {
    EXPECT_THAT(verticesOf("G2 X10 Y10 R5"), IsEmpty());
    EXPECT_THAT(verticesOf("G3 X10 Y10 R5 K1"), IsEmpty());
}

TEST(GCodeParserArc, TheStartIsTurnedBackWhenItsAngleIsGreater) {
    // From the top (90 degrees) to the left end, which counts as 180.
    expectArc(verticesOf("G1 X5 Y5\nG3 X0 Y0 I0 J-5").mid(1), {5, 0, 0}, 5, 90, 180);
    // From the bottom (270) to the right end, which counts as 360, and to the top (90).
    expectArc(verticesOf("G1 X5 Y-5\nG3 X10 Y0 J5").mid(1), {5, 0, 0}, 5, 270, 360);
    expectArc(verticesOf("G1 X5 Y-5\nG3 X5 Y5 J5").mid(1), {5, 0, 0}, 5, -90, 90);
}

TEST(GCodeParserArc, ANegativeAngleLosesItsFraction) {
    // The way to the centre is at -36.87 degrees: 180 - 36, not 180 - 36.87.
    const QVector<Point3d> vertices = verticesOf("G2 X9 Y-3 I4 J-3");
    expectArc(vertices, {4, -3, 0}, 5, 144, 360);
}

TEST(GCodeParserArc, TakesTheDepthOfItsEnd) {
    const QVector<Point3d> vertices = verticesOf("G1 Z-1\nG2 X10 Y0 Z-2 I5");
    ASSERT_EQ(vertices.size(), 31);
    expectArc(vertices.mid(1), {5, 0, -2}, 5, 180, 360);
}

TEST(GCodeParserArc, TheCentreIsRelativeInBothModes) {
    expectArc(verticesOf("G1 X100 Y100\nG2 X110 Y100 I5").mid(1), {105, 100, 0}, 5, 180, 360);
    expectArc(verticesOf("G91\nG1 X100 Y100\nG2 X10 Y0 I5").mid(1), {105, 100, 0}, 5, 180, 360);
}

TEST(GCodeParserArc, WithTheCentreAtItsStartDrawsThereOnly) {
    EXPECT_EQ(verticesOf("G1 X1 Y2\nG2 X5 Y5 I0 J0").mid(1), QVector<Point3d>(30, {1, 2, 0}));
    EXPECT_EQ(verticesOf("G1 X1 Y2 Z3\nG2 I0 J0").mid(1), QVector<Point3d>(31, {1, 2, 0}));
}

TEST(GCodeParserArc, OfNumbersThatOverflowIsDrawnSomewhere) {
    EXPECT_EQ(verticesOf("G2 X5 I" + std::string(50, '9')).size(), 30);
    EXPECT_EQ(verticesOf("G2 X" + std::string(50, '9') + " I5").size(), 30);
}

TEST(GCodeParserArc, OfNoSegmentsIsNothing) {
    for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
        GCodeParserN parser;
        parser.DrawArc(0, 0, 0, 5, 0, 90, count);
        EXPECT_THAT(parser.GetVector(), IsEmpty()) << count;
    }
}

TEST(GCodeParserArc, HasAsManyVerticesAsSegments) {
    GCodeParserN parser;
    parser.DrawArc(1, 2, 3, 5, 0, 90, 3);
    const QVector<Point3d> vertices = parser.GetVector();
    ASSERT_EQ(vertices.size(), 3);
    expectNear(vertices[0], {6, 2, 3});
    expectNear(vertices[1], onCircle({1, 2, 3}, 5, 30));
    expectNear(vertices[2], onCircle({1, 2, 3}, 5, 60));
}

TEST(GCodeParserArc, ItsAngleAddsUpInFloat) {
    GCodeParserN parser;
    parser.DrawArc(0, 0, 0, 100, 10, 110.3F, 30);
    float angle = 10;
    for (int k = 0; k < 29; ++k) {
        angle += (110.3F - 10) / 30.0F;
    }
    const auto radians = static_cast<double>(3.1415927F * angle / 180.0F);
    EXPECT_EQ(parser.GetVector()[29].x, static_cast<float>(std::cos(radians) * 100.0));
    EXPECT_EQ(parser.GetVector()[29].y, static_cast<float>(std::sin(radians) * 100.0));
}

TEST(GCodeParserCircle, IsDrawnWhenTheEndIsTheStart) {
    const QVector<Point3d> vertices = verticesOf("G2 X0 Y0 I5 J0");
    ASSERT_EQ(vertices.size(), 31);
    EXPECT_EQ(vertices.front(), Point3d(10, 0, 0));
    for (int k = 0; k <= 30; ++k) {
        SCOPED_TRACE(k);
        expectNear(vertices[k], onCircle({5, 0, 0}, 5, 12.0 * k));
    }
    EXPECT_EQ(verticesOf("G3 I5").size(), 31);
}

TEST(GCodeParserCircle, LiesAtZ0WhateverTheDepth) {
    const QVector<Point3d> vertices = verticesOf("G1 Z-7\nG2 I5").mid(1);
    ASSERT_EQ(vertices.size(), 31);
    for (const Point3d& vertex : vertices) {
        EXPECT_EQ(vertex.z, 0.0F);
    }
}

TEST(GCodeParserCircle, WithAnotherDepthAtItsEndIsAnArc) {
    // Both angles are the same, so all of it lies at the start.
    expectArc(verticesOf("G2 X0 Y0 Z-1 I5"), {5, 0, -1}, 5, 180, 180);
}

TEST(GCodeParserCircle, OfNegativeSegmentsIsNothing) {
    GCodeParserN parser;
    parser.DrawCircle(0, 0, 5, -1);
    EXPECT_THAT(parser.GetVector(), IsEmpty());
}

TEST(GCodeParserCircle, HasOneVertexMoreThanSegments) {
    GCodeParserN parser;
    parser.DrawCircle(1, 2, 5, 4);
    ASSERT_EQ(parser.GetVector().size(), 5);
    expectNear(parser.GetVector()[1], {1, 7, 0});
    GCodeParserN none;
    none.DrawCircle(1, 2, 5, 0);
    EXPECT_EQ(none.GetVector().size(), 1);
}

TEST(GCodeParserCircle, IsFloatThroughout) {
    GCodeParserN parser;
    parser.DrawCircle(0, 0, 100, 30);
    const float theta = 7.0F * 6.283185F / 30.0F;
    EXPECT_EQ(parser.GetVector()[7].x, std::cos(theta) * 100.0F);
    EXPECT_EQ(parser.GetVector()[7].y, std::sin(theta) * 100.0F);
}
