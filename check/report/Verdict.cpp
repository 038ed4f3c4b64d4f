// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/Verdict.h"

#include <algorithm>
#include <cmath>

namespace gcode_check {
namespace {

// Then it is judged what would be cut if the heights were right.
bool areHeightsWrong(const CheckResult& result) {
    return std::any_of(result.findings.begin(), result.findings.end(), [](const Finding& finding) {
        return finding.kind == FindingKind::CutAtUnknownHeight ||
               (finding.kind == FindingKind::HeightIncrements &&
                finding.severity == Severity::Error);
    });
}

std::string ofSelected(const CheckResult& result) {
    return std::to_string(result.shapesCut) + " of " + std::to_string(result.shapes) +
           (result.shapes == 1 ? " selected object " : " selected objects ");
}

}  // namespace

std::string verdictText(const CheckResult& result) {
    if (result.findings.empty()) {
        return "No findings";
    }
    const auto numbered = [](std::size_t count, const char* word) {
        return std::to_string(count) + ' ' + word + (count == 1 ? "" : "s");
    };
    const std::size_t errors = countOf(result, Severity::Error);
    std::string text = errors == 0 ? "No errors" : numbered(errors, "error");
    if (const std::size_t warnings = countOf(result, Severity::Warning)) {
        text += ", " + numbered(warnings, "warning");
    }
    if (const std::size_t notes = countOf(result, Severity::Note)) {
        text += ", " + numbered(notes, "note");
    }
    return text;
}

std::string coverageText(const CheckResult& result) {
    if (!result.drawingGiven) {
        return "Not checked: what is cut where, as no drawing was given";
    }
    if (!result.coverageJudged) {
        return "Not checked: which objects are not cut, as the program stops before its last cut";
    }
    return ofSelected(result) + (areHeightsWrong(result)
                                     ? "followed entirely, but see the findings about heights"
                                     : "cut entirely");
}

std::string timeText(double seconds) {
    if (!(seconds >= 0) || seconds > 1e9) {
        return "unknown";
    }
    const auto whole = static_cast<long long>(std::llround(seconds));
    const long long hours = whole / 3600;
    const long long minutes = whole / 60 % 60;
    std::string text = hours > 0 ? std::to_string(hours) + " h " : "";
    if (whole >= 60) {
        text += std::to_string(minutes) + " min ";
    }
    return text + std::to_string(whole % 60) + " s";
}

}  // namespace gcode_check
