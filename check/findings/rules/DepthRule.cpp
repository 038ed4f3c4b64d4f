// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/DepthRule.h"

#include <algorithm>

namespace gcode_check {

void DepthRule::step(const Step& step) {
    if (!step.isFeed() || !step.heightKnown || !(step.isSideways() || step.isDown())) {
        return;
    }
    m_lowest = std::min(m_lowest, step.lowest);
    if (!m_found) {
        m_found = true;
        m_line = step.line();
        m_place = placeOf(m_setting, step);
    }
}

void DepthRule::finish() {
    // A program that stops early does not come to its cuts: that is the stop's fault.
    if (!m_found || m_setting.moreBehind || m_lowest < m_setting.surface - kSame) {
        return;
    }
    Finding* const finding = m_findings.add(FindingKind::DepthZero, Severity::Warning, m_line);
    if (finding != nullptr) {
        const Wording& words = m_setting.words;
        finding->sentence = "No move at feed goes below the surface at " +
                            words.height(m_setting.surface) + ": the lowest one is at " +
                            words.height(m_lowest) + ".";
        finding->numbers = {{"lowest", m_lowest}, {"surface", m_setting.surface}};
        finding->place = m_place;
    }
}

}  // namespace gcode_check
