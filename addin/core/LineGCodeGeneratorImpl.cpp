// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/LineGCodeGeneratorImpl.h"

#include "core/MotionLine.h"

LineGCodeGeneratorImpl::LineGCodeGeneratorImpl(const GCode::Point& start, const GCode::Point& end,
                                               double feedRateXY, double feedRateZ,
                                               const Parameters& parameters)
    : m_startPoint(start),
      m_endPoint(end),
      m_feedRateXY(feedRateXY),
      m_feedRateZ(feedRateZ),
      m_parameters(parameters) {}

std::string LineGCodeGeneratorImpl::Generate(GCode::PositionAndFeed* state) {
    GCode::MotionLines lines(state);
    if (state->GetPoint() != m_startPoint) {
        lines.useFeed(m_feedRateZ);
        lines.approach(m_startPoint, m_parameters);
    }
    lines.useFeed(m_feedRateXY);
    lines.cutTo(m_endPoint);
    state->SetPoint(m_endPoint);
    return lines.take();
}
