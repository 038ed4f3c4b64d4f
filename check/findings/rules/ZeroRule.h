// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include "findings/Findings.h"
#include "findings/ProgramText.h"
#include "findings/Step.h"

namespace gcode_check {

// Cuts from another zero than the one with which the program began: one finding for each change,
// at the line that made it. Back at the first zero there is none. A G92 before the first move is
// a note: it says where the operator puts the tool, and the zero is counted from there.
class ZeroRule {
public:
    ZeroRule(const Setting& setting, Findings& findings);
    void step(const Step& step);

private:
    // From what an axis of a zero is counted.
    enum class Origin : std::uint8_t {
        Beginning,  // the zero at the beginning
        Machine,    // of the machine's coordinates (G10 L2)
        Table,      // another system's, set at the machine
        Tool,       // where the tool stood, which the program has not told (G92, G10 L20)
    };
    using Origins = std::array<Origin, 3>;
    struct Zero {
        Point place;  // millimetres, machine coordinates
        double rotationDeg = 0;
        std::uint8_t system = 1;
        Origins origins{};
    };
    static bool areSame(const Zero& a, const Zero& b);

    void change(const Frame& frame);
    void set(const ZeroWords& words, const Frame& frame);
    void setSystem(const ZeroWords& words, const Frame& frame);
    void begin(const ZeroWords& words, const Frame& frame);
    void followTool(const Step& step);
    Origin originFromTool(std::size_t axis, const Frame& frame) const;
    Zero zeroOf(const Frame& frame) const;
    void report(const Step& step);
    std::string shiftWords(std::vector<NamedNumber>& numbers) const;

    const Setting& m_setting;
    Findings& m_findings;
    LineCursor m_lines;
    std::size_t m_frame = 0;      // the next one
    std::uint32_t m_changed = 0;  // Frame::zeroLine of the last change
    bool m_isChanged = false;     // since the last cut
    bool m_hasMoved = false;
    std::array<Origins, 9> m_systems{};
    Origins m_shift{};  // of G52 and G92
    Origins m_kept{};
    std::array<bool, 3> m_told{};  // where the tool stands
    Zero m_first;
    Zero m_last;  // of the cut before
    Zero m_now;
    std::uint32_t m_line = 0;  // that made it so
    std::string m_code;
};

}  // namespace gcode_check
