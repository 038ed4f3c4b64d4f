// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include <QMatrix4x4>

#include "openglplotter/Point3d.h"

// The arithmetic of playing the tool along the path, without a window.

/// The step length at the lowest speed, in device units.
constexpr double kStepLengthPerSpeed = 0.005;

/// How many steps a segment has at most: beyond about 83,886 a step no longer moves the parameter
/// in single precision.
constexpr double kMostSteps = 80000;

/// The distance in 3-D; the differences are formed in single precision.
double deviceDistance(const Point3d& a, const Point3d& b);

/// Room for the points of any segment: in single precision they may come a little more densely than
/// `kMostSteps` says.
constexpr std::size_t kMostStepPoints = 81000;

struct PathSegment {
    Point3d from;
    Point3d to;
};

/// Replaces `points` by those, in device coordinates, at which the marker stands on its way along a
/// segment of the model, `stepLength` device units apart. The start is always among them, the end
/// only when a step lands on it. A segment without length gives 51 equal points.
void segmentSteps(const PathSegment& segment, const QMatrix4x4& projection, double stepLength,
                  std::vector<Point3d>* points);

/// A point in device coordinates as a point of the model.
Point3d modelPointOf(const Point3d& device, const QMatrix4x4& projection);

/// The step length after the speed has changed by `change`.
double changedStepLength(double stepLength, int change);
