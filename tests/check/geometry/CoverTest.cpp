// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/Cover.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

namespace gcode_check {
namespace {

constexpr double kReach = 0.02;

// Lines and arcs, most of them through one place, many of them twice or nearly so.
class Crowd {
public:
    Crowd(unsigned seed, std::size_t count, bool straight) : m_engine(seed) {
        while (m_curves.size() < count) {
            const Curve curve = straight || below(3) > 0 ? line() : arc();
            m_curves.push_back(curve);
            if (below(3) == 0) {
                m_curves.push_back(beside(curve));
            }
        }
        std::vector<PlaneBox> boxes;
        for (const Curve& curve : m_curves) {
            boxes.push_back(boxOf(curve));
        }
        m_tree = BoxTree(boxes);
    }

    const Curve& at(std::size_t index) const { return m_curves[index]; }
    std::size_t size() const { return m_curves.size(); }
    const BoxTree& tree() const { return m_tree; }
    // Mostly one of them, or beside one.
    Curve probe() {
        const Curve& curve = m_curves[static_cast<std::size_t>(below(static_cast<int>(size())))];
        return below(3) == 0 ? beside(curve) : curve;
    }

private:
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_engine); }
    double between(double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(m_engine);
    }
    Curve line() {
        const double angle = between(0, 2 * kPi);
        const double from = below(2) == 0 ? 0 : between(-50, 50);
        const double to = from + between(1, 60);
        const double off = between(-0.01, 0.01);
        return segmentCurve({from * std::cos(angle) - off, from * std::sin(angle) + off},
                            {to * std::cos(angle) - off, to * std::sin(angle) + off});
    }
    Curve arc() {
        const double angle = between(0, 2 * kPi);
        const double radius = between(1, 40);
        return arcCurve({radius * std::cos(angle), radius * std::sin(angle)}, radius,
                        angle + kPi - between(0, 3), between(1, 6));
    }
    Curve beside(Curve curve) {
        const double off = below(2) == 0 ? between(-0.03, 0.03) : 0;
        for (PlanePoint* place : {&curve.a, &curve.b, &curve.centre}) {
            place->x += off;
        }
        return partOf(curve, below(2) == 0 ? 0 : 0.3, below(2) == 0 ? 1 : 0.8);
    }

    std::mt19937 m_engine;
    std::vector<Curve> m_curves;
    BoxTree m_tree;
};

std::vector<Interval> literalGaps(const Crowd& crowd, const Curve& curve) {
    std::vector<Interval> covered;
    for (std::size_t index = 0; index < crowd.size(); ++index) {
        appendNear(curve, crowd.at(index), kReach, Ends::Round, covered);
    }
    return gapsOf(covered, 1e-7 / lengthOf(curve) + 1e-10);
}

TEST(Cover, LeavesTheGapsThatAllCurvesTogetherLeave) {
    std::size_t gaps = 0;
    std::size_t whole = 0;
    for (unsigned seed = 0; seed < 8; ++seed) {
        Crowd crowd(seed, seed % 2 == 0 ? 1500 : 40, seed < 4);
        const auto curveAt = [&crowd](std::size_t index) -> const Curve& {
            return crowd.at(index);
        };
        const DirectedTree directed(crowd.size(), curveAt, kReach, {});
        for (int probe = 0; probe < 100; ++probe) {
            const Curve curve = crowd.probe();
            const std::vector<Interval> literal = literalGaps(crowd, curve);
            const std::vector<Interval> found =
                Cover(curve, kReach).gaps(crowd.tree(), directed, curveAt);
            ASSERT_EQ(found.size(), literal.size()) << seed << ' ' << probe;
            for (std::size_t gap = 0; gap < found.size(); ++gap) {
                EXPECT_NEAR(found[gap].from, literal[gap].from, 1e-9);
                EXPECT_NEAR(found[gap].to, literal[gap].to, 1e-9);
            }
            gaps += found.size();
            whole += found.empty() ? 1U : 0U;
        }
    }
    EXPECT_GT(gaps, 100U);
    EXPECT_GT(whole, 200U);
}

TEST(Cover, LooksAtFewOfThousandsThatMeetInOnePlace) {
    Crowd crowd(77, 3000, true);
    std::size_t looks = 0;
    const auto curveAt = [&crowd, &looks](std::size_t index) -> const Curve& {
        ++looks;
        return crowd.at(index);
    };
    const DirectedTree directed(crowd.size(), curveAt, kReach, {});
    directed.each(crowd.at(0), [](std::size_t) { return false; });
    looks = 0;
    for (std::size_t index = 0; index < crowd.size(); ++index) {
        EXPECT_TRUE(Cover(crowd.at(index), kReach).gaps(crowd.tree(), directed, curveAt).empty());
    }
    EXPECT_LT(looks, crowd.size() * 150);
}

// Whether a straight curve runs along a segment by the bounds, found without the tree.
bool runsAlong(const Curve& segment, const Curve& other, const AlongBounds& bounds) {
    if (other.kind != Curve::Kind::Segment) {
        return false;
    }
    std::vector<Interval> parts;
    appendNear(segment, other, kReach, Ends::Square, parts);
    const PlanePoint own = directionAt(segment, 0);
    const PlanePoint its = directionAt(other, 0);
    const double sine = std::abs(own.x * its.y - own.y * its.x);
    const double length = widthOf(parts) * lengthOf(segment);
    return !parts.empty() && (sine <= bounds.parallel ||
                              (sine <= bounds.rough && length >= bounds.part * lengthOf(other)));
}

TEST(DirectedTree, FindsAllThatRunsAlongAndFewThatCross) {
    const AlongBounds bounds{1e-3, 0.5, 0.5};
    Crowd crowd(5, 3000, false);
    const auto curveAt = [&crowd](std::size_t index) -> const Curve& { return crowd.at(index); };
    const DirectedTree directed(crowd.size(), curveAt, kReach, bounds);
    std::size_t visits = 0;
    std::size_t along = 0;
    for (int probe = 0; probe < 100; ++probe) {
        Curve curve = crowd.probe();
        while (curve.kind != Curve::Kind::Segment) {
            curve = crowd.probe();
        }
        std::vector<bool> visited(crowd.size(), false);
        directed.each(curve, [&](std::size_t index) {
            EXPECT_FALSE(visited[index]);
            visited[index] = true;
            visits += crowd.at(index).kind == Curve::Kind::Segment ? 1U : 0U;
            return true;
        });
        for (std::size_t index = 0; index < crowd.size(); ++index) {
            if (runsAlong(curve, crowd.at(index), bounds)) {
                EXPECT_TRUE(visited[index]) << probe << ' ' << index;
                ++along;
            }
        }
    }
    EXPECT_GT(along, 100U);
    EXPECT_LT(visits, 100U * crowd.size() / 50);
}

}  // namespace
}  // namespace gcode_check
