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
constexpr double kOffDrawingShare = 0.4;
constexpr double kOffCentreShare = 0.05;
constexpr double kObjectsShare = 0.35;

BoxTree treeOf(const std::vector<Hole>& holes) {
    std::vector<PlaneBox> boxes;
    boxes.reserve(holes.size());
    for (const Hole& hole : holes) {
        boxes.push_back(boxOf(pointCurve(hole.place)));
    }
    return BoxTree(boxes);
}

// One object after the other.
void judgeObjects(const DrawingSetting& scene, const std::vector<bool>& explained,
                  Findings& findings, CheckResult& result) {
    CutTwiceRule twice(scene, findings);
    CoverageRule coverage(scene, explained, findings);
    // What is missing in a program that stops early is the stop's fault.
    result.coverageJudged = !scene.setting.moreBehind;
    NearCuts near(scene);
    const std::vector<Target>& targets = scene.shapes.targets();
    const std::size_t count = targets.size();
    for (std::size_t index = 0; index < count && scene.setting.goesOn(index, count); ++index) {
        near.forget();
        const bool isFollowed = targets[index].usable && twice.judge(index, near);
        if (result.coverageJudged) {
            coverage.judge(index, near, isFollowed);
        }
    }
    // What the tool follows above the surface is not cut.
    result.shapesCut = findings.has(FindingKind::DepthZero) ? 0 : coverage.cut();
}

void applyRules(const DrawingSetting& scene, Findings& findings, CheckResult& result) {
    std::vector<bool> explained(scene.drawing.shapes.size(), false);
    scene.setting.beginStage(kOffDrawingShare);
    findOffDrawing(scene, findings);
    scene.setting.beginStage(kOffCentreShare);
    findOffCentre(scene, explained, findings);
    scene.setting.beginStage(kObjectsShare);
    judgeObjects(scene, explained, findings, result);
}

}  // namespace

void checkDrawing(const Setting& setting, const Drawing& drawing, const CutsToJudge& given,
                  Findings& findings, CheckResult& result) {
    if (!setting.goesOn(1, 1)) {
        return;
    }
    const CutList& cuts = given.cuts;
    const CutTree cutTree(cuts);
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
        cuts.cuts.size(), [&cuts](std::size_t cut) { return cuts.curveAt(cut); }, judged.tolerance,
        kRunsAlong);
    applyRules(
        {judged, drawing, shapes, cuts, cutTree, holeTree, directed, given.heights == Heights::Any},
        findings, result);
}

}  // namespace gcode_check
