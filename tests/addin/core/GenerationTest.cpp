// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The fast writing of a tool path against the plain one.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include "LiteralGenerators.h"
#include "core/MotionLine.h"

using GCode::formatNumber;
using GCode::Point;

namespace {

double fromBits(std::uint64_t bits) {
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

bool sameBits(const GCode::PositionAndFeed& a, const GCode::PositionAndFeed& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// The value and its neighbours on both sides, each with both signs.
void expectAsTheStreamWritesAround(double value) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double near :
         {value, std::nextafter(value, kInfinity), std::nextafter(value, -kInfinity)}) {
        ASSERT_EQ(formatNumber(near), literalNumber(near)) << std::hexfloat << near;
        ASSERT_EQ(formatNumber(-near), literalNumber(-near)) << std::hexfloat << near;
    }
}

/// Random tool paths: coordinates on a coarse grid, so that much falls together, or anything.
class RandomPath {
public:
    explicit RandomPath(std::uint64_t seed) : m_random(seed), m_hostile(below(4) == 0) {}

    std::uint64_t below(std::uint64_t limit) { return m_random() % limit; }

    double number() {
        constexpr std::array<double, 6> kHostile{std::numeric_limits<double>::quiet_NaN(),
                                                 std::numeric_limits<double>::infinity(),
                                                 -std::numeric_limits<double>::infinity(),
                                                 -0.0,
                                                 1e300,
                                                 5e-324};
        if (m_hostile && below(5) == 0) {
            return below(2) == 0 ? kHostile.at(below(kHostile.size())) : fromBits(m_random());
        }
        return below(2) == 0 ? static_cast<double>(below(7)) - 3
                             : static_cast<double>(below(2000001)) * 0.001 - 1000;
    }

    Point point() {
        const double x = number();
        const double y = number();
        return {x, y, below(4) == 0 ? number() : 0.0};
    }

    /// Where the path is now, or anywhere.
    Point next() { return below(2) == 0 ? m_last : point(); }

    GCode::ToolPathSettings settings() {
        constexpr std::array<double, 3> kFeeds{0, 100, 250.5};
        GCode::ToolPathSettings settings;
        settings.mode = below(2) == 0 ? GCode::MotionMode::relative : GCode::MotionMode::absolute;
        settings.feedXY = below(5) == 0 ? number() : kFeeds.at(below(3));
        settings.feedZ = below(5) == 0 ? number() : kFeeds.at(below(3));
        const double safe = number();
        const double clearance = number();
        settings.parameters.SetParams(safe, clearance, number(), mm);
        return settings;
    }

    /// One more object, written by either writer.
    template <class A, class B>
    void expectSameText(A* fast, B* literal) {
        const Point first = next();
        const Point second = next();
        switch (below(3)) {
            case 0:
                EXPECT_EQ(fast->line(first, second), literal->line(first, second));
                m_last = second;
                break;
            case 1:
                EXPECT_EQ(fast->point(first), literal->point(first));
                m_last = first;
                break;
            default: {
                const GCode::ArcGeometry arc{first, second, point(), 1};
                EXPECT_EQ(fast->arc(arc), literal->arc(arc));
                break;
            }
        }
    }

private:
    std::mt19937_64 m_random;
    bool m_hostile;
    Point m_last;
};

}  // namespace

TEST(NumberText, IsWhatTheStreamWritesForAMillionRandomBitPatterns) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 1000000; ++i) {
        const double value = fromBits(random());
        ASSERT_EQ(formatNumber(value), literalNumber(value)) << std::hexfloat << value;
    }
}

TEST(NumberText, IsWhatTheStreamWritesForAMillionValuesOfUsualSize) {
    std::mt19937_64 random(8);
    for (int i = 0; i < 1000000; ++i) {
        const int exponent = static_cast<int>(random() % 14) - 6;
        const double value =
            std::ldexp(static_cast<double>(random() >> 11U), -53) * std::pow(10.0, exponent);
        const double signedValue = (random() & 1U) != 0 ? -value : value;
        ASSERT_EQ(formatNumber(signedValue), literalNumber(signedValue))
            << std::hexfloat << signedValue;
    }
}

TEST(NumberText, IsWhatTheStreamWritesHalfwayBetweenTwoResultsAndBesideIt) {
    std::mt19937_64 random(9);
    for (int i = 0; i < 100000; ++i) {
        // Six digits and a half, anywhere from below the smallest to above the greatest fixed form.
        const double half = static_cast<double>(random() % 1000000) + 0.5;
        const double scale = std::pow(10.0, static_cast<double>(random() % 12));
        const double beside = std::pow(10.0, -1 - static_cast<double>(random() % 11));
        expectAsTheStreamWritesAround(half / scale);
        expectAsTheStreamWritesAround((half - beside) / scale);
        expectAsTheStreamWritesAround((half + beside) / scale);
    }
}

TEST(NumberText, IsWhatTheStreamWritesHalfwayWhereABinaryFractionIsExactlyThere) {
    for (int whole = 0; whole < 4096; ++whole) {
        for (const double part : {0.5, 0.25, 0.125, 0.0625, 0.03125, 0.015625, 0.0078125}) {
            expectAsTheStreamWritesAround(whole + part);
            expectAsTheStreamWritesAround(whole * 25.0 + part);
            expectAsTheStreamWritesAround(99999.5 - whole + part);
        }
    }
}

TEST(NumberText, IsWhatTheStreamWritesAroundPowersOfTenAndWhereRoundingCarries) {
    for (int exponent = -330; exponent <= 308; ++exponent) {
        const double power = std::pow(10.0, exponent);
        expectAsTheStreamWritesAround(power);
        for (const double nines :
             {9.99999, 9.999994, 9.999995, 9.9999949999, 9.9999950001, 9.9999999}) {
            expectAsTheStreamWritesAround(nines * power);
        }
    }
}

TEST(NumberText, IsWhatTheStreamWritesForDenormalsAndWhatIsNoNumber) {
    using Limits = std::numeric_limits<double>;
    for (std::uint64_t bits = 0; bits < 20000; ++bits) {
        expectAsTheStreamWritesAround(fromBits(bits));
    }
    for (const double value : {Limits::quiet_NaN(), Limits::infinity(), Limits::max(), 0.0}) {
        EXPECT_EQ(formatNumber(value), literalNumber(value));
        EXPECT_EQ(formatNumber(-value), literalNumber(-value));
    }
}

TEST(NumberText, IsWhatTheStreamWritesForAllNumbersOfFourDecimals) {
    for (int i = 0; i < 2000000; i += 3) {
        const double value = i / 10000.0;
        ASSERT_EQ(formatNumber(value), literalNumber(value)) << i;
    }
}

TEST(ToolPathText, IsThatOfMapsAndStreamsForRandomPaths) {
    for (std::uint64_t seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        RandomPath path(seed);
        const GCode::ToolPathSettings settings = path.settings();
        GCode::PositionAndFeed state;
        GCode::PositionAndFeed literalState;
        GCode::ToolPathWriter fast(settings, &state);
        LiteralToolPath literal(settings, &literalState);
        for (int i = 0; i < 40; ++i) {
            path.expectSameText(&fast, &literal);
            ASSERT_TRUE(sameBits(state, literalState));
            ASSERT_FALSE(testing::Test::HasFailure());
        }
    }
}
