// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/IntendedDepthRule.h"

#include <algorithm>

namespace gcode_check {
namespace {

// Where the program is in another unit than the drawing its last decimal can't meet the depth.
constexpr double kOfConvertedHeights = 1e-4;

}  // namespace

IntendedDepthRule::IntendedDepthRule(const Setting& setting, Findings& findings)
    : m_setting(setting),
      m_findings(findings),
      m_depth(setting.options.depth.value_or(0) * setting.unitsPerDrawingUnit),
      m_slack(setting.unitsPerDrawingUnit == 1 ? kSame : kOfConvertedHeights) {}

void IntendedDepthRule::step(const Step& step) {
    if (!m_setting.options.depth || !step.isMove()) {
        return;
    }
    const bool cuts = step.isFeed() && step.heightKnown && step.lowest < m_setting.surface - kSame;
    if (!cuts || step.lowest >= m_depth - m_slack) {
        close();
    } else if (!m_run.open) {
        m_run = {true, step.line(), 1, step.lowest, placeOf(m_setting, step)};
    } else {
        ++m_run.moves;
        m_run.lowest = std::min(m_run.lowest, step.lowest);
        m_run.place.lastMotion = step.index;
    }
    if (cuts && step.lowest < m_lowest) {
        m_lowest = step.lowest;
        m_lowestLine = step.line();
        m_lowestPlace = placeOf(m_setting, step);
    }
}

void IntendedDepthRule::close() {
    if (!m_run.open) {
        return;
    }
    m_run.open = false;
    Finding* const finding = m_findings.add(FindingKind::CutTooDeep, Severity::Error, m_run.line);
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    const double beyond = m_depth - m_run.lowest;
    finding->sentence = "The tool cuts down to " + words.height(m_run.lowest) + ", " +
                        words.length(beyond) + " deeper than the depth that was given, " +
                        words.height(m_depth) + ".";
    finding->numbers = {{"lowest", m_run.lowest},
                        {"depth", m_depth},
                        {"difference", beyond},
                        {"moves", static_cast<double>(m_run.moves), Measure::Count}};
    finding->place = m_run.place;
}

void IntendedDepthRule::tellNotReached() {
    Finding* const finding =
        m_findings.add(FindingKind::DepthNotReached, Severity::Warning, m_lowestLine);
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    const double missing = m_lowest - m_depth;
    finding->sentence = "The tool never reaches the depth that was given, " +
                        words.height(m_depth) + ": its deepest cut is here, at " +
                        words.height(m_lowest) + ", " + words.length(missing) + " above it.";
    finding->numbers = {{"lowest", m_lowest}, {"depth", m_depth}, {"difference", missing}};
    finding->place = m_lowestPlace;
}

void IntendedDepthRule::finish() {
    close();
    // A program that stops early does not come to its depth; one without any cut is told already.
    const bool hasCuts = m_lowestLine != 0;
    if (hasCuts && !m_setting.moreBehind && m_lowest > m_depth + m_slack) {
        tellNotReached();
    }
}

}  // namespace gcode_check
