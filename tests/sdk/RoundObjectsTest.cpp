// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>

#include <cmath>
#include <random>

#include "Numbers.h"

namespace {

/// Compares the derivatives at a parameter with central differences of points and of slopes.
template <class Curve>
void expectDerivativesFit(const Curve& curve, double parameter, double size) {
    const double step = 1e-5;
    const Evaluated before = evaluate(curve, parameter - step);
    const Evaluated here = evaluate(curve, parameter);
    const Evaluated after = evaluate(curve, parameter + step);
    for (int i = 0; i < 3; ++i) {
        const double slope = (after.point[i] - before.point[i]) / (2 * step);
        const double bend = (after.first[i] - before.first[i]) / (2 * step);
        EXPECT_NEAR(here.first[i], slope, 1e-8 * size) << parameter;
        EXPECT_NEAR(here.second[i], bend, 1e-8 * size) << parameter;
    }
}

template <class Curve>
void expectNullArraysAreSkipped(const Curve& curve) {
    const Evaluated all = evaluate(curve, 0.5);
    double point[3] = {-7, -7, -7};
    double second[3] = {-7, -7, -7};
    curve.EvaluateAtParameter(0.5, point, nullptr, nullptr);
    curve.EvaluateAtParameter(0.5, point, nullptr, second);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(point[i], all.point[i]);
        EXPECT_EQ(second[i], all.second[i]);
    }
}

TEST(kxCircle, givesCentreAndRadius) {
    const kxCircle_ptr circle = kxCreateCircle("0", {1, -2, 3}, 4.5);
    double x = 0;
    double y = 0;
    double z = 0;
    double radius = 0;
    circle->GetCenter(&x, &y, &z);
    circle->get_Radius(&radius);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, -2);
    EXPECT_EQ(z, 3);
    EXPECT_EQ(radius, 4.5);
}

TEST(kxCircle, bothEndsAreTheSamePointBitForBit) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> place(-1e4, 1e4);
    std::uniform_real_distribution<double> size(1e-3, 1e4);
    for (int i = 0; i < 10000; ++i) {
        const kxVector3 center{place(random), place(random), place(random)};
        const double radius = size(random);
        const kxCircle_ptr circle = kxCreateCircle("0", center, radius);
        double start = -7;
        double end = -7;
        circle->GetEndParams(&start, &end);
        ASSERT_EQ(start, 0);
        ASSERT_EQ(end, 2 * kPi);
        const double expected[] = {center.x + radius, center.y, center.z};
        const Evaluated first = evaluate(*circle, start);
        const Evaluated last = evaluate(*circle, end);
        for (int k = 0; k < 3; ++k) {
            ASSERT_EQ(bitsOf(first.point[k]), bitsOf(expected[k]));
            ASSERT_EQ(bitsOf(last.point[k]), bitsOf(expected[k]));
        }
    }
}

TEST(kxCircle, isCentrePlusRadiusTimesCosAndSin) {
    const kxCircle_ptr circle = kxCreateCircle("0", {10, 20, 30}, 2);
    for (const double t : {0.3, 1.0, 2.5, 4.0, 6.0, -1.0, 7.0}) {
        const Evaluated at = evaluate(*circle, t);
        EXPECT_EQ(at.point[0], 10 + 2 * std::cos(t));
        EXPECT_EQ(at.point[1], 20 + 2 * std::sin(t));
        EXPECT_EQ(at.point[2], 30);
    }
}

TEST(kxCircle, derivativesFitFiniteDifferences) {
    const kxCircle_ptr circle = kxCreateCircle("0", {10, 20, 30}, 2);
    for (double t = 0.1; t < 6.2; t += 0.37) {
        expectDerivativesFit(*circle, t, 20);
    }
    expectNullArraysAreSkipped(*circle);
}

struct EndRow {
    const char* name;
    double start;
    double end;
    double expectedEnd;
};

class EndAfterStart : public testing::TestWithParam<EndRow> {};

TEST_P(EndAfterStart, holdsForArcsAndEllipses) {
    const EndRow row = GetParam();
    const kxCircleArc_ptr arc = kxCreateCircleArc("0", {{}, 1, row.start, row.end});
    const kxEllipseArc_ptr ellipse =
        kxCreateEllipseArc("0", {{}, {2, 0, 0}, {0, 1, 0}, row.start, row.end});
    double start = 0;
    double end = 0;
    arc->GetEndParams(&start, &end);
    EXPECT_EQ(start, row.start);
    EXPECT_EQ(end, row.expectedEnd);
    ellipse->GetEndParams(&start, &end);
    EXPECT_EQ(start, row.start);
    EXPECT_EQ(end, row.expectedEnd);
}

INSTANTIATE_TEST_SUITE_P(rows, EndAfterStart,
                         testing::Values(EndRow{"alreadyAfter", 1, 2, 2},
                                         EndRow{"before", 3, 1, 1 + 2 * kPi},
                                         EndRow{"equalIsAFullTurn", 1, 1, 1 + 2 * kPi},
                                         EndRow{"negative", -1, -2, -2 + 2 * kPi},
                                         EndRow{"moreThanATurnStays", 0, 7, 7}),
                         [](const auto& row) { return row.param.name; });

