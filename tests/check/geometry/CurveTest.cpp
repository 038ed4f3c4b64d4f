// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Curve.h"

#include <cmath>

#include <gtest/gtest.h>

namespace gcode_check {
namespace {

Shape arcShape(double startRad, double endRad) {
    Shape shape;
    shape.kind = ShapeKind::Arc;
    shape.centre = {1, 2};
    shape.radius = 3;
    shape.startRad = startRad;
    shape.endRad = endRad;
    return shape;
}

TEST(Curve, AnArcWhoseEndLiesBeforeItsStartRunsThroughZero) {
    const Curve curve = curveOf(arcShape(1.5 * kPi, 0.5 * kPi));
    EXPECT_NEAR(curve.sweep, kPi, 1e-12);
    EXPECT_NEAR(pointAt(curve, 0.5).x, 4, 1e-12);
    EXPECT_NEAR(pointAt(curve, 0.5).y, 2, 1e-12);
}

TEST(Curve, AnArcWithEqualAnglesIsAFullCircle) {
    EXPECT_NEAR(lengthOf(curveOf(arcShape(1, 1))), 6 * kPi, 1e-12);
}

TEST(Curve, AFullTurnStaysOneWhenItsAnglesAreRounded) {
    for (const double off : {0.0, 1e-15, -1e-15, 4e-12}) {
        EXPECT_NEAR(lengthOf(curveOf(arcShape(4.716, 4.716 + 2 * kPi + off))), 6 * kPi, 1e-9);
    }
}

TEST(Curve, AClockwiseSweepIsTheSameArcFromItsOtherEnd) {
    const Curve curve = arcCurve({0, 0}, 1, kPi / 2, -kPi / 2);
    EXPECT_NEAR(curve.start, 0, 1e-12);
    EXPECT_NEAR(curve.sweep, kPi / 2, 1e-12);
}

TEST(Curve, WithoutLengthItIsAPoint) {
    EXPECT_EQ(segmentCurve({1, 1}, {1, 1}).kind, Curve::Kind::Point);
    EXPECT_EQ(arcCurve({1, 1}, 0, 0, 1).kind, Curve::Kind::Point);
}

TEST(Curve, TheBoxOfAnArcHoldsWhereItTurnsBack) {
    const PlaneBox box = boxOf(arcCurve({0, 0}, 2, kPi / 4, kPi));
    EXPECT_NEAR(box.maxY, 2, 1e-12);
    EXPECT_NEAR(box.minX, -2, 1e-12);
    EXPECT_NEAR(box.minY, -std::sqrt(2), 1e-12);
    EXPECT_NEAR(box.maxX, std::sqrt(2), 1e-12);
}

TEST(Curve, TheDistanceToAnArcIsToItsEndsBesideItsSweep) {
    const Curve quarter = arcCurve({0, 0}, 1, 0, kPi / 2);
    EXPECT_NEAR(distance(quarter, {2, 2}), std::sqrt(8) - 1, 1e-12);
    EXPECT_NEAR(distance(quarter, {1, -1}), 1, 1e-12);
    EXPECT_NEAR(distance(quarter, {0, 0}), 1, 1e-12);
    EXPECT_NEAR(distance(quarter, {-3, 1}), 3, 1e-12);
}

TEST(Curve, NumbersThatAreNoneCannotBeUsed) {
    EXPECT_FALSE(isFinite(segmentCurve({0, 0}, {std::nan(""), 0})));
    EXPECT_FALSE(isFinite(pointCurve({INFINITY, 0})));
    EXPECT_FALSE(isFinite(arcCurve({0, 0}, 1e300, 0, 1)));
    EXPECT_TRUE(isFinite(segmentCurve({0, 0}, {1e9, 0})));
}

}  // namespace
}  // namespace gcode_check
