// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Check.h"

namespace gcode_check {

// Gathers what rules find, so many of each kind.
class Findings {
public:
    explicit Findings(std::size_t perKind) : m_perKind(perKind) {}

    // Counts one more. To be filled in before the next call; null: enough of this kind are told.
    Finding* add(FindingKind kind, Severity severity, std::uint32_t line);
    // Whether the next one of this kind would be told.
    bool takesMore(FindingKind kind) const { return countOf(kind) < m_perKind; }
    bool has(FindingKind kind) const { return countOf(kind) > 0; }
    bool hasError(FindingKind kind) const {
        return m_ofKind[static_cast<std::size_t>(kind)][static_cast<std::size_t>(Severity::Error)] >
               0;
    }
    // Forgets all of a kind: what another finding explains.
    void drop(FindingKind kind);
    // Sorted. Leaves nothing here.
    void moveInto(CheckResult& result);

private:
    std::size_t countOf(FindingKind kind) const;

    std::size_t m_perKind;
    std::vector<Finding> m_findings;
    std::array<std::array<std::size_t, 3>, 32> m_ofKind{};  // and of Severity
};

}  // namespace gcode_check
