// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "Numbers.h"

namespace {

/// The basis functions in the words of their recursive definition (Cox and de Boor), with 0/0 = 0.
class NaiveBasis {
public:
    NaiveBasis(const std::vector<double>& knots, double end) : m_knots(knots), m_end(end) {}

    double value(std::size_t i, std::size_t p, double t) const {
        if (p == 0) {
            // At the end counts the interval before it, which is closed, not one behind it.
            const double low = m_knots[i];
            const double high = m_knots[i + 1];
            return low < high && (t == m_end ? high == m_end : low <= t && t < high);
        }
        return ratio(t - m_knots[i], m_knots[i + p] - m_knots[i]) * value(i, p - 1, t) +
               ratio(m_knots[i + p + 1] - t, m_knots[i + p + 1] - m_knots[i + 1]) *
                   value(i + 1, p - 1, t);
    }

    double slope(std::size_t i, std::size_t p, double t) const {
        const auto degree = static_cast<double>(p);
        return ratio(degree, m_knots[i + p] - m_knots[i]) * value(i, p - 1, t) -
               ratio(degree, m_knots[i + p + 1] - m_knots[i + 1]) * value(i + 1, p - 1, t);
    }

private:
    static double ratio(double a, double b) { return b == 0 ? 0 : a / b; }

