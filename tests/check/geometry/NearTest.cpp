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
        std::vector<Interval> found;
        ChordsOfArc chords(arc, kWide, found);
        if (!chords.add(chord)) {
            continue;
        }
        chords.finish();
        ++along;
        std::vector<Interval> near;
        appendNear(arc, chord, kWide, Ends::Round, near);
        std::vector<Interval> square;
        appendNear(arc, chord, kWide, Ends::Square, square);
        for (const Interval& part : found) {
            EXPECT_TRUE(within(part, near, 0)) << round;
        }
        for (const Interval& part : square) {
            // Across the begin of a full turn lies no more than the slack.
            const bool isHair = part.to - part.from <= chords.slack() + 1e-9;
            EXPECT_TRUE(isHair || within(part, found, chords.slack())) << round;
        }
    }
    EXPECT_GT(along, 3000);
}

// A way round a circle that begins anywhere, now and then where the circle does, and turns back
// now and then.
std::vector<Curve> chordsRound(const Curve& circle, Random& random) {
    std::vector<Curve> chords;
    double angle = random.below(3) == 0 ? circle.start : random.between(0, 7);
    double step = random.below(2) == 0 ? kPi / 24 : -kPi / 24;
    const auto place = [&] {
        const double radius = circle.radius + random.between(-0.004, 0.004);
        return PlanePoint{circle.centre.x + radius * std::cos(angle),
                          circle.centre.y + radius * std::sin(angle)};
    };
    PlanePoint from = place();
    for (int count = 1 + random.below(150); count > 0; --count) {
        step = random.below(40) == 0 ? -step : step;
        angle += step * (random.below(4) == 0 ? random.between(0.2, 1) : 1);
        const PlanePoint to = place();
        chords.push_back(segmentCurve(from, to));
        from = to;
    }
    return chords;
}

TEST(Near, ARowOfChordsGathersWhatItsChordsGatherOneByOne) {
    Random random(23);
    int many = 0;
    for (int round = 0; round < 2000; ++round) {
        const Curve circle = arcCurve({random.between(-9, 9), random.between(-9, 9)},
                                      random.below(2) == 0 ? 1 : random.between(0.5, 2),
                                      random.below(2) == 0 ? 0 : random.between(0, 6), 2 * kPi);
        std::vector<Interval> together;
        std::vector<Interval> single;
        std::vector<Interval> all;
        ChordsOfArc row(circle, 0.02, together);
        for (const Curve& chord : chordsRound(circle, random)) {
            ASSERT_TRUE(row.add(chord));
            ChordsOfArc alone(circle, 0.02, single);
            ASSERT_TRUE(alone.add(chord));
            alone.finish();
            all.insert(all.end(), single.begin(), single.end());
        }
        row.finish();
        EXPECT_NEAR(widthOf(together), widthOf(all), 1e-9) << round;
        many += together.size() < all.size() / 4 ? 1 : 0;
        const std::vector<Interval> gaps = gapsOf(together, 1e-9);
        const std::vector<Interval> expected = gapsOf(all, 1e-9);
        ASSERT_EQ(gaps.size(), expected.size()) << round;
        for (std::size_t at = 0; at < gaps.size(); ++at) {
            EXPECT_NEAR(gaps[at].from, expected[at].from, 1e-9) << round;
            EXPECT_NEAR(gaps[at].to, expected[at].to, 1e-9) << round;
        }
    }
    EXPECT_GT(many, 500);
}

}  // namespace
}  // namespace gcode_check
