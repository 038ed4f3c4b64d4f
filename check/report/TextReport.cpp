// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/TextReport.h"

#include <algorithm>
#include <vector>

#include "findings/Numbers.h"
#include "report/Verdict.h"

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
    text += head.program.empty() && head.drawing.empty() ? "" : "\n";
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

struct KindCount {
    FindingKind kind = FindingKind::ControllerRejects;
    std::size_t told = 0;
    std::size_t leftOut = 0;
};

std::vector<KindCount> kindsOf(const CheckResult& result) {
    std::vector<KindCount> kinds;
    for (const FindingKind kind : allFindingKinds()) {
        const auto isOfKind = [kind](const Finding& finding) { return finding.kind == kind; };
        const auto told = std::count_if(result.findings.begin(), result.findings.end(), isOfKind);
        if (told > 0) {
            kinds.push_back({kind, static_cast<std::size_t>(told),
                             result.leftOut[static_cast<std::size_t>(kind)]});
        }
    }
    return kinds;
}

// A list that is longer than a glance is summed up, most first; what was left out of it is said.
void addKinds(std::string& text, const CheckResult& result) {
    constexpr std::size_t kGlance = 10;
    std::vector<KindCount> kinds = kindsOf(result);
    const bool isWhole = std::all_of(kinds.begin(), kinds.end(),
                                     [](const KindCount& kind) { return kind.leftOut == 0; });
    if (result.findings.size() <= kGlance && isWhole) {
        return;
    }
    std::stable_sort(kinds.begin(), kinds.end(), [](const KindCount& a, const KindCount& b) {
        return a.told + a.leftOut > b.told + b.leftOut;
    });
    text += "Findings by kind\n";
    for (const KindCount& kind : kinds) {
        text += std::string("  ") + identifierOf(kind.kind) + ": " +
                std::to_string(kind.told + kind.leftOut);
        if (kind.leftOut > 0) {
            text += ", the first " + std::to_string(kind.told) + " of them above";
        }
        text += '\n';
    }
    text += '\n';
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

// What the report does not speak of, so that silence about it is no praise.
void addLimits(std::string& text, const CheckResult& result, const ReportHead& head) {
    const Reading& reading = result.reading;
    text += "Surface at " + Wording(result.inches).height(result.surface) +
            (head.surfaceGiven ? "\n" : ", as nothing else was said\n");
    if (reading.stopLine != 0 && reading.stopLine < reading.lines) {
        text += "Not checked: moves behind line " + std::to_string(reading.stopLine) +
                ", where the reading stops\n";
    }
    if (!result.depthGiven) {
        text += "Not checked: how deep the program may cut, as no depth was given\n";
    }
    text += coverageText(result) + '\n';
}

}  // namespace

std::string textReport(const CheckResult& result, const ReportHead& head) {
    std::string text;
    addHead(text, head);
    for (const Finding& finding : result.findings) {
        addFinding(text, finding);
    }
    text += result.findings.empty() ? "" : "\n";
    addKinds(text, result);
    addFigures(text, result);
    text += '\n';
    addLimits(text, result, head);
    return text + verdictText(result) + '\n';
}

}  // namespace gcode_check