    const std::vector<double>& m_knots;
    double m_end;
};

struct PointAndSlope {
    double point[3];
    double slope[3];
};

PointAndSlope naiveEvaluate(const kxSplineData& data, double t) {
    const auto p = static_cast<std::size_t>(data.degree);
    const NaiveBasis basis(data.knots, data.knots[data.controlPoints.size()]);
    double sum[4] = {};
    double slope[4] = {};
    for (std::size_t i = 0; i < data.controlPoints.size(); ++i) {
        const kxVector3& c = data.controlPoints[i];
        const double w = data.weights.empty() ? 1 : data.weights[i];
        const double homogeneous[] = {w * c.x, w * c.y, w * c.z, w};
        for (int k = 0; k < 4; ++k) {
            sum[k] += basis.value(i, p, t) * homogeneous[k];
            slope[k] += basis.slope(i, p, t) * homogeneous[k];
        }
    }
    PointAndSlope result{};
    for (int k = 0; k < 3; ++k) {
        result.point[k] = sum[k] / sum[3];
        result.slope[k] = (slope[k] * sum[3] - sum[k] * slope[3]) / (sum[3] * sum[3]);
    }
    return result;
}

using Random = std::mt19937_64;

/// Knots that rise in steps of 0 to 2, none more often than `degree` times in a row; clamped ones
/// begin and end with degree + 1 equal knots.
std::vector<double> randomKnots(Random& random, std::size_t degree, std::size_t points,
                                bool clamped) {
    static const double kSteps[] = {0, 0, 0.25, 0.5, 1, 2};
    std::vector<double> knots;
    double knot = -1.5;
    std::size_t repeats = 0;
    while (knots.size() < points + degree + 1) {
        knots.push_back(knot);
        ++repeats;
        double step = kSteps[random() % 6];
        if (step == 0 && repeats >= degree) {
            step = 1;
        }
        if (clamped && (knots.size() <= degree || knots.size() > points)) {
            step = 0;
        } else if (clamped && (knots.size() == degree + 1 || knots.size() == points)) {
            step = std::max(step, 0.5);
        }
        repeats = step == 0 ? repeats : 0;
        knot += step;
    }
    return knots;
}

kxSplineData randomSpline(Random& random) {
    std::uniform_real_distribution<double> place(-100, 100);
    std::uniform_real_distribution<double> weight(0.2, 5);
    kxSplineData data;
    const std::size_t degree = 1 + random() % 5;
    const std::size_t points = degree + 1 + random() % 6;
    data.degree = static_cast<int>(degree);
    data.knots = randomKnots(random, degree, points, random() % 2 == 0);
    const bool rational = random() % 3 != 0;
    for (std::size_t i = 0; i < points; ++i) {
        data.controlPoints.push_back({place(random), place(random), place(random)});
        if (rational) {
            data.weights.push_back(weight(random));
        }
    }
    return data;
}

void expectLikeNaive(const kxSpline_c& spline, const kxSplineData& data, double t) {
    const PointAndSlope expected = naiveEvaluate(data, t);
    double point[3];
    double slope[3];
    spline.EvaluateAtParameter(t, point, slope);
    for (int k = 0; k < 3; ++k) {
        ASSERT_NEAR(point[k], expected.point[k], 1e-10) << "at " << t;
        ASSERT_NEAR(slope[k], expected.slope[k], 1e-8 * (1 + std::abs(expected.slope[k])))
            << "at " << t;
    }
}

TEST(kxSpline, randomCurvesFitTheRecursiveDefinition) {
    Random random(20);
    int tested = 0;
    for (int round = 0; round < 2000; ++round) {
        const kxSplineData data = randomSpline(random);
        const kxSpline_ptr spline = kxCreateSpline("0", data);
        if (!spline) {  // All inner knots fell together: there is no interval to draw.
            ASSERT_FALSE(data.knots[static_cast<std::size_t>(data.degree)] <
                         data.knots[data.controlPoints.size()]);
            continue;
        }
        ++tested;
        double start = 0;
        double end = 0;
        spline->GetEndParams(&start, &end);
        std::uniform_real_distribution<double> inside(start, end);
        for (int i = 0; i < 5; ++i) {
            expectLikeNaive(*spline, data, inside(random));
        }
        for (const double knot : data.knots) {
            if (knot >= start && knot <= end) {
                expectLikeNaive(*spline, data, knot);
            }
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(tested, 1500);
}

/// A cubic that is clamped at both ends.
kxSplineData clampedCubic() {
    kxSplineData data;
    data.knots = {0, 0, 0, 0, 1, 2, 2, 2, 2};
    data.controlPoints = {{0, 0, 0}, {1, 2, 0}, {3, 2, 1}, {4, 0, 1}, {6, 1, 2}};
    data.weights = {1, 2, 0.5, 1, 3};
    return data;
}

TEST(kxSpline, aClampedCurveGoesThroughItsEndPoints) {
    const kxSpline_ptr spline = kxCreateSpline("0", clampedCubic());
    double point[3];
    spline->EvaluateAtParameter(0, point, nullptr);
    EXPECT_EQ(point[0], 0);
    EXPECT_EQ(point[1], 0);
    EXPECT_EQ(point[2], 0);
    spline->EvaluateAtParameter(2, point, nullptr);
    EXPECT_EQ(point[0], 6);
    EXPECT_EQ(point[1], 1);
    EXPECT_EQ(point[2], 2);
}

TEST(kxSpline, parametersOutsideGoToTheNearerEnd) {
    const kxSpline_ptr spline = kxCreateSpline("0", clampedCubic());
    const double infinity = std::numeric_limits<double>::infinity();
    const double pairs[][2] = {{-1, 0}, {3, 2}, {-infinity, 0}, {infinity, 2}};
    for (const auto& pair : pairs) {
        double outside[3];
        double outsideSlope[3];
        double end[3];
        double endSlope[3];
        spline->EvaluateAtParameter(pair[0], outside, outsideSlope);
        spline->EvaluateAtParameter(pair[1], end, endSlope);
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(outside[k], end[k]);
            EXPECT_EQ(outsideSlope[k], endSlope[k]);
        }
    }
}

TEST(kxSpline, aWeightedQuadraticIsAQuarterCircle) {
    kxSplineData data;
    data.degree = 2;
    data.knots = {0, 0, 0, 1, 1, 1};
    data.controlPoints = {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    data.weights = {1, std::sqrt(0.5), 1};
    const kxSpline_ptr spline = kxCreateSpline("0", data);
    for (double t = 0; t <= 1; t += 1.0 / 64) {
        double p[3];
        double d[3];
        spline->EvaluateAtParameter(t, p, d);
        EXPECT_NEAR(p[0] * p[0] + p[1] * p[1], 1, 1e-14);
        EXPECT_NEAR(p[0] * d[0] + p[1] * d[1], 0, 1e-14);
    }
}

TEST(kxSpline, givesItsPolygonWeightsAndKnots) {
    const kxSplineData data = clampedCubic();
    const kxSpline_ptr spline = kxCreateSpline("0", data);
    EXPECT_EQ(spline->GetDegree(), 3);
    long count = 0;
    spline->GetControlPointCount(&count);
    ASSERT_EQ(count, 5);
    for (long i = 0; i < count; ++i) {
        double point[3] = {};
        double weight = 0;
        ASSERT_TRUE(spline->GetControlPoint(i, point, &weight));
        const auto at = static_cast<std::size_t>(i);
        EXPECT_EQ(point[0], data.controlPoints[at].x);
        EXPECT_EQ(point[1], data.controlPoints[at].y);
        EXPECT_EQ(point[2], data.controlPoints[at].z);
        EXPECT_EQ(weight, data.weights[at]);
    }
    spline->GetKnotCount(&count);
    ASSERT_EQ(count, 9);
    for (long i = 0; i < count; ++i) {
        double knot = -7;
        ASSERT_TRUE(spline->GetKnot(i, &knot));
        EXPECT_EQ(knot, data.knots[static_cast<std::size_t>(i)]);
    }
}

TEST(kxSpline, writesNothingOutOfRange) {
    const kxSpline_ptr spline = kxCreateSpline("0", clampedCubic());
    double point[3] = {-7, -7, -7};
    double weight = -7;
    double knot = -7;
    for (const long index : {-1L, 9L, std::numeric_limits<long>::max()}) {
        EXPECT_FALSE(spline->GetControlPoint(index, point, &weight));
        EXPECT_FALSE(spline->GetKnot(index, &knot));
    }
    EXPECT_FALSE(spline->GetControlPoint(5, point, &weight));
    EXPECT_EQ(point[0], -7);
    EXPECT_EQ(weight, -7);
    EXPECT_EQ(knot, -7);
}

TEST(kxSpline, withoutWeightsAllAreOne) {
    kxSplineData data = clampedCubic();
    data.weights.clear();
    const kxSpline_ptr spline = kxCreateSpline("0", data);
    for (long i = 0; i < 5; ++i) {
        double point[3];
        double weight = 0;
        ASSERT_TRUE(spline->GetControlPoint(i, point, &weight));
        EXPECT_EQ(weight, 1);
    }
}

struct InvalidSpline {
    const char* name;
    void (*spoil)(kxSplineData&);
};

class kxSplineInvalid : public testing::TestWithParam<InvalidSpline> {};

TEST_P(kxSplineInvalid, isNotMade) {
    kxSplineData data = clampedCubic();
    ASSERT_TRUE(kxCreateSpline("0", data));
    GetParam().spoil(data);
    EXPECT_FALSE(kxCreateSpline("0", data));
}

INSTANTIATE_TEST_SUITE_P(
    rows, kxSplineInvalid,
    testing::Values(InvalidSpline{"degreeZero", [](kxSplineData& d) { d.degree = 0; }},
                    InvalidSpline{"degreeNegative", [](kxSplineData& d) { d.degree = -1; }},
                    InvalidSpline{"tooFewPoints",
                                  [](kxSplineData& d) {
                                      d.controlPoints.resize(3);
                                      d.weights.resize(3);
                                      d.knots.resize(7);
                                  }},
                    InvalidSpline{"empty", [](kxSplineData& d) { d = kxSplineData(); }},
                    InvalidSpline{"knotMissing", [](kxSplineData& d) { d.knots.pop_back(); }},
                    InvalidSpline{"knotTooMany", [](kxSplineData& d) { d.knots.push_back(3); }},
                    InvalidSpline{"weightMissing", [](kxSplineData& d) { d.weights.pop_back(); }},
                    InvalidSpline{"weightZero", [](kxSplineData& d) { d.weights[2] = 0; }},
                    InvalidSpline{"weightNegative", [](kxSplineData& d) { d.weights[2] = -1; }},
                    InvalidSpline{"weightNotANumber",
                                  [](kxSplineData& d) {
                                      d.weights[2] = std::numeric_limits<double>::quiet_NaN();
                                  }},
                    InvalidSpline{"knotsDecrease", [](kxSplineData& d) { d.knots[4] = -1; }},
                    InvalidSpline{
                        "knotsSpanNothing",
                        [](kxSplineData& d) { std::fill(d.knots.begin(), d.knots.end(), 1.0); }}),
    [](const auto& row) { return row.param.name; });

}  // namespace
