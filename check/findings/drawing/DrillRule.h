// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/drawing/DrawingCheck.h"

namespace gcode_check {

// Holes beside the places to drill. One near a circle or point that nothing else cuts is off its
// centre; the object is marked in `explained`. Others lie on no object.
void findOffCentre(const DrawingSetting& scene, std::vector<bool>& explained, Findings& findings);

}  // namespace gcode_check
