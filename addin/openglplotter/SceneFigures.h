// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <QMatrix4x4>

#include "openglplotter/Point3d.h"

// The two fixed line figures of the view, as flat x, y, z triples in device-sized units, two
// points a segment.

/// The axes with their letters: 17 segments.
std::vector<float> axesFigure();

/// The tool's arrow, its tip at the origin: 3 segments.
std::vector<float> toolFigure();

/// A figure in model units, so that it keeps its size on the screen whatever the drawing's: (x,
/// y * ratio, z / 2.5) mapped through the inverse projection, doubled. A last incomplete triple is
/// dropped.
std::vector<Point3d> figurePoints(const std::vector<float>& figure, const QMatrix4x4& projection,
                                  float ratio);

/// The size of a scene: the larger of its spans in X and Y, each the sum of the absolute values of
/// its two ends without their fractions. Z does not enter.
struct SceneExtents {
    float minX = 0;
    float minY = 0;
    float maxX = 0;
    float maxY = 0;
};
double sceneSize(const SceneExtents& extents);
