// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core/Parameters.h"
#include "core/Point.h"
#include "core/PositionAndFeed.h"
#include "core/ProgramText.h"

// The motion lines in their plainest form, a copy of the code map for each object and a stream for
// each line: the judge of the fast ones.

/// What each object is cut with.
struct LiteralCut {
    double feedRateXY = 0;
    double feedRateZ = 0;
    Parameters parameters;
};

/// A number as an output stream with default settings writes it, in the classic locale.
std::string literalNumber(double value);

std::string literalLine(const GCode::Point& start, const GCode::Point& end, const LiteralCut& cut,
                        GCode::PositionAndFeed* state);

/// Counter-clockwise, with the offsets i and j of the centre.
std::string literalArc(const GCode::Point& start, const GCode::Point& end, double i, double j,
                       const LiteralCut& cut, GCode::PositionAndFeed* state);

std::string literalPoint(const GCode::Point& point, const LiteralCut& cut,
                         GCode::PositionAndFeed* state);

/// Writes a tool path as GCode::ToolPathWriter does.
class LiteralToolPath {
public:
    LiteralToolPath(const GCode::ToolPathSettings& settings, GCode::PositionAndFeed* state);

    std::string point(const GCode::Point& position);
    std::string line(const GCode::Point& first, const GCode::Point& second);
    std::string arc(const GCode::ArcGeometry& geometry);

private:
    GCode::Point turned(const GCode::Point& target, const GCode::Point& from) const;

    GCode::MotionMode m_mode;
    LiteralCut m_cut;
    GCode::PositionAndFeed* m_state;
    GCode::Point m_last;
};
