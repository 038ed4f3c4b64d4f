// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/StartRule.h"

#include <algorithm>

namespace gcode_check {

void StartRule::step(const Step& step) {
    if ((m_heightJudged && m_placeJudged) || !step.isFeed() || step.isUp()) {
        return;
    }
    if (!step.isSideways() && !step.isDown()) {
        return;
    }
    if (!m_heightJudged) {
        judgeHeight(step);
    }
    // Above the surface nothing is cut, wherever the tool comes from.
    if (!m_placeJudged && (!step.heightKnown || step.lowest < m_setting.surface - kSame)) {
        judgePlace(step);
    }
}

void StartRule::judgeHeight(const Step& step) {
    m_heightJudged = true;
    const std::uint32_t line = m_setting.known.z;
    if (line < step.line() || (line == step.line() && !step.isSideways())) {
        return;
    }
    Finding* const finding =
        m_findings.add(FindingKind::CutAtUnknownHeight, Severity::Error, step.line());
    if (finding != nullptr) {
        finding->sentence =
            "The first cut begins before any height was set: the tool goes sideways at whatever "
            "height it stands.";
        finding->place = placeOf(m_setting, step);
    }
}

void StartRule::judgePlace(const Step& step) {
    m_placeJudged = true;
    // A cut sideways begins where the tool stood before this line.
    const std::uint32_t bound = step.isSideways() ? step.line() : step.line() + 1;
    const AxisLines& known = m_setting.known;
    if (known.x < bound && known.y < bound) {
        return;
    }
    Finding* const finding =
        m_findings.add(FindingKind::CutAtUnknownPlace, Severity::Error, step.line());
    if (finding != nullptr) {
        const char* const axes = known.x < bound   ? "Y was"
                                 : known.y < bound ? "X was"
                                                   : "X and Y were";
        finding->sentence = std::string("The first cut begins before ") + axes +
                            " set: it starts at whatever place the tool stands.";
        finding->place = placeOf(m_setting, step);
    }
}

}  // namespace gcode_check
