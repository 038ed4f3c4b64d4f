// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Cuts of a tool with the length (G43 H) of another one, or without any behind cuts with one. One
// finding for a tool and a length.
class ToolLengthRule {
public:
    ToolLengthRule(const Setting& setting, Findings& findings);
    void step(const Step& step);

private:
    enum class Kind { None, Number, Own };

    void passFacts(std::uint32_t line);
    void change(const Step& step);
    void judge(const Step& step);
    bool isOfAnother(std::int32_t tool) const;
    std::string sentenceFor(std::int32_t tool) const;

    const Setting& m_setting;
    Findings& m_findings;
    std::set<std::int32_t> m_tools;  // that the program changes to
    std::size_t m_fact = 0;
    Kind m_kind = Kind::None;
    std::int32_t m_number = 0;       // of the tool whose length is in force
    std::uint32_t m_lengthLine = 0;  // that set or ended it
    std::uint32_t m_changeLine = 0;
    std::int32_t m_tool = 0;
    bool m_isOwnUsed = false;  // a tool has cut with the length of its own number
    bool m_isUsed = false;     // a tool has cut with a length
    bool m_isTold = false;
};

}  // namespace gcode_check
