// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/SceneFigures.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float kDepthDivisor = 2.5F;
constexpr float kFigureScale = 2;

double span(float low, float high) {
    return std::fabs(std::trunc(static_cast<double>(high))) +
           std::fabs(std::trunc(static_cast<double>(low)));
}

}  // namespace

std::vector<float> axesFigure() {
    return {
        // Axes
        0, 0, 0, 0.1F, 0, 0,  //
        0, 0, 0, 0, 0.1F, 0,  //
        0, 0, 0, 0, 0, 0.1F,  //
        // Arrows of X, Y and Z, two barbs each
        0.09F, 0.0074F, 0, 0.1002F, 0, 0,   //
        0.09F, -0.0074F, 0, 0.1002F, 0, 0,  //
        -0.0074F, 0.09F, 0, 0, 0.1002F, 0,  //
        0.0074F, 0.09F, 0, 0, 0.1002F, 0,   //
        -0.0074F, 0, 0.09F, 0, 0, 0.1002F,  //
        0.0074F, 0, 0.09F, 0, 0, 0.1002F,   //
        // Letter X
        0.1253F, -0.008F, 0, 0.114F, 0.0063F, 0,  //
        0.1253F, 0.0063F, 0, 0.114F, -0.008F, 0,  //
        // Letter Y
        -0.0062F, 0.1271F, 0, -0.0002F, 0.1185F, 0,  //
        0.0058F, 0.1271F, 0, -0.0002F, 0.1185F, 0,   //
        -0.0002F, 0.1185F, 0, -0.0002F, 0.1125F, 0,  //
        // Letter Z
        0.0054F, 0, 0.1256F, -0.0059F, 0, 0.1256F,  //
        0.0054F, 0, 0.1256F, -0.0059F, 0, 0.1113F,  //
        0.0054F, 0, 0.1113F, -0.0059F, 0, 0.1113F,  //
    };
}

std::vector<float> toolFigure() {
    return {
        0,        0, 0,        0, 0, -0.08F,  //
        -0.0074F, 0, -0.0102F, 0, 0, 0,       //
        0.0074F,  0, -0.0102F, 0, 0, 0,       //
    };
}

std::vector<Point3d> figurePoints(const std::vector<float>& figure, const QMatrix4x4& projection,
                                  float ratio) {
    const QMatrix4x4 toModel = projection.inverted();
    std::vector<Point3d> points;
    points.reserve(figure.size() / 3);
    for (std::size_t i = 0; i + 2 < figure.size(); i += 3) {
        const QVector3D device(figure[i], figure[i + 1] * ratio, figure[i + 2] / kDepthDivisor);
        const QVector3D model = toModel.map(device) * kFigureScale;
        points.emplace_back(model.x(), model.y(), model.z());
    }
    return points;
}

double sceneSize(const SceneExtents& extents) {
    return std::max(span(extents.minY, extents.maxY), span(extents.minX, extents.maxX));
}
