// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "findings/Findings.h"
#include "findings/drawing/CutTree.h"
#include "findings/drawing/ShapeIndex.h"
#include "geometry/DirectedTree.h"

namespace gcode_check {

// A cut runs along an object where it is parallel, or, as chords of an arc are, at most 30 degrees
// off and beside the object over half of its own length.
constexpr AlongBounds kRunsAlong{1e-3, 0.5, 0.5};

// All cuts of a program.
struct CutsToJudge {
    CutList cuts;
    Heights heights = Heights::BelowSurface;
};

// What the rules that hold a program against a drawing look at.
struct DrawingSetting {
    const Setting& setting;
    const Drawing& drawing;
    const ShapeIndex& shapes;
    const CutList& cuts;
    const CutTree& cutTree;
    const BoxTree& holeTree;  // of CutList::holes
    const DirectedTree& directedCuts;
    bool anyHeight = false;

    std::uint32_t lineOf(const Cut& cut) const { return setting.reading.motions[cut.motion].line; }
};

// All of them.
void checkDrawing(const Setting& setting, const Drawing& drawing, const CutsToJudge& given,
                  Findings& findings, CheckResult& result);

}  // namespace gcode_check
