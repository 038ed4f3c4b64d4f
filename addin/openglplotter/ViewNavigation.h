// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QPoint>
#include <QPointF>
#include <QVector3D>

// The arithmetic of turning, panning and zooming the view, without a window.

/// The start angles of the view in degrees.
constexpr double kStartAlphaDeg = -30;
constexpr double kStartBetaDeg = 30;

/// The cursor's position in whole pixels, halves rounded up.
QPoint roundedPosition(const QPointF& position);

/// The turn about the vertical axis after a drag of `dx` pixels, one degree a pixel, in [0, 360).
double turnedAlpha(double alphaDeg, int dx);

/// The tilt after a drag of `dy` pixels, one degree a pixel, kept in [-90, 90].
double tiltedBeta(double betaDeg, int dy);

/// A position along a widget's side of `size` pixels in device coordinates, from -1 to 1.
float deviceCoordinate(float position, float size);

/// The pan offset in device units that waits for the next frame, after a drag of `delta` pixels. An
/// offset that no frame has consumed yet is added to the pixels and scaled again.
float pannedOffset(float pending, int delta, float size);

/// What a turn of the wheel by `delta` (120 a notch) adds to the scale: 0.3 a notch.
float wheelStep(int delta);

/// The scale after a turn of a vertical wheel: it grows, and never falls to 0 or below.
double zoomedByVerticalWheel(double scale, int delta);

/// The scale after a turn of a horizontal wheel: it shrinks, without a bound.
double zoomedByHorizontalWheel(double scale, int delta);

/// The orthographic projection that shows a scene of the given size on a widget of the given
/// width / height; the identity when either is 0.
QMatrix4x4 fittedProjection(double sceneSize, double ratio);

/// The point of the model that lies at a device position.
QVector3D modelPointAt(const QPointF& device, const QMatrix4x4& model,
                       const QMatrix4x4& projection);

/// The view as one frame needs it.
struct ViewState {
    double alphaDeg = kStartAlphaDeg;
    double betaDeg = kStartBetaDeg;
    double scale = 1;
    /// The pan offset in device units that this frame consumes.
    float panX = 0;
    float panY = 0;
    /// What the view turns and scales about, in the model.
    QVector3D center;
};

/// The model matrix of the next frame from that of the last: the translation is kept and moved by
/// the pan offset; scale and turn are made anew about the centre.
QMatrix4x4 nextModelMatrix(const QMatrix4x4& last, const QMatrix4x4& projection,
                           const ViewState& view);

/// The turn alone, for figures that keep their size and place.
QMatrix4x4 rotationOnly(const ViewState& view);
