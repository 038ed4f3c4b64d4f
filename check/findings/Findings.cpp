// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Findings.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <tuple>

namespace gcode_check {
namespace {

auto orderOf(const Finding& finding) {
    const std::uint32_t line =
        finding.line == 0 ? std::numeric_limits<std::uint32_t>::max() : finding.line;
    return std::make_tuple(line, finding.kind, finding.shape.value_or(0), finding.column);
}

}  // namespace

Finding* Findings::add(FindingKind kind, Severity severity, std::uint32_t line) {
    ++m_ofKind[static_cast<std::size_t>(kind)][static_cast<std::size_t>(severity)];
    if (countOf(kind) > m_perKind) {
        return nullptr;
    }
    Finding& finding = m_findings.emplace_back();
    finding.kind = kind;
    finding.severity = severity;
    finding.line = line;
    return &finding;
}

std::size_t Findings::countOf(FindingKind kind) const {
    const auto& counts = m_ofKind[static_cast<std::size_t>(kind)];
    return std::accumulate(counts.begin(), counts.end(), std::size_t{0});
}

void Findings::drop(FindingKind kind) {
    m_ofKind[static_cast<std::size_t>(kind)] = {};
    m_findings.erase(
        std::remove_if(m_findings.begin(), m_findings.end(),
                       [kind](const Finding& finding) { return finding.kind == kind; }),
        m_findings.end());
}

void Findings::moveInto(CheckResult& result) {
    // Equal ones keep the order in which they were found.
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const Finding& a, const Finding& b) { return orderOf(a) < orderOf(b); });
    result.findings = std::move(m_findings);
    for (const FindingKind kind : allFindingKinds()) {
        const auto index = static_cast<std::size_t>(kind);
        result.leftOut[index] = countOf(kind) - std::min(countOf(kind), m_perKind);
        for (std::size_t severity = 0; severity < result.counts.size(); ++severity) {
            result.counts[severity] += m_ofKind[index][severity];
        }
    }
}

}  // namespace gcode_check
