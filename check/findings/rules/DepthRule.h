// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// A program that feeds, but never below the surface.
class DepthRule {
public:
    DepthRule(const Setting& setting, Findings& findings)
        : m_setting(setting), m_findings(findings) {}
    void step(const Step& step);
    void finish();

private:
    const Setting& m_setting;
    Findings& m_findings;
    bool m_found = false;
    std::uint32_t m_line = 0;
    Place m_place;
    double m_lowest = std::numeric_limits<double>::max();
};

}  // namespace gcode_check
