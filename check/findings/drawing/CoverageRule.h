// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/drawing/DrawingCheck.h"
#include "geometry/Intervals.h"

namespace gcode_check {

// Parts of a target that no cut comes within the tolerance of; empty: all of it is cut or drilled.
std::vector<Interval> uncutParts(const DrawingSetting& scene, const Target& target);

// What is known of objects already.
struct KnownObjects {
    const std::vector<bool>& explained;  // another finding tells of them
    const std::vector<bool>& followed;   // they are cut entirely
};

// Objects that are not cut, or in part. Gives the number of objects that are cut entirely.
std::size_t findUncut(const DrawingSetting& scene, const KnownObjects& known, Findings& findings);

// Whether a hole lies within the tolerance of the place.
bool isDrilled(const DrawingSetting& scene, const PlanePoint& place);

}  // namespace gcode_check
