// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_set>

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Heights in G91 that were meant as places, not as steps. What gives them away:
// - a cut that stays above the surface, though its plunge, read as a height, lies below;
// - a lift that is repeated after the travel, upwards again, before the plunge;
// - the same plunge again and again, at new places, to a depth that is another each time;
// - a drill cycle that first goes up to its R, from a height that is not known or into the air; a
//   warning only when it starts above the surface and drills all the same.
// A program that keeps coming back to the height of its travels means its steps.
class HeightIncrementsRule {
public:
    HeightIncrementsRule(const Setting& setting, Findings& findings)
        : m_setting(setting), m_findings(findings) {}
    void step(const Step& step);
    void finish();

private:
    void cycle(const Step& step);
    void judgeRaised();
    void sideways(const Step& step);
    void up(const Step& step);
    void down(const Step& step);
    void endCut();
    void endRelative();
    void judgeSameStep(const Step& step, double plunge);
    void hit(const Step& step);
    void noteLevel(double level);
    bool comesBack() const;
    void report(const Step& first, std::size_t count);
    void reportDoubt();
    std::uint64_t cellOf(const Point& place) const;

    struct Plunge {
        bool open = false;
        bool flatCut = false;
        double increment = 0;
        double lowest = 0;
        Step step;
    };

    const Setting& m_setting;
    Findings& m_findings;
    Plunge m_plunge;    // since it the tool has not risen
    double m_lift = 0;  // the last rise at feed
    bool m_travelled = false;
    bool m_liftedAgain = false;
    bool m_hasLast = false;
    bool m_revisits = false;
    double m_lastIncrement = 0;
    Point m_lastBottom;
    std::unordered_set<std::uint64_t> m_places;
    std::size_t m_drifts = 0;
    Step m_firstDrift;
    std::size_t m_hits = 0;
    Step m_firstHit;
    std::optional<Step> m_raised;  // up to R, by a cycle that is not judged yet
    double m_hole = 0;             // how deep that goes
    std::size_t m_cycleHits = 0;
    Step m_firstCycleHit;
    std::size_t m_doubts = 0;
    Step m_firstDoubt;
    double m_doubtfulHole = 0;
    // Whether the tool, once risen from a cut, travels at the height of the travel before.
    bool m_isRelative = false;
    bool m_hasPlunged = false;
    bool m_hasRisen = false;
    double m_base = 0;
    double m_height = 0;
    std::size_t m_returns = 0;
    std::size_t m_others = 0;
};

}  // namespace gcode_check
