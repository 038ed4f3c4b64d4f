// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/SceneFigures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "openglplotter/ViewNavigation.h"

namespace {

struct Segment {
    const char* name;
    Point3d from;
    Point3d to;
};

const Segment kAxesSegments[] = {
    {"X axis", {0, 0, 0}, {0.1F, 0, 0}},
    {"Y axis", {0, 0, 0}, {0, 0.1F, 0}},
    {"Z axis", {0, 0, 0}, {0, 0, 0.1F}},
    {"X arrow, upper barb", {0.09F, 0.0074F, 0}, {0.1002F, 0, 0}},
    {"X arrow, lower barb", {0.09F, -0.0074F, 0}, {0.1002F, 0, 0}},
    {"Y arrow, left barb", {-0.0074F, 0.09F, 0}, {0, 0.1002F, 0}},
    {"Y arrow, right barb", {0.0074F, 0.09F, 0}, {0, 0.1002F, 0}},
    {"Z arrow, first barb", {-0.0074F, 0, 0.09F}, {0, 0, 0.1002F}},
    {"Z arrow, second barb", {0.0074F, 0, 0.09F}, {0, 0, 0.1002F}},
    {"letter X, first stroke", {0.1253F, -0.008F, 0}, {0.114F, 0.0063F, 0}},
    {"letter X, second stroke", {0.1253F, 0.0063F, 0}, {0.114F, -0.008F, 0}},
    {"letter Y, left arm", {-0.0062F, 0.1271F, 0}, {-0.0002F, 0.1185F, 0}},
    {"letter Y, right arm", {0.0058F, 0.1271F, 0}, {-0.0002F, 0.1185F, 0}},
    {"letter Y, stem", {-0.0002F, 0.1185F, 0}, {-0.0002F, 0.1125F, 0}},
    {"letter Z, top bar", {0.0054F, 0, 0.1256F}, {-0.0059F, 0, 0.1256F}},
    {"letter Z, diagonal", {0.0054F, 0, 0.1256F}, {-0.0059F, 0, 0.1113F}},
    {"letter Z, bottom bar", {0.0054F, 0, 0.1113F}, {-0.0059F, 0, 0.1113F}},
};

const Segment kToolSegments[] = {
    {"shaft", {0, 0, 0}, {0, 0, -0.08F}},
    {"first barb", {-0.0074F, 0, -0.0102F}, {0, 0, 0}},
    {"second barb", {0.0074F, 0, -0.0102F}, {0, 0, 0}},
};

Point3d tripleAt(const std::vector<float>& figure, std::size_t point) {
    return {figure.at(3 * point), figure.at(3 * point + 1), figure.at(3 * point + 2)};
}

template <std::size_t Count>
void expectFigure(const std::vector<float>& figure, const Segment (&segments)[Count]) {
    ASSERT_EQ(figure.size(), Count * 6);
    for (std::size_t i = 0; i < Count; ++i) {
        EXPECT_EQ(tripleAt(figure, 2 * i), segments[i].from) << segments[i].name;
        EXPECT_EQ(tripleAt(figure, 2 * i + 1), segments[i].to) << segments[i].name;
    }
}

}  // namespace

TEST(AxesFigure, Is17SegmentsWithTheLetters) {
    expectFigure(axesFigure(), kAxesSegments);
}

TEST(ToolFigure, Is3SegmentsWithTheTipAtTheOrigin) {
    expectFigure(toolFigure(), kToolSegments);
}

TEST(FigurePoints, UnderTheIdentityAreTwiceTheTripleWithRatioAndDepthDivisor) {
    const std::vector<Point3d> points = figurePoints({0.5F, 0.25F, 0.75F}, QMatrix4x4(), 3);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0], Point3d(1, 2 * (0.25F * 3), 2 * (0.75F / 2.5F)));
}

TEST(FigurePoints, ALastGroupOfFewerThanThreeIsDropped) {
    EXPECT_EQ(figurePoints({}, QMatrix4x4(), 1).size(), 0U);
    EXPECT_EQ(figurePoints({1}, QMatrix4x4(), 1).size(), 0U);
    EXPECT_EQ(figurePoints({1, 2}, QMatrix4x4(), 1).size(), 0U);
    EXPECT_EQ(figurePoints({1, 2, 3}, QMatrix4x4(), 1).size(), 1U);
    EXPECT_EQ(figurePoints({1, 2, 3, 4, 5}, QMatrix4x4(), 1).size(), 1U);
}

