// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/RejectionRule.h"

#include "findings/ProgramText.h"
#include "findings/rules/RejectionWords.h"

namespace gcode_check {
namespace {

FindingKind kindOf(const Diagnostic& diagnostic) {
    if (diagnostic.verdict == Verdict::NotInterpreted) {
        return FindingKind::NotInterpreted;
    }
    switch (diagnostic.rule) {
        case Rule::ArcRadiiDiffer:
            return FindingKind::ArcRadiiDiffer;
        case Rule::FeedMissing:
            return FindingKind::FeedMissing;
        case Rule::SpindleMissing:
            return FindingKind::SpindleStopped;
        default:
            return FindingKind::ControllerRejects;
    }
}

}  // namespace

void findRejections(const Setting& setting, Findings& findings) {
    LineCursor lines(setting.program);
    for (const Diagnostic& diagnostic : setting.reading.diagnostics) {
        while (lines.number() < diagnostic.line && lines.next()) {
        }
        const FindingKind kind = kindOf(diagnostic);
        const bool isUnfollowed = kind == FindingKind::NotInterpreted;
        // The first one ends the check; behind it a program has as many as it has subroutines.
        if (isUnfollowed && findings.has(kind)) {
            continue;
        }
        Finding* const finding = findings.add(kind, Severity::Error, diagnostic.line);
        if (finding == nullptr) {
            continue;
        }
        finding->column = diagnostic.column;
        finding->detail = identifierOf(diagnostic.rule);
        finding->sentence = isUnfollowed ? notInterpretedSentence(setting, diagnostic, lines.text())
                                         : rejectionSentence(setting, diagnostic, lines.text());
    }
}

}  // namespace gcode_check
