// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/ProgramText.h"

#include "core/Arc.h"
#include "core/ArcGCodeGeneratorImpl.h"
#include "core/DeltaFunction.h"
#include "core/LineGCodeGeneratorImpl.h"
#include "core/MotionLine.h"
#include "core/PointGCodeGeneratorImpl.h"
#include "core/PostProcessorImpl.h"

namespace GCode {

namespace {

Point roundedOffset(const Point& a, const Point& b) {
    return {roundedDifference(a.m_x, b.m_x), roundedDifference(a.m_y, b.m_y),
            roundedDifference(a.m_z, b.m_z)};
}

std::string cycleLine(DrillCycle cycle, const DrillSettings& settings) {
    const std::string depthAndRetract =
        "Z" + formatNumber(settings.depth) + "R" + formatNumber(settings.retractHeight);
    const std::string dwell = "P" + formatNumber(settings.dwell);
    const std::string feedEnd = "F" + formatNumber(settings.feedRate) + "\n";
    switch (cycle) {
        case DrillCycle::g81:
            return "G81 " + depthAndRetract + feedEnd;
        case DrillCycle::g82:
            return "G82 " + depthAndRetract + dwell + feedEnd;
        case DrillCycle::g83:
            // The dwell is written although the panel hides its field for this cycle.
            return "G83 " + depthAndRetract + dwell + "Q" + formatNumber(settings.peckDepth) +
                   feedEnd;
    }
    return {};
}

}  // namespace

MotionMode motionModeFromText(const std::string& text) {
    return text == "Relative" ? MotionMode::relative : MotionMode::absolute;
}

std::string preambleText(const std::string& typed, MotionMode mode, const Point& start) {
    return typed + "\n" + (mode == MotionMode::relative ? "G91" : "G90") + "\n" + "G0 X" +
           formatNumber(start.m_x) + "Y" + formatNumber(start.m_y) + "\n";
}

std::string postambleText(const std::string& typed) {
    return typed + "\n";
}

ToolPathWriter::ToolPathWriter(const ToolPathSettings& settings, PositionAndFeed* state)
    : m_settings(settings), m_state(state) {}

std::string ToolPathWriter::point(const Point& position) {
    const Point target = isRelative() ? roundedOffset(position, m_lastPoint) : position;
    m_lastPoint = position;
    return PointGCodeGeneratorImpl(target, m_settings.feedXY, m_settings.feedZ,
                                   m_settings.parameters)
        .Generate(m_state);
}

std::string ToolPathWriter::line(const Point& first, const Point& second) {
    const Point start = isRelative() ? roundedOffset(first, m_lastPoint) : first;
    const Point end = isRelative() ? roundedOffset(second, first) : second;
    m_lastPoint = second;
    return LineGCodeGeneratorImpl(start, end, m_settings.feedXY, m_settings.feedZ,
                                  m_settings.parameters)
        .Generate(m_state);
}

std::string ToolPathWriter::arc(const ArcGeometry& geometry) {
    const Point start = isRelative() ? roundedOffset(geometry.start, m_lastPoint) : geometry.start;
    const Point end = isRelative() ? roundedOffset(geometry.end, geometry.start) : geometry.end;
    m_lastPoint = geometry.end;
    ArcGCodeGeneratorImpl generator(Arc(start, end, geometry.centre, geometry.radius), CCW, ijkForm,
                                    m_settings.feedXY, m_settings.feedZ, m_settings.parameters);
    // The centre is absolute in both modes, and so is what its offsets are counted from.
    generator.CalculateCenterDistance(roundedOffset(geometry.start, Point()));
    return generator.Generate(m_state);
}

std::string drillCycleText(DrillCycle cycle, const DrillSettings& settings, MotionMode mode,
                           const std::vector<Point>& positions) {
    if (positions.empty()) {
        return {};
    }
    auto codes = PostProcessorImpl::GetPostProcessor()->GetMap();
    Point last = positions.front();
    std::string text = codes["X"] + formatNumber(last.m_x) + " " + codes["Y"] +
                       formatNumber(last.m_y) + "\n" + cycleLine(cycle, settings);
    for (std::size_t i = 1; i < positions.size(); ++i) {
        const Point& position = positions[i];
        const bool relative = mode == MotionMode::relative;
        const double x = relative ? position.m_x - last.m_x : position.m_x;
        const double y = relative ? position.m_y - last.m_y : position.m_y;
        text += "X" + formatNumber(x) + " " + "Y" + formatNumber(y) + "\n";
        last = position;
    }
    return text + "G80\n";
}

}  // namespace GCode
