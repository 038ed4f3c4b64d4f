// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "findings/Figures.h"
#include "findings/Step.h"

namespace gcode_check {

// Adds up what a program amounts to.
class FigureCount {
public:
    explicit FigureCount(const Setting& setting) : m_setting(setting) {}
    void step(const Step& step);
    Figures finish();

private:
    void move(const Step& step);
    void feed(const Step& step, double length);
    void followHeight(const Step& step);
    void goDown(const Step& step);
    void goUp(const Step& step);

    const Setting& m_setting;
    Figures m_figures;
    double m_lowest = 0;
    bool m_first = true;
    bool m_below = false;
    bool m_sideways = false;  // since the tool went below
    bool m_hasHole = false;
    bool m_movedSinceHole = true;
    std::uint32_t m_strokeLine = 0;
    double m_bottom = 0;  // since the tool went below
    double m_holeBottom = 0;
};

}  // namespace gcode_check
