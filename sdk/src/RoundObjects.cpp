// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cmath>

#include <kx/host/kxGeometryFactory.h>

#include "ObjectBase.h"

namespace {

constexpr double kTwoPi = 6.283185307179586476925286766559;

/// center + cos(t) * major + sin(t) * minor, with its derivatives by t.
void evaluateEllipse(const kxEllipseArcData& data, double t, double* point, double* firstDerivative,
                     double* secondDerivative) {
    const double c = std::cos(t);
    const double s = std::sin(t);
    const kxVector3& a = data.majorAxis;
    const kxVector3& b = data.minorAxis;
    const kxVector3 radial{c * a.x + s * b.x, c * a.y + s * b.y, c * a.z + s * b.z};
    writeArray({data.center.x + radial.x, data.center.y + radial.y, data.center.z + radial.z},
               point);
    writeArray({c * b.x - s * a.x, c * b.y - s * a.y, c * b.z - s * a.z}, firstDerivative);
    writeArray({-radial.x, -radial.y, -radial.z}, secondDerivative);
}

/// centre + radius * (cos t, sin t), with its derivatives by t.
void evaluateCircle(const kxVector3& center, double radius, double t, double* point,
                    double* firstDerivative, double* secondDerivative) {
    const double dx = radius * std::cos(t);
    const double dy = radius * std::sin(t);
    writeArray({center.x + dx, center.y + dy, center.z}, point);
    writeArray({-dy, dx, 0}, firstDerivative);
    writeArray({-dx, -dy, 0}, secondDerivative);
}

template <class Data>
Data withEndAfterStart(Data data) {
    if (!(data.endParameter > data.startParameter)) {
        data.endParameter += kTwoPi;
    }
    return data;
}

class Circle final : public ObjectBase<kxCircle_c, kxCircleType> {
public:
    Circle(const kxString& layer, const kxVector3& center, double radius)
        : ObjectBase(layer), m_center(center), m_radius(radius) {}
    void GetCenter(double* x, double* y, double* z) const override {
        writePoint(m_center, x, y, z);
    }
    void get_Radius(double* radius) const override { *radius = m_radius; }
    void GetEndParams(double* start, double* end) const override {
        *start = 0;
        *end = kTwoPi;
    }
    void EvaluateAtParameter(double parameter, double* point, double* firstDerivative,
                             double* secondDerivative) const override {
        // sin(2 pi) is not 0 in double: the seam must be one point, not two.
        const double t = parameter == kTwoPi ? 0 : parameter;
        evaluateCircle(m_center, m_radius, t, point, firstDerivative, secondDerivative);
    }

private:
    kxVector3 m_center;
    double m_radius;
};

class CircleArc final : public ObjectBase<kxCircleArc_c, kxCircleArcType> {
public:
    CircleArc(const kxString& layer, const kxCircleArcData& data)
        : ObjectBase(layer), m_data(withEndAfterStart(data)) {}
    void GetCenter(double* x, double* y, double* z) const override {
        writePoint(m_data.center, x, y, z);
    }
    void get_Radius(double* radius) const override { *radius = m_data.radius; }
    void GetEndParams(double* start, double* end) const override {
        *start = m_data.startParameter;
        *end = m_data.endParameter;
    }
    void EvaluateAtParameter(double parameter, double* point, double* firstDerivative,
                             double* secondDerivative) const override {
        evaluateCircle(m_data.center, m_data.radius, parameter, point, firstDerivative,
                       secondDerivative);
        if (m_data.exactStart && parameter == m_data.startParameter) {
            writeArray(*m_data.exactStart, point);
        } else if (m_data.exactEnd && parameter == m_data.endParameter) {
            writeArray(*m_data.exactEnd, point);
        }
    }

private:
    kxCircleArcData m_data;
};

class EllipseArc final : public ObjectBase<kxEllipseArc_c, kxEllipseArcType> {
public:
    EllipseArc(const kxString& layer, const kxEllipseArcData& data)
        : ObjectBase(layer), m_data(withEndAfterStart(data)) {}
    void GetCenter(double* x, double* y, double* z) const override {
        writePoint(m_data.center, x, y, z);
    }
    void GetMajorAxis(double* x, double* y, double* z) const override {
        writePoint(m_data.majorAxis, x, y, z);
    }
    void GetMinorAxis(double* x, double* y, double* z) const override {
        writePoint(m_data.minorAxis, x, y, z);
    }
    void GetEndParams(double* start, double* end) const override {
        *start = m_data.startParameter;
        *end = m_data.endParameter;
    }
    void EvaluateAtParameter(double parameter, double* point, double* firstDerivative,
                             double* secondDerivative) const override {
        evaluateEllipse(m_data, parameter, point, firstDerivative, secondDerivative);
    }

private:
    kxEllipseArcData m_data;
};

}  // namespace

kxCircle_ptr kxCreateCircle(const kxString& layer, const kxVector3& center, double radius) {
    return new Circle(layer, center, radius);
}

kxCircleArc_ptr kxCreateCircleArc(const kxString& layer, const kxCircleArcData& data) {
    return new CircleArc(layer, data);
}

kxEllipseArc_ptr kxCreateEllipseArc(const kxString& layer, const kxEllipseArcData& data) {
    return new EllipseArc(layer, data);
}
