// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralSteps.h"

#include <QVector3D>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

bool sameBits(float a, float b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

}  // namespace

bool sameBits(const std::vector<Point3d>& a, const std::vector<Point3d>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Point3d& left, const Point3d& right) {
                          return sameBits(left.x, right.x) && sameBits(left.y, right.y) &&
                                 sameBits(left.z, right.z);
                      });
}

std::vector<Point3d> literalSteps(const Point3d& from, const Point3d& to,
                                  const QMatrix4x4& projection, double stepLength) {
    const QVector3D a = projection.map(QVector3D(from.x, from.y, from.z));
    const QVector3D b = projection.map(QVector3D(to.x, to.y, to.z));
    const float dx = b.x() - a.x();
    const float dy = b.y() - a.y();
    const float dz = b.z() - a.z();
    const double squares = static_cast<double>(dx) * static_cast<double>(dx) +
                           static_cast<double>(dy) * static_cast<double>(dy) +
                           static_cast<double>(dz) * static_cast<double>(dz);
    double n = std::sqrt(squares) / stepLength;
    double step = 0.02;
    if (!(std::isnan(n) || n <= 0)) {
        if (n > 80000) {
            n = 80000;
        }
        step = 1 / n;
    }
    std::vector<Point3d> points;
    float t = 0;
    do {
        const float s = 1.0F - t;
        Point3d point;
        point.x = s * a.x() + t * b.x();
        point.y = s * a.y() + t * b.y();
        point.z = s * a.z() + t * b.z();
        points.push_back(point);
        const double sum = static_cast<double>(t) + step;
        t = static_cast<float>(sum);
    } while (t <= 1);
    return points;
}
