// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>

#include "interpreter/MachineState.h"
#include "interpreter/Progress.h"

namespace gcode_check {

// What the check is told besides program and drawing. Lengths are in the drawing's unit, without
// a drawing of known unit in the program's; feeds in the program's unit per minute.
struct CheckOptions {
    double surfaceZ = 0;      // the material's top, in program coordinates
    double tolerance = 0.02;  // how far from an object a cut may lie
    // How much the two radii of an arc may differ; none: 0.005 mm or a thousandth of the radius,
    // whichever is more, as simple controllers have it
    std::optional<double> arcRadiusTolerance;
    // The deepest Z that a cut may have and that one must have; none: any
    std::optional<double> depth;
    double rapidRate = 5000;  // millimetres a minute, for the estimate of time
    // The feed of strokes straight down, where the settings are known; none: what the program's
    // own strokes say
    std::optional<double> plungeFeed;
    // So many findings of one kind are told, the others counted
    std::size_t findingsPerKind = 100;
    MachineOptions machine;
    // For a check that takes long; none: nobody listens
    ProgressListener progress;
};

}  // namespace gcode_check
