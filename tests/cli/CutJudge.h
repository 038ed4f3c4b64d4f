// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "findings/Check.h"

/// Judges what a check said of a program of the panel in absolute mode by means of its own: it
/// reads the program's motion lines, goes along each object in small steps and looks for the cut
/// that is nearest.
struct Judgement {
    std::size_t shapes = 0;
    /// With a cut within the tolerance at every step.
    std::size_t shapesCut = 0;
    /// Where both are of different opinion: a place without a cut that no finding names, or a
    /// finding that names a place with a cut. A line each.
    std::vector<std::string> complaints;
};

Judgement judgeCuts(const std::string& program, const gcode_check::Drawing& drawing,
                    const gcode_check::CheckResult& result, double tolerance);
