// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "core/Point.h"

namespace GCode {

/// The tool state handed from one generator call to the next while one program is written. The XY
/// feed holds the last feed word that was written, whichever feed that word carried.
class PositionAndFeed {
public:
    PositionAndFeed() = default;
    PositionAndFeed(const Point& point, double feedRate) : m_point(point), m_feedRateXY(feedRate) {}

    Point GetPoint() const { return m_point; }
    double GetFeedRate() const { return m_feedRateXY; }
    double GetFeedRateZ() const { return m_feedRateZ; }

    void SetPoint(const Point& point) { m_point = point; }
    void SetFeedRate(double feedRate) { m_feedRateXY = feedRate; }
    void SetFeedRateZ(double feedRate) { m_feedRateZ = feedRate; }

    Point m_point;
    double m_feedRateXY = 0.0;
    double m_feedRateZ = 0.0;
};

}  // namespace GCode
