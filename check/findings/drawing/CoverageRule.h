// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/drawing/NearCuts.h"
#include "geometry/Intervals.h"

namespace gcode_check {

// Parts of a target that no cut comes within the tolerance of; empty: all of it is cut or drilled.
std::vector<Interval> uncutParts(const DrawingSetting& scene, const Target& target);

// Objects that are not cut, or in part.
class CoverageRule {
public:
    // `explained`: another finding tells of the object.
    CoverageRule(const DrawingSetting& scene, const std::vector<bool>& explained,
                 Findings& findings)
        : m_scene(scene), m_explained(explained), m_findings(findings) {}

    // Uses the near cuts where they are all found. A target that is followed is cut entirely.
    void judge(std::size_t index, const NearCuts& near, bool isFollowed);
    // Objects that are cut entirely.
    std::size_t cut() const { return m_cut; }

private:
    const DrawingSetting& m_scene;
    const std::vector<bool>& m_explained;
    Findings& m_findings;
    std::size_t m_cut = 0;
};

// Whether a hole lies within the tolerance of the place.
bool isDrilled(const DrawingSetting& scene, const PlanePoint& place);

}  // namespace gcode_check
