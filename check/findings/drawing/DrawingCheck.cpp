// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/DrawingCheck.h"

#include "findings/drawing/CoverageRule.h"
#include "findings/drawing/CutTwiceRule.h"
#include "findings/drawing/DrillRule.h"
#include "findings/drawing/OffDrawingRule.h"
#include "findings/drawing/UnitsRule.h"

namespace gcode_check {
namespace {

// How the time of a check is spent, roughly; reading and the rules without a drawing come before.
constexpr double kCutsShare = 0.1;
constexpr double kOffDrawingShare = 0.3;
constexpr double kOffCentreShare = 0.05;
constexpr double kTwiceShare = 0.25;
constexpr double kUncutShare = 0.1;

BoxTree treeOf(const std::vector<Cut>& cuts) {
    std::vector<PlaneBox> boxes;
    boxes.reserve(cuts.size());
    for (const Cut& cut : cuts) {
        boxes.push_back(boxOf(cut.curve));
    }
    return BoxTree(boxes);
}

BoxTree treeOf(const std::vector<Hole>& holes) {
    std::vector<PlaneBox> boxes;
    boxes.reserve(holes.size());
    for (const Hole& hole : holes) {
        boxes.push_back(boxOf(pointCurve(hole.place)));
    }
    return BoxTree(boxes);
}

void applyRules(const DrawingSetting& scene, Findings& findings, CheckResult& result) {
    std::vector<bool> explained(scene.drawing.shapes.size(), false);
    scene.setting.beginStage(kOffDrawingShare);
    findOffDrawing(scene, findings);
    scene.setting.beginStage(kOffCentreShare);
    findOffCentre(scene, explained, findings);
    std::vector<bool> followed(scene.drawing.shapes.size(), false);
    scene.setting.beginStage(kTwiceShare);
    findCutTwice(scene, followed, findings);
    // What is missing in a program that stops early is the stop's fault.
    if (!scene.setting.moreBehind) {
        result.coverageJudged = true;
        scene.setting.beginStage(kUncutShare);
        const std::size_t cut = findUncut(scene, {explained, followed}, findings);
        // What the tool follows above the surface is not cut.
        result.shapesCut = findings.has(FindingKind::DepthZero) ? 0 : cut;
    }
}

}  // namespace

void checkDrawing(const Setting& setting, const Drawing& drawing, Heights heights,
                  Findings& findings, CheckResult& result) {
    setting.beginStage(kCutsShare);
    const CutList cuts = cutsOf(setting, heights);
    if (!setting.goesOn(1, 1)) {
        return;
    }
    const BoxTree cutTree = treeOf(cuts.cuts);
    const BoxTree holeTree = treeOf(cuts.holes);
    ShapeIndex shapes(drawing, setting.unitsPerDrawingUnit);
    Setting judged = setting;
    const double factor = findUnitFactor(setting, shapes, cuts, findings);
    if (factor != 1) {
        // In the unit that fits, so that the difference is told once only.
        judged.unitsPerDrawingUnit /= factor;
        judged.tolerance /= factor;
        shapes = ShapeIndex(drawing, judged.unitsPerDrawingUnit);
    }
    const DirectedTree directed(
        cuts.cuts.size(), [&cuts](std::size_t cut) -> const Curve& { return cuts.cuts[cut].curve; },
        judged.tolerance, kRunsAlong);
    applyRules(
        {judged, drawing, shapes, cuts, cutTree, holeTree, directed, heights == Heights::Any},
        findings, result);
}

}  // namespace gcode_check
