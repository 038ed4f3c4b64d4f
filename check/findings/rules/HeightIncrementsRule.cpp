// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/HeightIncrementsRule.h"

#include <algorithm>

namespace gcode_check {

void HeightIncrementsRule::step(const Step& step) {
    if (!step.isMove()) {
        return;
    }
    if (m_raised && m_raised->line() != step.line()) {
        judgeRaised();
    }
    if (!step.relative) {
        endCut();
        endRelative();
        m_lift = 0;
        m_hasLast = false;
        return;
    }
    if (!m_isRelative) {
        m_isRelative = true;
        m_base = step.from.z;
    }
    m_height = step.to.z;
    if (step.motion->cycle != 0) {
        cycle(step);
    } else if (step.isUp()) {
        up(step);
    } else if (step.isDown()) {
        down(step);
    } else {
        sideways(step);
    }
}

void HeightIncrementsRule::cycle(const Step& step) {
    if (step.motion->stroke == Stroke::Approach && step.isUp()) {
        m_raised = step;
        m_hole = step.to.z;
    }
    m_hole = std::min(m_hole, step.to.z);
}

void HeightIncrementsRule::judgeRaised() {
    const Step up = *m_raised;
    m_raised.reset();
    const bool isKnown = m_setting.known.z < up.line();
    const double above = m_setting.surface + kSame;
    if (isKnown && up.from.z <= above) {
        // From the surface, where the tool was set down, a step and a place are the same.
        return;
    }
    const bool isInDoubt = isKnown && m_hole < above;
    if (isInDoubt && ++m_doubts == 1) {
        m_firstDoubt = up;
        m_doubtfulHole = m_hole;
    } else if (!isInDoubt && ++m_cycleHits == 1) {
        m_firstCycleHit = up;
    }
}

void HeightIncrementsRule::sideways(const Step& step) {
    m_plunge.lowest = std::min(m_plunge.lowest, step.lowest);
    noteLevel(step.from.z);
    if (step.isRapid()) {
        endCut();
        m_travelled = m_lift > 0;
        return;
    }
    m_plunge.flatCut = m_plunge.flatCut || std::abs(step.to.z - step.from.z) <= kSame;
    m_lift = 0;
}

void HeightIncrementsRule::up(const Step& step) {
    endCut();
    m_hasRisen = true;
    const double rise = step.to.z - step.from.z;
    if (step.isFeed()) {
        m_lift = rise;
        m_travelled = false;
        m_liftedAgain = false;
    } else if (m_travelled && std::abs(rise - m_lift) <= kSame) {
        m_liftedAgain = true;
    }
}

void HeightIncrementsRule::down(const Step& step) {
    if (step.isRapid()) {
        m_lift = 0;
        m_liftedAgain = false;
        return;
    }
    const double plunge = step.to.z - step.from.z;
    if (m_liftedAgain) {
        hit(step);
    }
    judgeSameStep(step, plunge);
    if (!m_plunge.open) {
        m_plunge = {true, false, plunge, step.to.z, step};
    }
    m_plunge.lowest = std::min(m_plunge.lowest, step.to.z);
    m_lift = 0;
    m_travelled = false;
    m_liftedAgain = false;
    m_hasPlunged = true;
    m_hasRisen = false;
}

void HeightIncrementsRule::noteLevel(double level) {
    if (!m_hasPlunged) {
        m_base = level;
    } else if (m_hasRisen) {
        ++(std::abs(level - m_base) <= kSame ? m_returns : m_others);
        m_hasRisen = false;
    }
}

void HeightIncrementsRule::endRelative() {
    if (m_isRelative && m_hasRisen) {
        noteLevel(m_height);
    }
    m_isRelative = false;
    m_hasPlunged = false;
    m_hasRisen = false;
}

bool HeightIncrementsRule::comesBack() const {
    return m_returns > 0 && m_returns >= m_others;
}

void HeightIncrementsRule::endCut() {
    const double surface = m_setting.surface;
    if (m_plunge.open && m_plunge.flatCut && m_plunge.lowest > surface + kSame &&
        m_plunge.increment < surface - kSame) {
        hit(m_plunge.step);
    }
    m_plunge = {};
}

void HeightIncrementsRule::judgeSameStep(const Step& step, double plunge) {
    const bool isNew = m_places.insert(cellOf(step.to)).second;
    m_revisits = m_revisits || !isNew;
    const bool same = m_hasLast && std::abs(plunge - m_lastIncrement) <= kSame &&
                      std::abs(step.to.z - m_lastBottom.z) > kSame &&
                      cellOf(step.to) != cellOf(m_lastBottom);
    // Without a travel a cut may go down in steps while it moves on.
    if (same && isNew && !m_plunge.open && ++m_drifts == 1) {
        m_firstDrift = step;
    }
    m_hasLast = true;
    m_lastIncrement = plunge;
    m_lastBottom = step.to;
}

std::uint64_t HeightIncrementsRule::cellOf(const Point& place) const {
    const double cell = std::max(m_setting.tolerance, kSame);
    const auto whole = [cell](double value) {
        const double scaled = std::floor(value / cell + 0.5);
        return static_cast<std::uint64_t>(
            static_cast<std::int64_t>(std::clamp(scaled, -9e18, 9e18)));
    };
    return whole(place.x) * 0x9E3779B97F4A7C15U ^ whole(place.y);
}

void HeightIncrementsRule::hit(const Step& step) {
    if (++m_hits == 1) {
        m_firstHit = step;
    }
}

void HeightIncrementsRule::finish() {
    endCut();
    endRelative();
    if (m_raised) {
        judgeRaised();
    }
    if (m_cycleHits > 0) {
        report(m_firstCycleHit, m_cycleHits);
    } else if (m_hits > 0 && !comesBack()) {
        report(m_firstHit, m_hits);
    } else if (m_drifts > 0 && !m_revisits && !comesBack()) {
        report(m_firstDrift, m_drifts);
    } else if (m_doubts > 0) {
        reportDoubt();
    }
}

// Who knows that R is a step has no reason to go up; but what is drilled makes sense.
void HeightIncrementsRule::reportDoubt() {
    Finding* const finding =
        m_findings.add(FindingKind::HeightIncrements, Severity::Warning, m_firstDoubt.line());
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    finding->sentence =
        "In relative mode (G91) R and Z of a drill cycle are steps: the tool first "
        "goes up from " +
        words.height(m_firstDoubt.from.z) + " to " + words.height(m_firstDoubt.to.z) +
        ", and the hole ends at " + words.height(m_doubtfulHole) +
        ". If places were meant, set G90.";
    finding->numbers = {{"step", m_firstDoubt.to.z - m_firstDoubt.from.z},
                        {"height", m_firstDoubt.to.z},
                        {"moves", static_cast<double>(m_doubts), Measure::Count}};
    finding->place = placeOf(m_setting, m_firstDoubt);
}

void HeightIncrementsRule::report(const Step& first, std::size_t count) {
    Finding* const finding =
        m_findings.add(FindingKind::HeightIncrements, Severity::Error, first.line());
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    finding->sentence =
        "In relative mode (G91) this height is a step: the tool moves by " +
        words.length(first.to.z - first.from.z) + " from " + words.height(first.from.z) + " to " +
        words.height(first.to.z) + "; it seems to be meant as a place" +
        (count > 1 ? ", as in " + std::to_string(count) + " moves of this program." : ".");
    finding->numbers = {{"step", first.to.z - first.from.z},
                        {"height", first.to.z},
                        {"moves", static_cast<double>(count), Measure::Count}};
    finding->place = placeOf(m_setting, first);
}

}  // namespace gcode_check
