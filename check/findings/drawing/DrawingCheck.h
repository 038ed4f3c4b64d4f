// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "findings/Findings.h"
#include "findings/drawing/CutList.h"
#include "findings/drawing/ShapeIndex.h"

namespace gcode_check {

// What the rules that hold a program against a drawing look at.
struct DrawingSetting {
    const Setting& setting;
    const Drawing& drawing;
    const ShapeIndex& shapes;
    const CutList& cuts;
    const BoxTree& cutTree;   // of CutList::cuts
    const BoxTree& holeTree;  // of CutList::holes
    bool anyHeight = false;
};

// All of them.
void checkDrawing(const Setting& setting, const Drawing& drawing, Heights heights,
                  Findings& findings, CheckResult& result);

}  // namespace gcode_check
