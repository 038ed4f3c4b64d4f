// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/drawing/DrawingCheck.h"
#include "geometry/Intervals.h"

namespace gcode_check {

// Parts of a target that no cut comes within the tolerance of; empty: all of it is cut or drilled.
std::vector<Interval> uncutParts(const DrawingSetting& scene, const Target& target);

// Objects that are not cut, or in part. `explained`: those of which another finding tells already.
// Gives the number of objects that are cut entirely.
std::size_t findUncut(const DrawingSetting& scene, const std::vector<bool>& explained,
                      Findings& findings);

// Whether a hole lies within the tolerance of the place.
bool isDrilled(const DrawingSetting& scene, const PlanePoint& place);

}  // namespace gcode_check
