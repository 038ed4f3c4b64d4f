// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "openglplotter/PlaybackSteps.h"

/// The steps of a segment in a list of their own.
inline std::vector<Point3d> segmentSteps(const Point3d& from, const Point3d& to,
                                         const QMatrix4x4& projection, double stepLength) {
    std::vector<Point3d> points{Point3d(7, 7, 7)};  // Whatever is in the list is replaced.
    segmentSteps({from, to}, projection, stepLength, &points);
    return points;
}
