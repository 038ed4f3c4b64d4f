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

// "X1e-05": an E behind a number.
bool isExponent(std::string_view text, std::uint32_t column) {
    return column >= 2 && column <= text.size() && (text[column - 1] | 0x20) == 'e' &&
           text[column - 2] >= '0' && text[column - 2] <= '9';
}

std::string hintFor(std::string_view text, std::uint32_t column) {
    if (isExponent(text, column)) {
        return " Numbers with an exponent, as very small and very large ones are written, can't be "
               "read.";
    }
    if (looksLikeText(text)) {
        return " Remarks must stand in parentheses or behind a semicolon.";
    }
    return {};
}

std::string sentenceFor(const Setting& setting, const Diagnostic& diagnostic, FindingKind kind,
                        std::string_view text) {
    std::string sentence = beginningFor(kind);
    if (!diagnostic.found.empty()) {
        sentence += ": found " + diagnostic.found;
        if (!diagnostic.expected.empty()) {
            sentence += ", expected " + diagnostic.expected;
        }
    }
    sentence += '.';
    if (kind == FindingKind::ControllerRejects) {
        sentence += hintFor(text, diagnostic.column);
    }
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
