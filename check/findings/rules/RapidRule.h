// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "findings/CutEnds.h"
#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Rapids sideways or down below the surface, and those that scrape along it. One finding for
// moves in a row.
class RapidRule {
public:
    RapidRule(const Setting& setting, Findings& findings)
        : m_setting(setting), m_findings(findings), m_cutEnds(setting) {}
    void step(const Step& step);
    void finish();

private:
    struct Run {
        bool open = false;
        FindingKind kind = FindingKind::RapidInMaterial;
        bool sideways = false;
        std::uint32_t line = 0;
        std::size_t moves = 0;
        double length = 0;
        double lowest = 0;
        Place place;
    };

    // Straight down onto the surface, from where a plunge goes on.
    struct Touch {
        std::size_t count = 0;
        std::uint32_t line = 0;
        Place place;
    };

    void judge(const Step& step);
    void noteTouch(const Step& step);
    void reportTouch();
    double lowestKnown(const Step& step) const;
    bool isHit(const Step& step, FindingKind& kind);
    bool isInHole(const Step& step);
    void noteFeed(const Step& step);
    void close();

    const Setting& m_setting;
    Findings& m_findings;
    Run m_run;
    Point m_holeBottom;  // the lowest place that a stroke straight down has reached here
    bool m_hole = false;
    bool m_isHeightKnown = false;  // where the tool stands
    CutEnds m_cutEnds;
    std::optional<Step> m_touching;
    Touch m_touch;
};

}  // namespace gcode_check