TEST(FigurePoints, Are34OfTheAxesAnd6OfTheTool) {
    EXPECT_EQ(figurePoints(axesFigure(), fittedProjection(30, 1), 1).size(), 34U);
    EXPECT_EQ(figurePoints(toolFigure(), fittedProjection(30, 1), 1).size(), 6U);
}

TEST(FigurePoints, KeepTheirSizeOnTheScreenWhateverTheScene) {
    for (const double size : {1.0, 13.0, 30.0, 5000.0}) {
        const QMatrix4x4 projection = fittedProjection(size, 1.5);
        const Point3d tip = figurePoints(axesFigure(), projection, 1.5F).at(1);
        const QVector3D shown = projection.map(QVector3D(tip.x, tip.y, tip.z));
        EXPECT_NEAR(shown.x(), 0.2, 1e-6) << size;
    }
}

TEST(FigurePoints, XAndYHaveEqualLengthsInPixelsOnAWideWidget) {
    const QMatrix4x4 projection = fittedProjection(30, 2);
    const std::vector<Point3d> axes = figurePoints(axesFigure(), projection, 2);
    const QVector3D x = projection.map(QVector3D(axes[1].x, axes[1].y, axes[1].z));
    const QVector3D y = projection.map(QVector3D(axes[3].x, axes[3].y, axes[3].z));
    EXPECT_NEAR(x.x() * 2, y.y(), 1e-6);
    EXPECT_NEAR(axes[1].x, axes[3].y, 1e-4);
}

TEST(FigurePoints, AreTheInverseOfTheProjectionDoubledOverRandomScenes) {
    std::mt19937 random(10);
    std::uniform_real_distribution<float> numbers(-1, 1);
    for (int i = 0; i < 2000; ++i) {
        const double size = 1 + 400.0 * std::fabs(static_cast<double>(numbers(random)));
        const float ratio = 0.2F + 2 * std::fabs(numbers(random));
        const std::vector<float> figure = {numbers(random), numbers(random), numbers(random)};
        const Point3d point =
            figurePoints(figure, fittedProjection(size, static_cast<double>(ratio)), ratio).at(0);
        const auto r = static_cast<double>(ratio);
        const double tolerance = 1e-5 * size * r + 1e-5 * size;
        ASSERT_NEAR(point.x, static_cast<double>(figure[0]) * 3 * size * r, tolerance);
        ASSERT_NEAR(point.y, static_cast<double>(figure[1]) * r * 3 * size, tolerance);
        ASSERT_NEAR(point.z, static_cast<double>(figure[2]) / 2.5 * -10 * size, tolerance);
    }
}

TEST(SceneSize, AddsTheTruncatedEndsOnBothSidesOfZero) {
    EXPECT_EQ(sceneSize({-10.7F, 0, 20.9F, 0}), 30);
    EXPECT_EQ(sceneSize({0, -10.7F, 0, 20.9F}), 30);
}

TEST(SceneSize, AddsThemAlsoOnTheSameSideOfZero) {
    EXPECT_EQ(sceneSize({5, 0, 8, 0}), 13);
    EXPECT_EQ(sceneSize({-8, 0, -5, 0}), 13);
    EXPECT_EQ(sceneSize({0, 5, 0, 8}), 13);
}

TEST(SceneSize, IsTheLargerOfTheTwoSpans) {
    EXPECT_EQ(sceneSize({0, 0, 7, 9}), 9);
    EXPECT_EQ(sceneSize({0, 0, 9, 7}), 9);
    EXPECT_EQ(sceneSize({0, 0, 9, 9}), 9);
}

TEST(SceneSize, OfFractionsIsZero) {
    EXPECT_EQ(sceneSize({-0.99F, -0.99F, 0.99F, 0.99F}), 0);
    EXPECT_EQ(sceneSize({}), 0);
}

TEST(SceneSize, BeyondAnyIntegerIsStillTheSum) {
    EXPECT_EQ(sceneSize({0, 0, 1e20F, 0}), static_cast<double>(1e20F));
    EXPECT_EQ(sceneSize({-1e20F, 0, 1e20F, 0}), 2 * static_cast<double>(1e20F));
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(sceneSize({0, 0, infinity, 0}), static_cast<double>(infinity));
}
