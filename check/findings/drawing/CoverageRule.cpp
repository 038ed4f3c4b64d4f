// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/CoverageRule.h"

#include "geometry/Cover.h"

namespace gcode_check {
namespace {

bool isTouched(const DrawingSetting& scene, const Curve& curve) {
    bool touched = false;
    const double reach = scene.setting.tolerance;
    scene.cutTree.each([&](const PlaneBox& box) { return mayReach(curve, box, reach); },
                       [&](std::size_t cut) {
                           touched = distance(scene.cuts.curveAt(cut), curve.a) <= reach;
                           return !touched;
                       });
    return touched;
}

std::string sentenceFor(const DrawingSetting& scene, std::size_t index, const Interval& gap) {
    const Curve& curve = scene.shapes.targets()[index].curve;
    const Wording& words = scene.setting.words;
    const std::string name = nameOf(scene.drawing.shapes[index], index);
    const std::string from = words.place(pointAt(curve, gap.from));
    if (gap.to - gap.from >= 1) {
        return "The tool never cuts " + name + " at " + from + ".";
    }
    const double length = lengthOf(curve);
    return "The tool does not cut " + words.length(length * (gap.to - gap.from)) + " of the " +
           words.length(length) + " of " + name + ", from " + from + " to " +
           words.place(pointAt(curve, gap.to)) + ".";
}

// Each gap for itself, so that every place without a cut is named.
void report(const DrawingSetting& scene, std::size_t index, const Interval& gap,
            Findings& findings) {
    Finding* const finding = findings.add(FindingKind::NotCut, Severity::Warning, 0);
    if (finding == nullptr) {
        return;
    }
    const Curve& curve = scene.shapes.targets()[index].curve;
    const PlanePoint from = pointAt(curve, gap.from);
    const PlanePoint to = pointAt(curve, gap.to);
    finding->sentence = sentenceFor(scene, index, gap);
    finding->numbers = {{"missing", lengthOf(curve) * (gap.to - gap.from)},
                        {"length", lengthOf(curve)}};
    const double z = scene.setting.surface;
    finding->place = placeOf(scene.setting, {from.x, from.y, z}, {to.x, to.y, z});
    finding->shape = index;
}

void reportUnusable(const DrawingSetting& scene, std::size_t index, Findings& findings) {
    Finding* const finding = findings.add(FindingKind::NotCut, Severity::Warning, 0);
    if (finding != nullptr) {
        finding->sentence = nameOf(scene.drawing.shapes[index], index) +
                            " has coordinates that are no usable numbers; nothing can cut it.";
        finding->shape = index;
    }
}

template <typename Tree>
std::vector<Interval> uncutPartsIn(const DrawingSetting& scene, const Target& target,
                                   const Tree& cuts) {
    if (target.hole && isDrilled(scene, *target.hole)) {
        return {};
    }
    const Curve& curve = target.curve;
    if (curve.kind == Curve::Kind::Point) {
        return isTouched(scene, curve) ? std::vector<Interval>{} : std::vector<Interval>{{0, 1}};
    }
    return Cover(curve, scene.setting.tolerance)
        .gaps(cuts, scene.directedCuts,
              [&scene](std::size_t cut) { return scene.cuts.curveAt(cut); });
}

}  // namespace

bool isDrilled(const DrawingSetting& scene, const PlanePoint& place) {
    bool drilled = false;
    const double reach = scene.setting.tolerance;
    const Curve spot = pointCurve(place);
    scene.holeTree.each([&](const PlaneBox& box) { return mayReach(spot, box, reach); },
                        [&](std::size_t hole) {
                            drilled = distance(scene.cuts.holes[hole].place, place) <= reach;
                            return !drilled;
                        });
    return drilled;
}

std::vector<Interval> uncutParts(const DrawingSetting& scene, const Target& target) {
    return uncutPartsIn(scene, target, scene.cutTree);
}

void CoverageRule::judge(std::size_t index, const NearCuts& near, bool isFollowed) {
    const Target& target = m_scene.shapes.targets()[index];
    if (!target.usable) {
        reportUnusable(m_scene, index, m_findings);
        return;
    }
    if (isFollowed) {
        ++m_cut;
        return;
    }
    const std::vector<Interval> gaps =
        near.areAll() ? uncutPartsIn(m_scene, target, near) : uncutParts(m_scene, target);
    if (gaps.empty()) {
        ++m_cut;
    } else if (!m_explained[index]) {
        for (const Interval& gap : gaps) {
            report(m_scene, index, gap, m_findings);
        }
    }
}

}  // namespace gcode_check
