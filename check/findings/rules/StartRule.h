// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// The first cut, when the program has not told where the tool is by then.
class StartRule {
public:
    StartRule(const Setting& setting, Findings& findings)
        : m_setting(setting), m_findings(findings) {}
    void step(const Step& step);

private:
    void judgeHeight(const Step& step);
    void judgePlace(const Step& step);

    const Setting& m_setting;
    Findings& m_findings;
    bool m_heightJudged = false;
    bool m_placeJudged = false;
};

}  // namespace gcode_check
