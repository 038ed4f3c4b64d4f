// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Along.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "geometry/Near.h"

namespace gcode_check {
namespace {

constexpr AlongBounds kBounds{1e-3, 0.5, 0.5};

class Random {
public:
    double between(double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(m_engine);
    }
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_engine); }
    PlanePoint place(double reach) {
        return below(2) == 0 ? PlanePoint{1.0 * below(4), 1.0 * below(4)}
                             : PlanePoint{between(0, reach), between(0, reach)};
    }
    Curve curve() {
        if (below(2) == 0) {
            return segmentCurve(place(4), place(4));
        }
        return arcCurve(place(4), below(2) == 0 ? 1 + below(3) : between(0.2, 5),
                        below(4) * kPi / 2, below(3) == 0 ? 2 * kPi : between(0.1, 6));
    }
    // Often one that lies along the other one for a while.
    Curve beside(const Curve& curve, double reach) {
        Curve other = partOf(curve, between(0, 0.5), between(0.5, 1));
        if (other.kind == Curve::Kind::Arc && below(2) == 0) {
            return segmentCurve(pointAt(other, 0), pointAt(other, between(0.05, 1)));
        }
        other.a.x += between(-reach, reach);
        other.b.y += between(-reach, reach);
        other.centre.x += between(-reach, reach);
        other.radius += other.radius > 0 ? between(0, reach) : 0;
        return other;
    }

private:
    std::mt19937 m_engine{4};
};

PlanePoint directionBeside(const Curve& curve, const PlanePoint& place) {
    return directionAt(curve, std::clamp(parameterOf(curve, place), 0.0, 1.0));
}

double sineAt(const Curve& curve, const Curve& other, double t) {
    const PlanePoint own = directionAt(curve, t);
    const PlanePoint its = directionBeside(other, pointAt(curve, t));
    return std::abs(own.x * its.y - own.y * its.x);
}

bool runsAlong(const Curve& curve, const Curve& other, const Interval& part) {
    const double length = (part.to - part.from) * lengthOf(curve);
    return std::max(sineAt(curve, other, part.from), sineAt(curve, other, part.to)) <=
               kBounds.parallel ||
           (sineAt(curve, other, (part.from + part.to) / 2) <= kBounds.rough &&
            length >= kBounds.part * lengthOf(other));
}

TEST(Along, WhatRunsAlongIsNeverLeftOutAndMostOfWhatCrossesIs) {
    Random random;
    int along = 0;
    int crossing = 0;
    int leftOut = 0;
    for (int round = 0; round < 60000; ++round) {
        const double reach = random.below(2) == 0 ? 0.02 : random.between(0.001, 0.3);
        const Curve curve = random.curve();
        const Curve other = random.below(2) == 0 ? random.curve() : random.beside(curve, reach);
        std::vector<Interval> parts;
        appendNear(curve, other, reach, Ends::Square, parts);
        const bool runs = std::any_of(parts.begin(), parts.end(), [&](const Interval& part) {
            return part.to > part.from && runsAlong(curve, other, part);
        });
        const bool may = mayRunAlong(curve, other, reach, kBounds);
        EXPECT_TRUE(may || !runs) << round;
        along += runs ? 1 : 0;
        crossing += runs || parts.empty() ? 0 : 1;
        leftOut += may || parts.empty() ? 0 : 1;
    }
    EXPECT_GT(along, 10000);
    EXPECT_GT(crossing, 5000);
    EXPECT_GT(leftOut, crossing / 2);
}

}  // namespace
}  // namespace gcode_check
