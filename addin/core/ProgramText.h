// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "core/Parameters.h"
#include "core/Point.h"
#include "core/PositionAndFeed.h"

namespace GCode {

/// Whether coordinates are written as they are ("G90") or as differences ("G91").
enum class MotionMode { absolute, relative };

/// Relative for exactly "Relative", absolute for every other text.
MotionMode motionModeFromText(const std::string& text);

/// The typed text as it is, then the motion mode, then the rapid to (x, y) of `start`.
std::string preambleText(const std::string& typed, MotionMode mode, const Point& start);

/// The typed text as it is, and a line feed.
std::string postambleText(const std::string& typed);

/// What all objects of one tool path are cut with. Feeds in drawing units per minute.
struct ToolPathSettings {
    MotionMode mode = MotionMode::absolute;
    double feedXY = 0.0;
    double feedZ = 0.0;
    Parameters parameters;
};

/// An arc as the drawing holds it, in absolute coordinates. A circle starts where it ends.
struct ArcGeometry {
    Point start;
    Point end;
    Point centre;
    double radius = 0.0;
};

/// Writes the objects of one tool path one after the other, each from its absolute coordinates. In
/// relative mode they are turned into rounded differences; the tool state then holds those.
class ToolPathWriter {
public:
    /// `state` must not be null and must outlive the writer.
    ToolPathWriter(const ToolPathSettings& settings, PositionAndFeed* state);

    std::string point(const Point& position);
    std::string line(const Point& first, const Point& second);
    /// Counter-clockwise with centre offsets, whatever the drawing's own sense.
    std::string arc(const ArcGeometry& geometry);

private:
    bool isRelative() const { return m_settings.mode == MotionMode::relative; }

    ToolPathSettings m_settings;
    PositionAndFeed* m_state;
    Point m_lastPoint;
};

/// The canned cycles; any other value stands for a block without a cycle line.
enum class DrillCycle { g81 = 0, g82 = 1, g83 = 2 };

struct DrillSettings {
    double depth = 0.0;
    double retractHeight = 0.0;
    double feedRate = 0.0;
    double dwell = 0.0;
    double peckDepth = 0.0;
};

/// The cycle's block with one line per position, ended by "G80"; empty without positions. The first
/// position is absolute in both modes; in relative mode the others are plain differences.
std::string drillCycleText(DrillCycle cycle, const DrillSettings& settings, MotionMode mode,
                           const std::vector<Point>& positions);

}  // namespace GCode
