// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/TextReport.h"

#include <algorithm>
#include <cmath>

#include "findings/Numbers.h"

namespace gcode_check {
namespace {

constexpr int kDecimals = 4;

void addHead(std::string& text, const ReportHead& head) {
    if (!head.program.empty()) {
        text += "Program: " + head.program + '\n';
    }
    if (!head.drawing.empty()) {
        text += "Drawing: " + head.drawing + '\n';
    }
}

void addFinding(std::string& text, const Finding& finding) {
    if (finding.line == 0) {
        text += "program";
    } else {
        text += "line " + std::to_string(finding.line);
        if (finding.column != 0) {
            text += ", column " + std::to_string(finding.column);
        }
    }
    text += std::string(": ") + nameOf(finding.severity) + ": " + finding.sentence + " [" +
            identifierOf(finding.kind) + "]\n";
}

void addLeftOut(std::string& text, const CheckResult& result) {
    for (const FindingKind kind : allFindingKinds()) {
        const std::size_t count = result.leftOut[static_cast<std::size_t>(kind)];
        if (count > 0) {
            text += "and " + std::to_string(count) + " more of the kind [" +
                    std::string(identifierOf(kind)) + "]\n";
        }
    }
}

std::string sizeText(const Box& box) {
    if (box.empty()) {
        return "none";
    }
    const auto range = [](const char* axis, double from, double to) {
        return axis + numberText(from, kDecimals) + " to " + numberText(to, kDecimals);
    };
    return range("X", box.min.x, box.max.x) + ", " + range("Y", box.min.y, box.max.y) + ", " +
           range("Z", box.min.z, box.max.z);
}

// "1 h 2 min 3 s", whole seconds
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

void addFigures(std::string& text, const CheckResult& result) {
    const Figures& figures = result.figures;
    const Wording words(result.inches);
    const auto row = [&text](const char* name, const std::string& value) {
        text += std::string("  ") + name + ": " + value + '\n';
    };
    text += std::string("Figures (") + words.unit() + ")\n";
    row("moves", sizeText(figures.moves));
    row("cutting", sizeText(figures.cutting));
    row("cutting depth", numberText(figures.cuttingDepth, kDecimals));
    row("cut length", numberText(figures.cutLength, kDecimals));
    row("feed length", numberText(figures.feedLength, kDecimals));
    row("rapid length", numberText(figures.rapidLength, kDecimals));
    row("drill strokes", std::to_string(figures.strokes));
    row("tool down", std::to_string(figures.toolDowns));
    row("tool up", std::to_string(figures.toolUps));
    row("tool changes", std::to_string(figures.toolChanges));
    row("time", timeText(figures.seconds()) + " (feed " + timeText(figures.feedSeconds) +
                    ", rapid " + timeText(figures.rapidSeconds) + ", dwell " +
                    timeText(figures.dwellSeconds) + ")");
}

// Then it is judged what would be cut if the heights were right.
bool areHeightsWrong(const CheckResult& result) {
    return std::any_of(result.findings.begin(), result.findings.end(), [](const Finding& finding) {
        return finding.kind == FindingKind::CutAtUnknownHeight ||
               finding.kind == FindingKind::HeightIncrements;
    });
}

void addCoverage(std::string& text, const CheckResult& result) {
    if (!result.drawingGiven) {
        return;
    }
    if (result.coverageJudged) {
        text += std::to_string(result.shapesCut) + " of " + std::to_string(result.shapes) +
                (result.shapes == 1 ? " selected object " : " selected objects ") +
                (areHeightsWrong(result) ? "followed entirely, but see the heights above\n"
                                         : "cut entirely\n");
    } else {
        text +=
            "Objects that are not cut were not looked for: the program stops before its last "
            "cut\n";
    }
}

}  // namespace

std::string textReport(const CheckResult& result, const ReportHead& head) {
    std::string text;
    addHead(text, head);
    for (const Finding& finding : result.findings) {
        addFinding(text, finding);
    }
    addLeftOut(text, result);
    text += counted(countOf(result, Severity::Error), "error", "errors") + ", " +
            counted(countOf(result, Severity::Warning), "warning", "warnings") + ", " +
            counted(countOf(result, Severity::Note), "note", "notes") + '\n';
    addCoverage(text, result);
    addFigures(text, result);
    return text;
}

}  // namespace gcode_check
