// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Cuts below CheckOptions::depth, those in a row one finding, and a program that never gets there.
// Without a depth it finds nothing.
class IntendedDepthRule {
public:
    IntendedDepthRule(const Setting& setting, Findings& findings);
    void step(const Step& step);
    void finish();

private:
    struct Run {
        bool open = false;
        std::uint32_t line = 0;
        std::size_t moves = 0;
        double lowest = 0;
        Place place;
    };

    void close();
    void tellNotReached();

    const Setting& m_setting;
    Findings& m_findings;
    double m_depth = 0;
    double m_slack = 0;
    Run m_run;
    double m_lowest = std::numeric_limits<double>::max();
    std::uint32_t m_lowestLine = 0;
    Place m_lowestPlace;
};

}  // namespace gcode_check
