// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Near.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

namespace gcode_check {
namespace {

class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    double between(double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(m_engine);
    }
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_engine); }
    PlanePoint place() { return {between(0, 4), between(0, 4)}; }
    // Round numbers give the cases where curves touch, meet and lie on each other.
    PlanePoint roundPlace() { return {1.0 * below(5), 1.0 * below(5)}; }

    Curve curve() {
        const bool round = below(2) == 0;
        const PlanePoint a = round ? roundPlace() : place();
        switch (below(5)) {
            case 0:
                return pointCurve(a);
            case 1:
            case 2:
                return segmentCurve(a, round ? roundPlace() : place());
            default:
                return round
                           ? arcCurve(a, 1 + below(2), below(4) * kPi / 2, (1 + below(4)) * kPi / 2)
                           : arcCurve(a, between(0.2, 3), between(0, 7), between(-7, 7));
        }
    }

private:
    std::mt19937 m_engine;
};

bool holds(const std::vector<Interval>& parts, double t) {
    return std::any_of(parts.begin(), parts.end(),
                       [t](const Interval& part) { return part.from <= t && t <= part.to; });
}

bool isBeside(const Curve& other, const PlanePoint& place) {
    const double t = parameterOf(other, place);
    return t >= 0 && t <= 1;
}

bool isAtEnd(const Curve& other, const PlanePoint& place) {
    const double t = parameterOf(other, place);
    return std::abs(t) < 1e-7 || std::abs(t - 1) < 1e-7;
}

// Literally: place by place.
void compare(const Curve& curve, const Curve& other, double reach, Ends ends) {
    std::vector<Interval> parts;
    appendNear(curve, other, reach, ends, parts);
    for (int step = 0; step <= 400; ++step) {
        const double t = (step + 0.37) / 401;
        const PlanePoint place = pointAt(curve, t);
        const double off = distance(other, place);
        // At a border either answer is right.
        if (std::abs(off - reach) < 1e-7 || (ends == Ends::Square && isAtEnd(other, place))) {
            continue;
        }
        const bool near = off < reach && (ends == Ends::Round || isBeside(other, place));
        EXPECT_EQ(near, holds(parts, t)) << "at " << t << ", " << off;
    }
}

TEST(Near, FindsWhatLooksNearPlaceByPlace) {
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Random random(seed);
        const Curve curve = random.curve();
        const Curve other = random.curve();
        const double reach = random.below(2) == 0 ? 0.02 : random.between(0.001, 1);
        SCOPED_TRACE("seed " + std::to_string(seed));
        compare(curve, other, reach, Ends::Round);
        compare(curve, other, reach, Ends::Square);
        if (HasFailure()) {
            return;
        }
    }
}

TEST(Near, ACurveLiesNearItselfEntirely) {
    for (unsigned seed = 0; seed < 500; ++seed) {
        Random random(seed);
        const Curve curve = random.curve();
        std::vector<Interval> parts;
        appendNear(curve, curve, 1e-3, Ends::Round, parts);
        EXPECT_TRUE(gapsOf(parts, 1e-9).empty()) << "seed " << seed;
    }
}

TEST(Near, ABoxThatACurveReachesIsNeverLeftOut) {
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Random random(seed);
        const Curve curve = random.curve();
        const Curve other = random.curve();
        const double reach = random.between(0.001, 0.5);
        std::vector<Interval> parts;
        appendNear(curve, other, reach, Ends::Round, parts);
        if (!parts.empty()) {
            EXPECT_TRUE(mayReach(curve, boxOf(other), reach)) << "seed " << seed;
        }
    }
}

TEST(Near, WhatASegmentAlongAnArcIsBesideLiesBetweenWhatItSaysAndItsSlack) {
    constexpr double kWide = 0.05;
    Random random(11);
    const auto within = [](const Interval& part, const std::vector<Interval>& parts, double slack) {
        return std::any_of(parts.begin(), parts.end(), [&](const Interval& other) {
            return part.from >= other.from - slack - 1e-9 && part.to <= other.to + slack + 1e-9;
        });
    };
    int along = 0;
    for (int round = 0; round < 20000; ++round) {
        const double sweep = random.below(3) == 0 ? 2 * kPi : random.between(0.2, 6);
        const Curve arc = arcCurve({random.between(-1, 1), random.between(-1, 1)},
                                   random.between(0.3, 5), random.between(0, 6), sweep);
        const auto place = [&](double t) {
            const PlanePoint on = pointAt(arc, t);
            return PlanePoint{on.x + random.between(-0.06, 0.06),
                              on.y + random.between(-0.06, 0.06)};
        };
        const double t = random.between(-0.1, 1.1);
        const Curve chord = segmentCurve(place(t), place(t + random.between(-0.1, 0.1)));
        const auto beside = besideSegment(arc, chord, kWide);
        if (!beside) {
            continue;
        }
        ++along;
        const std::vector<Interval> found(beside->parts.begin(),
                                          beside->parts.begin() + beside->count);
        std::vector<Interval> near;
        appendNear(arc, chord, kWide, Ends::Round, near);
        std::vector<Interval> square;
        appendNear(arc, chord, kWide, Ends::Square, square);
        for (const Interval& part : found) {
            EXPECT_TRUE(within(part, near, 0)) << round;
        }
        for (const Interval& part : square) {
            // Across the begin of a full turn lies no more than the slack.
            const bool isHair = part.to - part.from <= beside->slack + 1e-9;
            EXPECT_TRUE(isHair || within(part, found, beside->slack)) << round;
        }
    }
    EXPECT_GT(along, 3000);
}

}  // namespace
}  // namespace gcode_check
