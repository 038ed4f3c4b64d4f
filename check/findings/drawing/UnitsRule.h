// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/drawing/CutList.h"
#include "findings/drawing/ShapeIndex.h"

namespace gcode_check {

// The factor by which the program's coordinates must be multiplied to lie on the drawing: 1 when
// they do or nothing fits. Another one is found when most cuts lie on objects with it and hardly
// any do without.
double findUnitFactor(const Setting& setting, const ShapeIndex& shapes, const CutList& cuts,
                      Findings& findings);

}  // namespace gcode_check
