// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/ViewNavigation.h"

#include <QtMath>

namespace {

constexpr float kWheelStepsPerScale = 50.0F;
constexpr double kSmallestScale = 0.01;

void turn(QMatrix4x4& matrix, const ViewState& view) {
    matrix.rotate(static_cast<float>(-view.alphaDeg), 0, 1, 0);
    matrix.rotate(static_cast<float>(-view.betaDeg), 1, 0, 0);
}

}  // namespace

QPoint roundedPosition(const QPointF& position) {
    return {qFloor(position.x() + 0.5), qFloor(position.y() + 0.5)};
}

double turnedAlpha(double alphaDeg, int dx) {
    double alpha = alphaDeg - dx;
    while (alpha < 0) {
        alpha += 360;
    }
    while (alpha >= 360) {
        alpha -= 360;
    }
    return alpha;
}

double tiltedBeta(double betaDeg, int dy) {
    return qBound(-90.0, betaDeg - dy, 90.0);
}

float deviceCoordinate(float position, float size) {
    return static_cast<float>(static_cast<double>(position) / (0.5 * static_cast<double>(size)) -
                              1);
}

float pannedOffset(float pending, int delta, float size) {
    return 2 * (pending + static_cast<float>(delta)) / size;
}

float wheelStep(int delta) {
    const int wholeEighths = delta / 8;
    return static_cast<float>(wholeEighths) / kWheelStepsPerScale;
}

double zoomedByVerticalWheel(double scale, int delta) {
    const double zoomed = scale + static_cast<double>(wheelStep(delta));
    return zoomed <= 0 ? kSmallestScale : zoomed;
}

double zoomedByHorizontalWheel(double scale, int delta) {
    return scale - static_cast<double>(wheelStep(delta));
}

QMatrix4x4 fittedProjection(double sceneSize, double ratio) {
    const auto halfWidth = static_cast<float>(1.5 * sceneSize * ratio);
    const auto halfHeight = static_cast<float>(1.5 * sceneSize);
    const auto depth = static_cast<float>(5 * sceneSize);
    QMatrix4x4 projection;
    projection.ortho(-halfWidth, halfWidth, -halfHeight, halfHeight, -depth, depth);
    return projection;
}

QVector3D modelPointAt(const QPointF& device, const QMatrix4x4& model,
                       const QMatrix4x4& projection) {
    const QVector3D point(static_cast<float>(device.x()), static_cast<float>(device.y()), 0);
    return (model.inverted() * projection.inverted()).map(point);
}

QMatrix4x4 nextModelMatrix(const QMatrix4x4& last, const QMatrix4x4& projection,
                           const ViewState& view) {
    QMatrix4x4 model = last;
    const auto scale = static_cast<float>(view.scale);
    const QVector3D offset(static_cast<float>(static_cast<double>(view.panX) / view.scale),
                           static_cast<float>(static_cast<double>(view.panY) / view.scale), 0);
    const QVector3D shift = projection.inverted().map(offset);
    model.translate(shift.x(), -shift.y(), 0);
    model.translate(view.center.x(), view.center.y(), 0);
    model.setColumn(0, QVector4D(scale, 0, 0, 0));
    model.setColumn(1, QVector4D(0, scale, 0, 0));
    model.setColumn(2, QVector4D(0, 0, scale, 0));
    turn(model, view);
    model.translate(-view.center.x(), -view.center.y(), 0);
    return model;
}

QMatrix4x4 rotationOnly(const ViewState& view) {
    QMatrix4x4 matrix;
    turn(matrix, view);
    return matrix;
}
