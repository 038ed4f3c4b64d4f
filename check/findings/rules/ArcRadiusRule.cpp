// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/ArcRadiusRule.h"

#include <algorithm>

namespace gcode_check {
namespace {

constexpr double kCommonMm = 0.005;
constexpr double kCommonPart = 0.001;

}  // namespace

ArcRadiusRule::ArcRadiusRule(const Setting& setting, Findings& findings)
    : m_setting(setting),
      m_findings(findings),
      m_known(setting.options.arcRadiusTolerance.has_value()),
      m_tolerance(m_known ? *setting.options.arcRadiusTolerance * setting.unitsPerDrawingUnit
                          : kCommonMm / setting.mmPerUnit) {}

double ArcRadiusRule::toleranceFor(double radius) const {
    return m_known ? m_tolerance : std::max(m_tolerance, kCommonPart * radius);
}

void ArcRadiusRule::step(const Step& step) {
    if (step.motion->kind != MotionKind::Arc) {
        return;
    }
    const ArcRadii radii = radiiOf(step);
    const double difference = std::abs(radii.end - radii.start);
    const double tolerance = toleranceFor(radii.start);
    if (!(difference > tolerance)) {
        return;
    }
    Finding* const finding = m_findings.add(
        FindingKind::ArcRadiiDiffer, m_known ? Severity::Error : Severity::Warning, step.line());
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    finding->sentence =
        "The arc begins " + words.length(radii.start) + " from its centre and ends " +
        words.length(radii.end) + " from it. They differ by " + words.length(difference) +
        "; a controller that takes at most " + words.length(tolerance) + " stops here.";
    finding->numbers = {
        {"start-radius", radii.start}, {"end-radius", radii.end}, {"difference", difference}};
    finding->place = placeOf(m_setting, step);
}

}  // namespace gcode_check
