// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Arcs that the interpreter's controller takes, but a stricter one does not: one with
// CheckOptions::arcRadiusTolerance, without it a common one.
class ArcRadiusRule {
public:
    ArcRadiusRule(const Setting& setting, Findings& findings);
    void step(const Step& step);

private:
    const Setting& m_setting;
    Findings& m_findings;
    double toleranceFor(double radius) const;

    bool m_known;
    double m_tolerance;
};

}  // namespace gcode_check
