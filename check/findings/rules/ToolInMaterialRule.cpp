// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/ToolInMaterialRule.h"

namespace gcode_check {

bool ToolInMaterialRule::isInMaterial(const Step& step) const {
    return m_hasMoved && step.heightKnown && step.to.z < m_setting.surface - kSame;
}

void ToolInMaterialRule::step(const Step& step) {
    if (step.isMove()) {
        moveOn(step);
        m_hasMoved = true;
        m_isDrilled = step.isFeed() && step.isDown();
        m_cycle = step.motion->cycle;
        m_line = step.line();
    } else if (step.motion->kind == MotionKind::Spindle) {
        spindle(step);
    } else if (step.motion->kind == MotionKind::ToolChange && isInMaterial(step)) {
        m_stopped.reset();
        reportChange(step);
    }
}

void ToolInMaterialRule::spindle(const Step& step) {
    const bool turns = step.motion->spindle != Spindle::Off;
    const bool isOfCycle = m_cycle != 0 && m_line == step.line();
    if (turns && m_stopped) {
        reportStop();
    } else if (!turns && m_turns && !isOfCycle && isInMaterial(step)) {
        m_stopped = step;
    }
    m_turns = turns;
}

void ToolInMaterialRule::moveOn(const Step& step) {
    if (!m_stopped) {
        return;
    }
    const bool isBored = m_isDrilled && step.isUp();
    const bool isToldAsCut = step.isFeed() && step.lowest < m_setting.surface - kSame;
    if (isBored || isToldAsCut) {
        m_stopped.reset();
    } else {
        reportStop();
    }
}

void ToolInMaterialRule::reportStop() {
    Finding* const finding =
        m_findings.add(FindingKind::SpindleStopped, Severity::Error, m_stopped->line());
    if (finding != nullptr) {
        finding->sentence = "The spindle is stopped while the tool stands in the material, at " +
                            m_setting.words.height(m_stopped->to.z) + ": lift the tool before it.";
        finding->place = placeOf(m_setting, *m_stopped);
    }
    m_stopped.reset();
}

void ToolInMaterialRule::reportChange(const Step& step) {
    Finding* const finding =
        m_findings.add(FindingKind::ToolChangeInMaterial, Severity::Error, step.line());
    if (finding != nullptr) {
        const double depth = m_setting.surface - step.to.z;
        finding->sentence = "The tool is changed while it stands in the material, at " +
                            m_setting.words.height(step.to.z) + ", " +
                            m_setting.words.length(depth) +
                            " below the surface: lift the tool before it.";
        finding->numbers = {{"depth", depth}};
        finding->place = placeOf(m_setting, step);
    }
}

}  // namespace gcode_check
