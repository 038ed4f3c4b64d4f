// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Cuts while the spindle stands or its speed is 0. One finding for cuts in a row.
class SpindleRule {
public:
    SpindleRule(const Setting& setting, Findings& findings);
    void step(const Step& step);

private:
    const Setting& m_setting;
    Findings& m_findings;
    bool m_everOn;
    bool m_inRun = false;
};

}  // namespace gcode_check
