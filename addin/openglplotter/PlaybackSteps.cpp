// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/PlaybackSteps.h"

#include <QVector3D>
#include <algorithm>
#include <cmath>

namespace {

/// The parameter's step on a segment without length.
constexpr double kRestingStep = 0.02;

QVector3D vectorOf(const Point3d& point) {
    return {point.x, point.y, point.z};
}

Point3d pointOf(const QVector3D& vector) {
    return {vector.x(), vector.y(), vector.z()};
}

double parameterStep(double distance, double stepLength) {
    const double count = distance / stepLength;
    const bool moves = count > 0;
    return moves ? 1 / std::min(count, kMostSteps) : kRestingStep;
}

}  // namespace

double deviceDistance(const Point3d& a, const Point3d& b) {
    const auto dx = static_cast<double>(b.x - a.x);
    const auto dy = static_cast<double>(b.y - a.y);
    const auto dz = static_cast<double>(b.z - a.z);
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

void segmentSteps(const PathSegment& segment, const QMatrix4x4& projection, double stepLength,
                  std::vector<Point3d>* points) {
    const Point3d a = pointOf(projection.map(vectorOf(segment.from)));
    const Point3d b = pointOf(projection.map(vectorOf(segment.to)));
    const double step = parameterStep(deviceDistance(a, b), stepLength);
    points->clear();
    // The sum is formed in double and stored as single.
    for (float t = 0; t <= 1; t = static_cast<float>(static_cast<double>(t) + step)) {
        const float rest = 1 - t;
        points->emplace_back(rest * a.x + t * b.x, rest * a.y + t * b.y, rest * a.z + t * b.z);
    }
}

Point3d modelPointOf(const Point3d& device, const QMatrix4x4& projection) {
    return pointOf(projection.inverted().map(vectorOf(device)));
}

double changedStepLength(double stepLength, int change) {
    const double start = stepLength < 0 ? kStepLengthPerSpeed : stepLength;
    return start + kStepLengthPerSpeed * change;
}