TEST(kxCircleArc, isCentrePlusRadiusTimesCosAndSin) {
    const kxCircleArc_ptr arc = kxCreateCircleArc("0", {{10, 20, 30}, 2, 0.5, 2});
    for (const double t : {0.5, 1.0, 2.0}) {
        const Evaluated at = evaluate(*arc, t);
        EXPECT_EQ(at.point[0], 10 + 2 * std::cos(t));
        EXPECT_EQ(at.point[1], 20 + 2 * std::sin(t));
        EXPECT_EQ(at.point[2], 30);
    }
    double x = 0;
    double y = 0;
    double z = 0;
    double radius = 0;
    arc->GetCenter(&x, &y, &z);
    arc->get_Radius(&radius);
    EXPECT_EQ(x, 10);
    EXPECT_EQ(y, 20);
    EXPECT_EQ(z, 30);
    EXPECT_EQ(radius, 2);
}

TEST(kxCircleArc, derivativesFitFiniteDifferences) {
    const kxCircleArc_ptr arc = kxCreateCircleArc("0", {{-3, 4, 5}, 7, 1, 5});
    for (double t = 1.1; t < 5; t += 0.29) {
        expectDerivativesFit(*arc, t, 70);
    }
    expectNullArraysAreSkipped(*arc);
}

TEST(kxCircleArc, evaluatesToExactEndsAtItsEndParametersOnly) {
    const kxVector3 exactStart{0.1, 0.2, 0.3};
    const kxVector3 exactEnd{0.4, 0.5, 0.6};
    // The end is stored before the start, so that the turn is added to it.
    const kxCircleArc_ptr arc =
        kxCreateCircleArc("0", {{10, 20, 30}, 2, 3, 1, exactStart, exactEnd});
    double start = 0;
    double end = 0;
    arc->GetEndParams(&start, &end);
    const Evaluated first = evaluate(*arc, start);
    const Evaluated last = evaluate(*arc, end);
    const double expectedFirst[] = {0.1, 0.2, 0.3};
    const double expectedLast[] = {0.4, 0.5, 0.6};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(bitsOf(first.point[i]), bitsOf(expectedFirst[i]));
        EXPECT_EQ(bitsOf(last.point[i]), bitsOf(expectedLast[i]));
    }
    EXPECT_EQ(first.first[0], -2 * std::sin(start));
    EXPECT_EQ(last.second[1], -2 * std::sin(end));
    const double inside = std::nextafter(start, end);
    EXPECT_EQ(evaluate(*arc, inside).point[0], 10 + 2 * std::cos(inside));
}

TEST(kxCircleArc, oneExactEndLeavesTheOtherToTheFormula) {
    kxCircleArcData data{{}, 1, 0.5, 1.5};
    data.exactEnd = kxVector3{9, 9, 9};
    const kxCircleArc_ptr arc = kxCreateCircleArc("0", data);
    EXPECT_EQ(evaluate(*arc, 0.5).point[0], std::cos(0.5));
    EXPECT_EQ(evaluate(*arc, 1.5).point[0], 9);
}

TEST(kxEllipseArc, isCentrePlusCosMajorPlusSinMinor) {
    const kxEllipseArc_ptr ellipse =
        kxCreateEllipseArc("0", {{1, 2, 3}, {4, 3, 0}, {-1.5, 2, 0}, 0, 2 * kPi});
    for (const double t : {0.0, 0.7, kPi / 2, 3.0, 2 * kPi}) {
        const Evaluated at = evaluate(*ellipse, t);
        EXPECT_DOUBLE_EQ(at.point[0], 1 + 4 * std::cos(t) - 1.5 * std::sin(t));
        EXPECT_DOUBLE_EQ(at.point[1], 2 + 3 * std::cos(t) + 2 * std::sin(t));
        EXPECT_EQ(at.point[2], 3);
    }
}

TEST(kxEllipseArc, givesCentreAndAxes) {
    const kxEllipseArc_ptr ellipse =
        kxCreateEllipseArc("0", {{1, 2, 3}, {4, 3, 0.5}, {-1.5, 2, 0.25}, 0, 1});
    double x = 0;
    double y = 0;
    double z = 0;
    ellipse->GetCenter(&x, &y, &z);
    EXPECT_EQ(x + 10 * y + 100 * z, 321);
    ellipse->GetMajorAxis(&x, &y, &z);
    EXPECT_EQ(x, 4);
    EXPECT_EQ(y, 3);
    EXPECT_EQ(z, 0.5);
    ellipse->GetMinorAxis(&x, &y, &z);
    EXPECT_EQ(x, -1.5);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 0.25);
}

TEST(kxEllipseArc, derivativesFitFiniteDifferences) {
    const kxEllipseArc_ptr ellipse =
        kxCreateEllipseArc("0", {{1, 2, 3}, {4, 3, 1}, {-1.5, 2, 0.5}, 0.2, 6});
    for (double t = 0.3; t < 6; t += 0.31) {
        expectDerivativesFit(*ellipse, t, 10);
    }
    expectNullArraysAreSkipped(*ellipse);
}

}  // namespace
