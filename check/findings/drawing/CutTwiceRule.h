// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/drawing/DrawingCheck.h"

namespace gcode_check {

// Objects, or parts of them, that the tool runs along a second time without going deeper, and
// places that are drilled again. Crossings and corners do not count.
// Marks arcs in `followed` that were seen to be cut all along on the way.
void findCutTwice(const DrawingSetting& scene, std::vector<bool>& followed, Findings& findings);

}  // namespace gcode_check
