// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/RapidRule.h"

#include <algorithm>

namespace gcode_check {

// In a hole that is drilled already, a rapid down is how pecking is written out; where a cut of
// this tool began or ended, it is how the next pass begins.
bool RapidRule::isInHole(const Step& step) {
    const bool isDrilled = m_hole && std::abs(step.to.x - m_holeBottom.x) <= kSame &&
                           std::abs(step.to.y - m_holeBottom.y) <= kSame &&
                           step.to.z >= m_holeBottom.z - kSame;
    return isDrilled || m_cutEnds.isCutTo(step.to, step.index);
}

// The first height of a program is reached from nobody knows where.
double RapidRule::lowestKnown(const Step& step) const {
    return m_isHeightKnown ? step.lowest : step.to.z;
}

bool RapidRule::isHit(const Step& step, FindingKind& kind) {
    const double low = lowestKnown(step);
    const double surface = m_setting.surface;
    kind = FindingKind::RapidInMaterial;
    if (!step.isSideways()) {
        return step.isDown() && low < surface - kSame && !isInHole(step);
    }
    if (low < surface - kSame) {
        return true;
    }
    kind = FindingKind::RapidAtSurface;
    return low <= surface + kSame;
}

void RapidRule::noteFeed(const Step& step) {
    if (step.isSideways()) {
        m_hole = false;
    } else if (step.isDown()) {
        m_hole = true;
        m_holeBottom = step.to;
    }
}

void RapidRule::step(const Step& step) {
    if (!step.isMove()) {
        return;
    }
    if (step.isFeed()) {
        close();
        noteFeed(step);
    } else {
        judge(step);
    }
    noteTouch(step);
    m_isHeightKnown = step.endKnown;
}

void RapidRule::noteTouch(const Step& step) {
    if (m_touching && step.isFeed() && step.isDown()) {
        if (++m_touch.count == 1) {
            m_touch.line = m_touching->line();
            m_touch.place = placeOf(m_setting, *m_touching);
        }
    }
    m_touching.reset();
    const bool isOnto = step.isRapid() && step.heightKnown && m_isHeightKnown && step.isDown() &&
                        std::abs(step.to.z - m_setting.surface) <= kSame;
    if (isOnto && !isInHole(step)) {
        m_touching = step;
    }
}

void RapidRule::reportTouch() {
    if (m_touch.count == 0) {
        return;
    }
    Finding* const finding =
        m_findings.add(FindingKind::RapidAtSurface, Severity::Warning, m_touch.line);
    if (finding != nullptr) {
        const std::string times =
            m_touch.count > 1 ? ", " + std::to_string(m_touch.count) + " times in the program" : "";
        finding->sentence =
            "The tool comes down by rapid onto the surface before it plunges: where the work is "
            "not perfectly flat, it hits it at full speed" +
            times + '.';
        finding->numbers = {{"moves", static_cast<double>(m_touch.count), Measure::Count}};
        finding->place = m_touch.place;
    }
}

void RapidRule::judge(const Step& step) {
    FindingKind kind{};
    if (!step.endKnown || !isHit(step, kind)) {
        close();
        return;
    }
    if (m_run.open && m_run.kind != kind) {
        close();
    }
    if (!m_run.open) {
        m_run = {true, kind, false, step.line(), 0, 0, lowestKnown(step), placeOf(m_setting, step)};
    }
    ++m_run.moves;
    m_run.sideways = m_run.sideways || step.isSideways();
    m_run.length += std::hypot(step.to.x - step.from.x, step.to.y - step.from.y);
    m_run.lowest = std::min(m_run.lowest, lowestKnown(step));
    m_run.place.lastMotion = step.index;
}

void RapidRule::close() {
    if (!m_run.open) {
        return;
    }
    m_run.open = false;
    Finding* const finding = m_findings.add(m_run.kind, Severity::Error, m_run.line);
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    if (m_run.kind == FindingKind::RapidAtSurface) {
        finding->sentence = "The tool travels " + words.length(m_run.length) +
                            " by rapid at the height of the surface: it scrapes along the work.";
    } else {
        const std::string how = m_run.sideways ? "goes sideways" : "goes down";
        finding->sentence = "The tool " + how + " by rapid below the surface, at " +
                            words.height(m_run.lowest) + ", " +
                            words.length(m_setting.surface - m_run.lowest) + " in the material.";
    }
    finding->numbers = {{"depth", m_setting.surface - m_run.lowest},
                        {"length", m_run.length},
                        {"moves", static_cast<double>(m_run.moves), Measure::Count}};
    finding->place = m_run.place;
}

void RapidRule::finish() {
    close();
    reportTouch();
}

}  // namespace gcode_check
