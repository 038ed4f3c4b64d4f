// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/SpindleRule.h"

#include <algorithm>

namespace gcode_check {
namespace {

// The line of the last S word up to a line; 0: none.
std::uint32_t speedLine(const Reading& reading, std::uint32_t line) {
    std::uint32_t last = 0;
    for (const Fact& fact : reading.facts) {
        if (fact.line > line) {
            break;
        }
        last = fact.kind == FactKind::Speed ? fact.line : last;
    }
    return last;
}

std::string sentenceFor(const Reading& reading, const Step& step, bool everOn) {
    if (step.motion->spindle != Spindle::Off) {
        const std::uint32_t line = speedLine(reading, step.line());
        return "The tool cuts, but the spindle is on with speed 0: " +
               (line == 0 ? "no S word was given."
                          : "S0 stands in line " + std::to_string(line) + ", it must be above 0.");
    }
    return everOn ? "The tool cuts while the spindle stands."
                  : "The tool cuts, but the program never starts the spindle.";
}

}  // namespace

SpindleRule::SpindleRule(const Setting& setting, Findings& findings)
    : m_setting(setting), m_findings(findings) {
    const std::vector<Fact>& facts = setting.reading.facts;
    m_everOn = std::any_of(facts.begin(), facts.end(), [](const Fact& fact) {
        return fact.kind == FactKind::Spindle && fact.value != 5;
    });
}

void SpindleRule::step(const Step& step) {
    if (!step.isFeed() || step.lowest >= m_setting.surface - kSame) {
        return;
    }
    const bool turns = step.motion->spindle != Spindle::Off && step.motion->spindleSpeed != 0;
    if (turns || m_inRun) {
        m_inRun = !turns;
        return;
    }
    m_inRun = true;
    // A machine whose spindle is switched by hand has no word for it in any program.
    const Severity severity = m_everOn ? Severity::Error : Severity::Warning;
    Finding* const finding = m_findings.add(FindingKind::SpindleStopped, severity, step.line());
    if (finding != nullptr) {
        finding->sentence = sentenceFor(m_setting.reading, step, m_everOn);
        finding->place = placeOf(m_setting, step);
    }
}

}  // namespace gcode_check
