// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core/GCodeGeneratorInt.h"
#include "core/Parameters.h"
#include "core/Point.h"

/// Plunges at one point; nothing is written when the tool already stands there. Leaves the tool at
/// the cutting depth and the tool state at the point.
class PointGCodeGeneratorImpl final : public GCode::GCodeGeneratorInt {
public:
    PointGCodeGeneratorImpl(const GCode::Point& point, double feedRateXY, double feedRateZ,
                            const Parameters& parameters);

    std::string Generate(GCode::PositionAndFeed* state) override;

private:
    GCode::Point m_point;
    [[maybe_unused]] double m_feedRateXY;
    double m_feedRateZ;
    Parameters m_parameters;
};
