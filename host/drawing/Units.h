// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>

namespace kxdrawing {

/// The values of the unit option.
constexpr short kUnitInches = 0;
constexpr short kUnitMillimetres = 1;

/// What the drawing's unit is taken for, and the factor that brings its numbers there.
struct UnitDecision {
    short unit = kUnitMillimetres;
    double scale = 1;
    /// A sentence for the report.
    std::string note;
    /// Whether the file says so; otherwise it is assumed.
    bool isKnown = true;
};

/// Decides from $INSUNITS and, where that is absent or 0, from $MEASUREMENT.
UnitDecision decideUnit(std::optional<int> insertUnits, std::optional<int> measurement);

}  // namespace kxdrawing
