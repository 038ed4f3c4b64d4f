// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "findings/CheckOptions.h"
#include "findings/Figures.h"
#include "findings/Finding.h"
#include "findings/Shape.h"
#include "interpreter/Reading.h"

namespace gcode_check {

struct CheckResult {
    // By line (those of the program as a whole last), kind and object; the same from run to run
    std::vector<Finding> findings;
    // By Severity, those that were left out included
    std::array<std::size_t, 3> counts{};
    // Findings beyond CheckOptions::findingsPerKind, by FindingKind
    std::array<std::size_t, 32> leftOut{};
    Figures figures;
    Reading reading;          // motions and lines, for whoever shows a place
    bool inches = false;      // the program's unit, in which all lengths here are
    double surface = 0;       // the material's top
    bool depthGiven = false;  // CheckOptions::depth
    bool drawingGiven = false;
    // Whether objects were held against cuts. Not when the program stops before its last cut:
    // what is missing then is the stop's fault
    bool coverageJudged = false;
    std::size_t shapes = 0;
    std::size_t shapesCut = 0;  // entirely, within the tolerance
    bool stopped = false;       // CheckOptions::progress wanted it: nothing else here counts
};

// Reads the program and judges it; with a drawing (null: none) also what is cut. Never throws for
// what a program or a drawing holds.
CheckResult check(std::string_view program, const CheckOptions& options = {},
                  const Drawing* drawing = nullptr);

std::size_t countOf(const CheckResult& result, Severity severity);
bool hasErrors(const CheckResult& result);

}  // namespace gcode_check
