// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PointGCodeGeneratorImpl.h"

#include "core/MotionLine.h"

PointGCodeGeneratorImpl::PointGCodeGeneratorImpl(const GCode::Point& point, double feedRateXY,
                                                 double feedRateZ, const Parameters& parameters)
    : m_point(point), m_feedRateXY(feedRateXY), m_feedRateZ(feedRateZ), m_parameters(parameters) {}

std::string PointGCodeGeneratorImpl::Generate(GCode::PositionAndFeed* state) {
    if (state->GetPoint() == m_point) {
        return {};
    }
    GCode::MotionLines lines(state);
    lines.useFeed(m_feedRateZ);
    lines.approach(m_point, m_parameters, GCode::TravelEnd::blank);
    state->SetPoint(m_point);
    return lines.take();
}
