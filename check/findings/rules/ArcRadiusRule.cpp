// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/ArcRadiusRule.h"

namespace gcode_check {

ArcRadiusRule::ArcRadiusRule(const Setting& setting, Findings& findings)
    : m_setting(setting),
      m_findings(findings),
      m_on(setting.options.arcRadiusTolerance.has_value()),
      m_tolerance(setting.options.arcRadiusTolerance.value_or(0) * setting.unitsPerDrawingUnit) {}

void ArcRadiusRule::step(const Step& step) {
    if (!m_on || step.motion->kind != MotionKind::Arc) {
        return;
    }
    const ArcSpan span = spanOf(step);
    const double difference = std::abs(span.endRadius - span.radius);
    if (!(difference > m_tolerance)) {
        return;
    }
    Finding* const finding =
        m_findings.add(FindingKind::ArcRadiiDiffer, Severity::Error, step.line());
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    finding->sentence = "The arc begins " + words.length(span.radius) +
                        " from its centre and ends " + words.length(span.endRadius) +
                        " from it; a controller that takes " + words.length(m_tolerance) +
                        " stops here.";
    finding->numbers = {
        {"start-radius", span.radius}, {"end-radius", span.endRadius}, {"difference", difference}};
    finding->place = placeOf(m_setting, step);
}

}  // namespace gcode_check
