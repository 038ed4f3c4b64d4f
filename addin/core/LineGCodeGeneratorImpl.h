// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core/GCodeGeneratorInt.h"
#include "core/Parameters.h"
#include "core/Point.h"

/// Cuts one straight segment, after lifting, travelling and plunging when the tool stands elsewhere
/// than at its start. Leaves the tool state at the segment's end.
class LineGCodeGeneratorImpl final : public GCode::GCodeGeneratorInt {
public:
    LineGCodeGeneratorImpl(const GCode::Point& start, const GCode::Point& end, double feedRateXY,
                           double feedRateZ, const Parameters& parameters);

    std::string Generate(GCode::PositionAndFeed* state) override;

private:
    GCode::Point m_startPoint;
    GCode::Point m_endPoint;
    double m_feedRateXY;
    double m_feedRateZ;
    Parameters m_parameters;
};
