// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/ToolLengthRule.h"

#include <algorithm>

namespace gcode_check {

ToolLengthRule::ToolLengthRule(const Setting& setting, Findings& findings)
    : m_setting(setting), m_findings(findings) {
    const std::vector<Fact>& facts = setting.reading.facts;
    if (std::none_of(facts.begin(), facts.end(),
                     [](const Fact& fact) { return fact.kind == FactKind::ToolLength; })) {
        // Most programs have none; then all tools are alike.
        return;
    }
    for (const Motion& motion : setting.reading.motions) {
        if (motion.kind == MotionKind::ToolChange) {
            m_tools.insert(motion.tool);
        }
    }
}

void ToolLengthRule::step(const Step& step) {
    if (m_tools.empty()) {
        return;
    }
    if (step.motion->tool != m_tool || step.motion->kind == MotionKind::ToolChange) {
        change(step);
    }
    passFacts(step.line());
    const bool isCut = step.isMove() && step.isFeed() && step.heightKnown &&
                       step.lowest < m_setting.surface - kSame;
    if (isCut && m_tool != 0) {
        judge(step);
    }
}

void ToolLengthRule::change(const Step& step) {
    // A G43 beside the M6 comes behind it.
    passFacts(step.line() - 1);
    m_tool = step.motion->tool;
    m_changeLine = step.line();
    m_isTold = false;
}

void ToolLengthRule::passFacts(std::uint32_t line) {
    const std::vector<Fact>& facts = m_setting.reading.facts;
    for (; m_fact < facts.size() && facts[m_fact].line <= line; ++m_fact) {
        const Fact& fact = facts[m_fact];
        if (fact.kind != FactKind::ToolLength) {
            continue;
        }
        m_lengthLine = fact.line;
        m_isTold = false;
        if (fact.value == kNoToolLength) {
            m_kind = Kind::None;
        } else if (fact.value == kOwnToolLength) {
            m_kind = Kind::Own;
        } else {
            m_kind = Kind::Number;
            m_number =
                fact.value == 0 ? m_tool : static_cast<std::int32_t>(std::lround(fact.value));
        }
    }
}

// Lengths of numbers that no tool has may be a second length of this one; not where the tools
// before took that of their own number.
bool ToolLengthRule::isOfAnother(std::int32_t tool) const {
    if (m_kind == Kind::None) {
        return m_isUsed;
    }
    const bool isLeftOver = m_lengthLine < m_changeLine;
    return m_kind == Kind::Number && m_number != tool &&
           (isLeftOver || m_isOwnUsed || m_tools.count(m_number) != 0);
}

void ToolLengthRule::judge(const Step& step) {
    if (!isOfAnother(m_tool)) {
        m_isUsed = m_isUsed || m_kind != Kind::None;
        m_isOwnUsed = m_isOwnUsed || (m_kind == Kind::Number && m_number == m_tool);
        return;
    }
    if (m_isTold) {
        return;
    }
    m_isTold = true;
    Finding* const finding =
        m_findings.add(FindingKind::ToolLength, Severity::Warning, step.line());
    if (finding != nullptr) {
        finding->sentence = sentenceFor(m_tool);
        finding->place = placeOf(m_setting, step);
    }
}

std::string ToolLengthRule::sentenceFor(std::int32_t tool) const {
    const std::string begin = "Tool " + std::to_string(tool) + " cuts with ";
    const std::string line = " in line " + std::to_string(m_lengthLine);
    const std::string change = " behind its tool change in line " + std::to_string(m_changeLine);
    if (m_kind == Kind::None) {
        return begin + "no tool length (G49" + line +
               "), but a length was in force for cuts before: it goes too deep or too high by its "
               "length.";
    }
    const std::string length = "the length of tool " + std::to_string(m_number);
    if (m_lengthLine < m_changeLine) {
        return begin + length + " (G43" + line + "): no G43 stands" + change + ".";
    }
    return begin + length + ": G43" + line + " has H" + std::to_string(m_number) + ", not H" +
           std::to_string(tool) + ".";
}

}  // namespace gcode_check
