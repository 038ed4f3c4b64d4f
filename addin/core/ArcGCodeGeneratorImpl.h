// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core/Arc.h"
#include "core/GCodeGeneratorInt.h"
#include "core/Parameters.h"

namespace GCode {

/// Cuts one circular arc, after lifting, travelling and plunging when the tool stands elsewhere
/// than at its start. Only the last feed of the tool state is updated: its position stays what it
/// was.
class ArcGCodeGeneratorImpl final : public GCodeGeneratorInt {
public:
    ArcGCodeGeneratorImpl(const Arc& arc, Direction direction, Arcform arcForm, double feedRateXY,
                          double feedRateZ, const Parameters& parameters);

    /// Sets the I and J offsets from `from` to the arc's centre; to be called before `Generate`.
    void CalculateCenterDistance(Point from);

    /// The quantised offset from `b` to `a`, as `roundedDifference` gives it.
    double DeltaFunction(double a, double b) const;

    /// With `radiusForm` no arc line is written, only the approach.
    std::string Generate(PositionAndFeed* state) override;

private:
    std::string codeKey() const;

    Arc m_arc;
    Direction m_Direction;
    Arcform m_arcForm;
    double m_feedRateXY;
    double m_feedRateZ;
    Parameters m_parameters;
    double m_IDistance = 0.0;
    double m_JDistance = 0.0;
};

}  // namespace GCode
