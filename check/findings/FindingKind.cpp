// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Finding.h"

namespace gcode_check {

const std::vector<FindingKind>& allFindingKinds() {
    static const std::vector<FindingKind> kinds = [] {
        std::vector<FindingKind> all;
        const auto last = static_cast<unsigned>(FindingKind::ToolLength);
        for (unsigned kind = 0; kind <= last; ++kind) {
            all.push_back(static_cast<FindingKind>(kind));
        }
        return all;
    }();
    return kinds;
}

// A plain table. NOLINTNEXTLINE(readability-function-size)
const char* identifierOf(FindingKind kind) {
    switch (kind) {
        case FindingKind::ControllerRejects:
            return "controller-rejects";
        case FindingKind::NotInterpreted:
            return "not-interpreted";
        case FindingKind::ArcRadiiDiffer:
            return "arc-radii-differ";
        case FindingKind::FeedMissing:
            return "feed-missing";
        case FindingKind::SpindleStopped:
            return "spindle-stopped";
        case FindingKind::RapidInMaterial:
            return "rapid-in-material";
        case FindingKind::RapidAtSurface:
            return "rapid-at-surface";
        case FindingKind::ToolChangeInMaterial:
            return "tool-change-in-material";
        case FindingKind::PlungeFeed:
            return "plunge-feed";
        case FindingKind::HeightIncrements:
            return "height-increments";
        case FindingKind::CutAtUnknownHeight:
            return "cut-at-unknown-height";
        case FindingKind::CutAtUnknownPlace:
            return "cut-at-unknown-place";
        case FindingKind::DepthZero:
            return "depth-zero";
        case FindingKind::CutOffDrawing:
            return "cut-off-drawing";
        case FindingKind::NotCut:
            return "not-cut";
        case FindingKind::CutTwice:
            return "cut-twice";
        case FindingKind::DrillOffCentre:
            return "drill-off-centre";
        case FindingKind::ZeroMoved:
            return "zero-moved";
        case FindingKind::UnitsDiffer:
            return "units-differ";
        case FindingKind::UnitMissing:
            return "unit-missing";
        case FindingKind::NoMotion:
            return "no-motion";
        case FindingKind::EndsInMaterial:
            return "ends-in-material";
        case FindingKind::NoEndCode:
            return "no-end-code";
        case FindingKind::TextAfterEnd:
            return "text-after-end";
        case FindingKind::AppendedTwoEnds:
            return "appended-two-ends";
        case FindingKind::AppendedTwoUnits:
            return "appended-two-units";
        case FindingKind::LineNumbersDisorder:
            return "line-numbers-disorder";
        case FindingKind::CutTooDeep:
            return "cut-too-deep";
        case FindingKind::DepthNotReached:
            return "depth-not-reached";
        case FindingKind::ToolLength:
            return "tool-length";
    }
    return "";
}

const char* nameOf(Severity severity) {
    switch (severity) {
        case Severity::Note:
            return "note";
        case Severity::Warning:
            return "warning";
        case Severity::Error:
            break;
    }
    return "error";
}

}  // namespace gcode_check
