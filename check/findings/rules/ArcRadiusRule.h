// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Arcs that the interpreter's controller takes, but one with CheckOptions::arcRadiusTolerance not.
class ArcRadiusRule {
public:
    ArcRadiusRule(const Setting& setting, Findings& findings);
    void step(const Step& step);

private:
    const Setting& m_setting;
    Findings& m_findings;
    bool m_on;
    double m_tolerance;
};

}  // namespace gcode_check
