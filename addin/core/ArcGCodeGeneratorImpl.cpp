// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/ArcGCodeGeneratorImpl.h"

#include "core/DeltaFunction.h"
#include "core/MotionLine.h"

namespace GCode {

ArcGCodeGeneratorImpl::ArcGCodeGeneratorImpl(const Arc& arc, Direction direction, Arcform arcForm,
                                             double feedRateXY, double feedRateZ,
                                             const Parameters& parameters)
    : m_arc(arc),
      m_Direction(direction),
      m_arcForm(arcForm),
      m_feedRateXY(feedRateXY),
      m_feedRateZ(feedRateZ),
      m_parameters(parameters) {}

void ArcGCodeGeneratorImpl::CalculateCenterDistance(Point from) {
    m_IDistance = DeltaFunction(m_arc.GetCenterPoint().m_x, from.m_x);
    m_JDistance = DeltaFunction(m_arc.GetCenterPoint().m_y, from.m_y);
}

double ArcGCodeGeneratorImpl::DeltaFunction(double a, double b) const {
    return roundedDifference(a, b);
}

std::string ArcGCodeGeneratorImpl::Generate(PositionAndFeed* state) {
    MotionLines lines(state);
    if (state->GetPoint() != m_arc.GetStartPoint()) {
        lines.useFeed(m_feedRateZ);
        lines.approach(m_arc.GetStartPoint(), m_parameters);
    }
    lines.useFeed(m_feedRateXY);
    if (m_arcForm == ijkForm) {
        lines.arcTo(codeKey(), m_arc.GetEndPoint(), m_IDistance, m_JDistance);
    }
    // The state keeps the position from before the arc, so that what follows approaches anew.
    return lines.take();
}

std::string ArcGCodeGeneratorImpl::codeKey() const {
    switch (m_Direction) {
        case CW:
            return "G02";
        case CCW:
            return "G03";
    }
    return {};
}

}  // namespace GCode
