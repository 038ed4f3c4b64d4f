// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/SplineFit.h"

#include <algorithm>
#include <cmath>

namespace kxdrawing {

namespace {

double distance(const kxVector3& a, const kxVector3& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

kxVector3 sum(double s, const kxVector3& a, double t, const kxVector3& b) {
    return {s * a.x + t * b.x, s * a.y + t * b.y, s * a.z + t * b.z};
}

/// The derivatives at the points, by the tridiagonal equations of the natural cubic spline:
/// m[i-1] / h[i-1] + 2 (1 / h[i-1] + 1 / h[i]) m[i] + m[i+1] / h[i] = 3 (d[i-1] / h[i-1] + d[i] /
/// h[i]) with the slopes d, and 2 m[0] + m[1] = 3 d[0] at the ends.
class NaturalSpline {
public:
    NaturalSpline(const std::vector<kxVector3>& points, const std::vector<double>& steps)
        : m_points(points), m_steps(steps) {}

    std::vector<kxVector3> derivatives() {
        const std::size_t count = m_points.size();
        std::vector<double> upper(count, 0);
        std::vector<kxVector3> result(count);
        for (std::size_t i = 0; i < count; ++i) {
            const double before = i > 0 ? 1 / m_steps[i - 1] : 0;
            const double after = i + 1 < count ? 1 / m_steps[i] : 0;
            kxVector3 right;
            if (i > 0) {
                right = sum(1, right, 3 * before, slope(i - 1));
                right = sum(1, right, -before, result[i - 1]);
            }
            if (i + 1 < count) {
                right = sum(1, right, 3 * after, slope(i));
            }
            const double pivot = 2 * (before + after) - (i > 0 ? before * upper[i - 1] : 0);
            upper[i] = after / pivot;
            result[i] = sum(1 / pivot, right, 0, right);
        }
        for (std::size_t i = count - 1; i-- > 0;) {
            result[i] = sum(1, result[i], -upper[i], result[i + 1]);
        }
        return result;
    }

private:
    kxVector3 slope(std::size_t i) const {
        return sum(1 / m_steps[i], m_points[i + 1], -1 / m_steps[i], m_points[i]);
    }

    const std::vector<kxVector3>& m_points;
    const std::vector<double>& m_steps;
};

}  // namespace

std::optional<kxSplineData> splineThrough(std::vector<kxVector3> points, bool closed) {
    const auto same = [](const kxVector3& a, const kxVector3& b) { return !(distance(a, b) > 0); };
    if (closed && !points.empty()) {
        points.push_back(points.front());
    }
    points.erase(std::unique(points.begin(), points.end(), same), points.end());
    if (points.size() < 2) {
        return std::nullopt;
    }
    std::vector<double> steps;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        steps.push_back(distance(points[i], points[i + 1]));
    }
    const std::vector<kxVector3> slopes = NaturalSpline(points, steps).derivatives();
    kxSplineData data;
    double knot = 0;
    data.knots = {knot};
    data.controlPoints = {points.front()};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        data.controlPoints.push_back(sum(1, points[i], steps[i] / 3, slopes[i]));
        data.controlPoints.push_back(sum(1, points[i + 1], -steps[i] / 3, slopes[i + 1]));
        data.controlPoints.push_back(points[i + 1]);
        data.knots.insert(data.knots.end(), 3, knot);
        knot += steps[i];
    }
    data.knots.insert(data.knots.end(), 4, knot);
    return data;
}

}  // namespace kxdrawing
