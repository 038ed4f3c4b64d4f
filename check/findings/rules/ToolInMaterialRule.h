// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// The tool is changed, or the spindle stopped, while the tool stands below the surface. A spindle
// that is stopped at the bottom of a hole for the way out is boring; one that is stopped before a
// cut or the program's end is told as that.
class ToolInMaterialRule {
public:
    ToolInMaterialRule(const Setting& setting, Findings& findings)
        : m_setting(setting), m_findings(findings) {}
    // Of all steps, not only of those that move.
    void step(const Step& step);

private:
    void spindle(const Step& step);
    void moveOn(const Step& step);
    bool isInMaterial(const Step& step) const;
    void reportStop();
    void reportChange(const Step& step);

    const Setting& m_setting;
    Findings& m_findings;
    bool m_hasMoved = false;
    bool m_turns = false;
    // Of the last move.
    bool m_isDrilled = false;
    std::uint8_t m_cycle = 0;
    std::uint32_t m_line = 0;
    std::optional<Step> m_stopped;  // of which is not told yet
};

}  // namespace gcode_check
