// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/RejectionRule.h"

#include "findings/ProgramText.h"

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

std::string beginningFor(FindingKind kind) {
    switch (kind) {
        case FindingKind::NotInterpreted:
            return "The check does not know what this line does";
        case FindingKind::ArcRadiiDiffer:
            return "The arc does not meet its end, a controller stops here";
        case FindingKind::FeedMissing:
            return "The tool is to cut, but no feed is set, a controller stops here";
        case FindingKind::SpindleStopped:
            return "The tool is to cut, but the spindle stands, a controller stops here";
        default:
            return "A controller stops here";
    }
}

std::string trimmed(std::string text) {
    text.erase(text.find_last_not_of(" \t\r") + 1);
    return text;
}

// "X1e-05": an E behind a number.
bool isExponent(std::string_view text, std::uint32_t column) {
    return column >= 2 && column <= text.size() && (text[column - 1] | 0x20) == 'e' &&
           text[column - 2] >= '0' && text[column - 2] <= '9';
}

const char* hintFor(const Diagnostic& diagnostic, std::string_view text) {
    if (looksLikeText(text)) {
        return " Remarks must stand in parentheses or behind a semicolon.";
    }
    const bool isDwell = diagnostic.rule == Rule::WordWithoutUse && diagnostic.found == "P";
    if (isDwell && text.find("G83") != std::string_view::npos) {
        return " A dwell does not belong to G83: take the P word out, or drill with G82.";
    }
    return "";
}

// What was found and what would have been right, for who has never read a grammar.
std::string reasonFor(const Diagnostic& diagnostic, FindingKind kind, std::string_view text) {
    if (kind == FindingKind::ControllerRejects && isExponent(text, diagnostic.column)) {
        return ": found a number with an exponent, as very small and very large ones are written; "
               "numbers must be plain.";
    }
    std::string reason;
    if (!diagnostic.found.empty()) {
        reason += ": found " + trimmed(diagnostic.found);
        if (!diagnostic.expected.empty()) {
            reason += ", expected " + diagnostic.expected;
        }
    }
    reason += '.';
    if (kind == FindingKind::ControllerRejects) {
        reason += hintFor(diagnostic, text);
    }
    return reason;
}

std::string sentenceFor(const Setting& setting, const Diagnostic& diagnostic, FindingKind kind,
                        std::string_view text) {
    std::string sentence = beginningFor(kind) + reasonFor(diagnostic, kind, text);
    if (diagnostic.line == setting.reading.stopLine && setting.moreBehind) {
        sentence += " What the program cuts from here on was not checked.";
    }
    return sentence;
}

}  // namespace

void findRejections(const Setting& setting, Findings& findings) {
    LineCursor lines(setting.program);
    for (const Diagnostic& diagnostic : setting.reading.diagnostics) {
        while (lines.number() < diagnostic.line && lines.next()) {
        }
        const FindingKind kind = kindOf(diagnostic);
        const Severity severity =
            kind == FindingKind::NotInterpreted ? Severity::Warning : Severity::Error;
        Finding* const finding = findings.add(kind, severity, diagnostic.line);
        if (finding == nullptr) {
            continue;
        }
        finding->column = diagnostic.column;
        finding->detail = identifierOf(diagnostic.rule);
        finding->sentence = sentenceFor(setting, diagnostic, kind, lines.text());
    }
}

}  // namespace gcode_check
