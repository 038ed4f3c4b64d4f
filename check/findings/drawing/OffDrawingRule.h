// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/drawing/DrawingCheck.h"

namespace gcode_check {

// Cuts that lie on no object, and by how far; cuts in a row are one finding. Exact but for the
// distance, which is that of the worst of many places looked at.
void findOffDrawing(const DrawingSetting& scene, Findings& findings);

}  // namespace gcode_check
