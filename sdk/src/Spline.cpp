// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <kx/host/kxGeometryFactory.h>

#include "ObjectBase.h"

namespace {

/// A control point in homogeneous form: (w x, w y, w z, w).
using Homogeneous = std::array<double, 4>;

Homogeneous blend(const Homogeneous& a, const Homogeneous& b, double t) {
    Homogeneous mixed{};
    for (std::size_t i = 0; i < mixed.size(); ++i) {
        mixed[i] = (1 - t) * a[i] + t * b[i];
    }
    return mixed;
}

/// (b - a) / width; 0 over an empty interval.
Homogeneous slopeOf(const Homogeneous& a, const Homogeneous& b, double width) {
    Homogeneous slope{};
    for (std::size_t i = 0; i < slope.size() && width > 0; ++i) {
        slope[i] = (b[i] - a[i]) / width;
    }
    return slope;
}

class Spline final : public ObjectBase<kxSpline_c, kxSplineType> {
public:
    Spline(const kxString& layer, const kxSplineData& data) : ObjectBase(layer), m_data(data) {
        if (m_data.weights.empty()) {
            m_data.weights.assign(m_data.controlPoints.size(), 1.0);
        }
    }
    int GetDegree() const override { return m_data.degree; }
    void GetControlPointCount(long* count) const override {
        *count = static_cast<long>(m_data.controlPoints.size());
    }
    bool GetControlPoint(long index, double* point, double* weight) const override {
        if (index < 0 || index >= static_cast<long>(m_data.controlPoints.size())) {
            return false;
        }
        writeArray(m_data.controlPoints[static_cast<std::size_t>(index)], point);
        *weight = m_data.weights[static_cast<std::size_t>(index)];
        return true;
    }
    void GetKnotCount(long* count) const override {
        *count = static_cast<long>(m_data.knots.size());
    }
    bool GetKnot(long index, double* knot) const override {
        if (index < 0 || index >= static_cast<long>(m_data.knots.size())) {
            return false;
        }
        *knot = m_data.knots[static_cast<std::size_t>(index)];
        return true;
    }
    void GetEndParams(double* start, double* end) const override {
        *start = m_data.knots[degree()];
        *end = m_data.knots[m_data.controlPoints.size()];
    }
    void EvaluateAtParameter(double parameter, double* point,
                             double* firstDerivative) const override;

private:
    std::size_t degree() const { return static_cast<std::size_t>(m_data.degree); }
    std::size_t spanAt(double t) const;
    std::vector<Homogeneous> controlPointsOfSpan(std::size_t span) const;

    kxSplineData m_data;
};

/// The index i with knot[i] <= t < knot[i + 1]; at the end the last span that is not empty.
std::size_t Spline::spanAt(double t) const {
    const auto first = m_data.knots.begin() + m_data.degree;
    const auto last =
        m_data.knots.begin() + static_cast<std::ptrdiff_t>(m_data.controlPoints.size());
    auto above = std::upper_bound(first, last, t);
    if (above == last) {
        above = std::lower_bound(first, last, *last);
    }
    const std::ptrdiff_t span = above - m_data.knots.begin() - 1;
    return std::max(static_cast<std::size_t>(std::max<std::ptrdiff_t>(span, 0)), degree());
}

std::vector<Homogeneous> Spline::controlPointsOfSpan(std::size_t span) const {
    std::vector<Homogeneous> points;
    points.reserve(degree() + 1);
    for (std::size_t i = span - degree(); i <= span; ++i) {
        const kxVector3& p = m_data.controlPoints[i];
        const double w = m_data.weights[i];
        points.push_back({w * p.x, w * p.y, w * p.z, w});
    }
    return points;
}

/// De Boor's algorithm on homogeneous points; the derivative comes from the last but one step,
/// then by the quotient rule.
void Spline::EvaluateAtParameter(double parameter, double* point, double* firstDerivative) const {
    const std::size_t p = degree();
    double start = 0;
    double end = 0;
    GetEndParams(&start, &end);
    const double t = std::min(std::max(parameter, start), end);
    const std::size_t span = spanAt(t);
    std::vector<Homogeneous> d = controlPointsOfSpan(span);
    Homogeneous slope{};
    for (std::size_t r = 1; r <= p; ++r) {
        for (std::size_t j = p; j >= r; --j) {
            const double low = m_data.knots[j + span - p];
            const double width = m_data.knots[j + 1 + span - r] - low;
            if (r == p) {
                slope = slopeOf(d[p - 1], d[p], width / static_cast<double>(p));
            }
            d[j] = blend(d[j - 1], d[j], width > 0 ? (t - low) / width : 0);
        }
    }
    const Homogeneous& h = d[p];
    const kxVector3 q{h[0] / h[3], h[1] / h[3], h[2] / h[3]};
    writeArray(q, point);
    writeArray({(slope[0] - slope[3] * q.x) / h[3], (slope[1] - slope[3] * q.y) / h[3],
                (slope[2] - slope[3] * q.z) / h[3]},
               firstDerivative);
}

bool isValid(const kxSplineData& data) {
    const std::size_t points = data.controlPoints.size();
    if (data.degree < 1 || points < static_cast<std::size_t>(data.degree) + 1 ||
        data.knots.size() != points + static_cast<std::size_t>(data.degree) + 1) {
        return false;
    }
    if (!data.weights.empty() && data.weights.size() != points) {
        return false;
    }
    const bool weightsPositive = std::all_of(data.weights.begin(), data.weights.end(),
                                             [](double weight) { return weight > 0; });
    const auto degree = static_cast<std::size_t>(data.degree);
    return weightsPositive && std::is_sorted(data.knots.begin(), data.knots.end()) &&
           data.knots[degree] < data.knots[points];
}

}  // namespace

kxSpline_ptr kxCreateSpline(const kxString& layer, const kxSplineData& data) {
    return isValid(data) ? kxSpline_ptr(new Spline(layer, data)) : kxSpline_ptr();
}
