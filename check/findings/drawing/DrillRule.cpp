// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/DrillRule.h"

#include <algorithm>
#include <limits>

#include "findings/drawing/CoverageRule.h"

namespace gcode_check {
namespace {

constexpr double kNearInTolerances = 50;

class OffCentre {
public:
    OffCentre(const DrawingSetting& scene, std::vector<bool>& explained, Findings& findings)
        : m_scene(scene), m_explained(explained), m_findings(findings) {
        m_reach = scene.setting.tolerance;
        m_farthest = kNearInTolerances * m_reach;
        for (const Target& target : scene.shapes.targets()) {
            if (target.hole && target.usable) {
                m_farthest = std::max(m_farthest, target.curve.radius);
            }
        }
    }

    void judge(const Hole& hole) {
        const auto any = [](std::size_t) { return true; };
        const double beyond = m_reach * 1.001 + kSame;
        const bool onCentre =
            m_scene.shapes.nearestHole(hole.place, beyond, any).distance <= m_reach;
        // A plain stroke may also stand for a line that is too short to be one.
        const bool onOutline =
            !hole.inCycle && m_scene.shapes.distanceToOutline(hole.place, beyond) <= m_reach;
        if (onCentre || onOutline) {
            return;
        }
        const auto nearest = m_scene.shapes.nearestHole(
            hole.place, m_farthest,
            [this, &hole](std::size_t target) { return mayBelong(hole, target); });
        if (nearest.target) {
            m_explained[*nearest.target] = true;
            reportOffCentre(hole, *nearest.target, nearest.distance);
            return;
        }
        const std::vector<std::size_t> lying = outlinesAt(hole.place);
        if (lying.empty()) {
            reportNowhere(hole);
        } else {
            reportOnOutline(hole, lying);
        }
    }

private:
    bool mayBelong(const Hole& hole, std::size_t index) const {
        const Target& target = m_scene.shapes.targets()[index];
        const double bound = std::max(target.curve.radius, kNearInTolerances * m_reach);
        return distance(*target.hole, hole.place) <= bound && !uncutParts(m_scene, target).empty();
    }

    Place placeOfHole(const Hole& hole) const {
        const Point at{hole.place.x, hole.place.y, hole.bottom};
        Place place = placeOf(m_scene.setting, at, at);
        place.firstMotion = hole.motion;
        place.lastMotion = hole.motion;
        return place;
    }

    // The objects that run through a place.
    std::vector<std::size_t> outlinesAt(const PlanePoint& place) const {
        std::vector<std::size_t> lying;
        m_scene.shapes.eachNear(pointCurve(place), m_reach, [&](std::size_t target) {
            if (distance(m_scene.shapes.targets()[target].curve, place) <= m_reach) {
                lying.push_back(target);
            }
            return true;
        });
        std::sort(lying.begin(), lying.end());
        return lying;
    }

    // What lies there is no place to drill: said with the objects, as the tool is on the drawing.
    void reportOnOutline(const Hole& hole, const std::vector<std::size_t>& lying) {
        Finding* const finding =
            m_findings.add(FindingKind::DrillOffCentre, Severity::Error, hole.line);
        if (finding == nullptr) {
            return;
        }
        const auto name = [this, &lying](std::size_t at) {
            return nameOf(m_scene.drawing.shapes[lying[at]], lying[at]);
        };
        std::string what = ", on " + name(0);
        if (lying.size() > 1) {
            what = ", where " + name(0) + " meets " + name(1);
        }
        if (lying.size() > 2) {
            what += " and " + counted(lying.size() - 2, "more object", "more objects");
        }
        finding->sentence = "The tool drills at " + m_scene.setting.words.place(hole.place) + what +
                            ": no point and no centre of a circle lies there.";
        finding->place = placeOfHole(hole);
        finding->shape = lying.front();
    }

    void reportOffCentre(const Hole& hole, std::size_t target, double off) {
        Finding* const finding =
            m_findings.add(FindingKind::DrillOffCentre, Severity::Error, hole.line);
        if (finding == nullptr) {
            return;
        }
        const Wording& words = m_scene.setting.words;
        const PlanePoint centre = *m_scene.shapes.targets()[target].hole;
        finding->sentence = "The tool drills at " + words.place(hole.place) + ", " +
                            words.length(off) + " off the middle of " +
                            nameOf(m_scene.drawing.shapes[target], target) + " at " +
                            words.place(centre) + ".";
        finding->numbers = {{"distance", off}};
        finding->place = placeOfHole(hole);
        finding->shape = target;
    }

    void reportNowhere(const Hole& hole) {
        // A stroke that stays above the surface drills nothing; that finding is enough.
        if (!hole.inCycle && m_findings.has(FindingKind::DepthZero)) {
            return;
        }
        Finding* const finding =
            m_findings.add(FindingKind::CutOffDrawing, Severity::Error, hole.line);
        if (finding == nullptr) {
            return;
        }
        const Wording& words = m_scene.setting.words;
        finding->sentence =
            "The tool drills at " + words.place(hole.place) + " where no selected object lies";
        const double far = std::numeric_limits<double>::infinity();
        const auto any = [](std::size_t) { return true; };
        double off = m_scene.shapes.nearestHole(hole.place, far, any).distance;
        if (!hole.inCycle) {
            off = m_scene.shapes.distanceToOutline(hole.place, off);
        }
        if (off < far) {
            finding->sentence += ", " + words.length(off) + " away from the nearest " +
                                 (hole.inCycle ? "point or centre of a circle" : "one");
            finding->numbers = {{"distance", off}};
        }
        finding->sentence += '.';
        finding->place = placeOfHole(hole);
    }

    const DrawingSetting& m_scene;
    std::vector<bool>& m_explained;
    Findings& m_findings;
    double m_reach = 0;
    double m_farthest = 0;
};

}  // namespace

void findOffCentre(const DrawingSetting& scene, std::vector<bool>& explained, Findings& findings) {
    OffCentre rule(scene, explained, findings);
    const std::vector<Hole>& holes = scene.cuts.holes;
    for (std::size_t at = 0; at < holes.size() && scene.setting.goesOn(at, holes.size()); ++at) {
        rule.judge(holes[at]);
    }
}

}  // namespace gcode_check
