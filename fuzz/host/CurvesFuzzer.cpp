// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Any polyline, ellipse, spline, circle or arc of any finite numbers is no object for a reason, or
// a sound one that lies where its map brings it and can be taken apart into lines and arcs that lie
// where it lies.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "FuzzCheck.h"
#include "ImageChecks.h"
#include "ObjectChecks.h"
#include "drawing/Ellipse.h"
#include "drawing/ShapeTransform.h"
#include "drawing/SplineFit.h"

using kxdrawing::Affine;
using kxdrawing::Shape;

namespace {

/// Numbers as drawings have them: round ones, odd ones, and any bits.
class Numbers {
public:
    Numbers(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool isEmpty() const { return m_at >= m_size; }
    unsigned byte() { return isEmpty() ? 0 : m_data[m_at++]; }
    double number() {
        const unsigned kind = byte();
        if (kind < 96) {
            return static_cast<double>(kind) - 48;
        }
        if (kind < 176) {
            return (static_cast<double>(byte()) - 128) * std::pow(10, int(kind) - 136);
        }
        if (kind < 224) {
            return static_cast<double>(byte() * 256 + byte()) / 4096;
        }
        double value = 0;
        if (m_at + sizeof value <= m_size) {
            std::memcpy(&value, m_data + m_at, sizeof value);
            m_at += sizeof value;
        }
        return std::isfinite(value) ? value : 0;
    }
    kxVector3 plane(double z) { return {number(), number(), z}; }
    kxVector3 space() { return {number(), number(), number()}; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

constexpr std::size_t kMostPoints = 40;

kxPolyLineData polylineOf(Numbers& numbers) {
    kxPolyLineData data;
    data.closed = numbers.byte() % 2 != 0;
    const double z = numbers.number();
    while (!numbers.isEmpty() && data.vertices.size() < kMostPoints) {
        data.vertices.push_back({numbers.plane(z), numbers.number()});
    }
    return data;
}

kxEllipseArcData ellipseOf(Numbers& numbers) {
    kxEllipseArcData data;
    data.center = numbers.space();
    data.majorAxis = numbers.plane(0);
    data.minorAxis = numbers.plane(0);
    data.startParameter = numbers.number();
    data.endParameter = data.startParameter + std::fmod(std::abs(numbers.number()), 6.2831853);
    return kxdrawing::principalForm(data);
}

std::vector<kxVector3> pointsOf(Numbers& numbers, bool isPlane) {
    std::vector<kxVector3> points;
    while (!numbers.isEmpty() && points.size() < kMostPoints) {
        points.push_back(isPlane ? numbers.plane(1) : numbers.space());
    }
    return points;
}

kxSplineData splineOf(Numbers& numbers) {
    kxSplineData data;
    const unsigned kind = numbers.byte();
    data.degree = static_cast<int>(1 + kind % 6);
    const std::size_t inner = kind / 8 % 4;
    const std::size_t count = static_cast<std::size_t>(data.degree) + 1 + inner;
    const bool hasWeights = kind >= 128;
    double knot = numbers.number();
    for (std::size_t i = 0; i < count + static_cast<std::size_t>(data.degree) + 1; ++i) {
        const bool moves = i > static_cast<std::size_t>(data.degree) && i <= count;
        knot += moves ? std::abs(numbers.number()) : 0;
        data.knots.push_back(knot);
    }
    for (std::size_t i = 0; i < count; ++i) {
        data.controlPoints.push_back(kind % 2 != 0 ? numbers.plane(0) : numbers.space());
        if (hasWeights) {
            data.weights.push_back(std::abs(numbers.number()));
        }
    }
    return data;
}

/// Kept as it is by most maps.
Shape roundShapeOf(Numbers& numbers, bool isCircle) {
    const kxVector3 center = numbers.space();
    const double radius = std::abs(numbers.number());
    if (isCircle) {
        return kxdrawing::CircleShape{center, radius};
    }
    kxCircleArcData arc{center, radius};
    arc.startParameter = std::fmod(numbers.number(), 6.2831853);
    arc.endParameter = arc.startParameter + std::fmod(std::abs(numbers.number()), 6.2831853);
    return arc;
}

std::optional<Shape> shapeOf(Numbers& numbers) {
    constexpr unsigned kFirstRound = 224;
    const unsigned kind = numbers.byte();
    if (kind >= kFirstRound) {
        return roundShapeOf(numbers, kind % 2 == 0);
    }
    switch (kind % 5) {
        case 0:
            return polylineOf(numbers);
        case 1:
            return ellipseOf(numbers);
        case 2:
            return kxdrawing::splineThrough(pointsOf(numbers, true), false);
        case 3:
            return kxdrawing::splineThrough(pointsOf(numbers, false), numbers.byte() % 2 != 0);
        default:
            return splineOf(numbers);
    }
}

Affine mapOf(Numbers& numbers) {
    Affine map;
    if (numbers.byte() % 2 == 0) {
        return map;
    }
    map = Affine::rotationDeg(numbers.number()) * Affine::scaling(numbers.space());
    map.shift = numbers.space();
    return map;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Numbers numbers(data, size);
    const Affine map = mapOf(numbers);
    const std::optional<Shape> shape = shapeOf(numbers);
    std::vector<Shape> images;
    if (shape) {
        kxdrawing::transformShape(*shape, map, &images);
    }
    const auto isSound = [](const Shape& each) { return !kxdrawing::shapeProblem(each); };
    if (shape && isSound(*shape) && std::all_of(images.begin(), images.end(), isSound)) {
        checkImages(*shape, map, images);
    }
    for (const Shape& image : images) {
        const kxObject_ptr object =
            kxdrawing::shapeProblem(image) ? nullptr : kxdrawing::makeObject("0", image);
        if (object) {
            checkNumbers(*object);
            checkExplode(*object);
        }
    }
    return 0;
}
