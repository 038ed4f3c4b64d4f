// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>

#include "findings/Check.h"
#include "report/Report.h"

/// What both ways to a check are told on the command line. Lengths in drawing units.
struct CheckSettings {
    /// None: nobody said it, and 0 is taken.
    std::optional<double> surface;
    double tolerance = 0.02;
    /// How much the radii of an arc may differ; none: what simple controllers take.
    std::optional<double> arcTolerance;
    /// The deepest Z of a cut, which one must reach; none: any.
    std::optional<double> depth;
    /// Of strokes straight down, in the program's unit a minute; none: what its own strokes say.
    std::optional<double> plungeFeed;
    /// Millimetres a minute.
    double rapidRate = 5000;
};

gcode_check::CheckOptions checkOptionsOf(const CheckSettings& settings);

/// What a report tells of where program, drawing and surface are from; empty names are left out,
/// "-" is called `stream`.
gcode_check::ReportHead headOf(const std::string& program, const std::string& stream,
                               const std::string& drawing, const CheckSettings& settings);

/// 0, or the code that says that errors were found.
int exitCodeOf(const gcode_check::CheckResult& result);
