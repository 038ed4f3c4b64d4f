// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "findings/Step.h"

namespace gcode_check {

// How deep the tool has cut at the places where its cuts begin and end: there it fits in again.
// Another tool or another zero forgets all. Costs nothing until it is asked.
class CutEnds {
public:
    explicit CutEnds(const Setting& setting) : m_setting(setting), m_walk(setting) {}

    // By a step before `index`, in the program's unit and coordinates.
    bool isCutTo(const Point& place, std::size_t index);

private:
    void note(const Step& step);
    void keep(const Point& place);

    const Setting& m_setting;
    StepWalk m_walk;
    std::size_t m_next = 0;  // the first step that is not noted
    std::uint32_t m_zeroLine = 0;
    std::unordered_map<std::uint64_t, double> m_lowest;
};

}  // namespace gcode_check
