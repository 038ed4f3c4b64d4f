// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "interpreter/MachineState.h"

namespace gcode_check {

// What M70 and M73 save and M72 brings back.
struct SavedModes {
    bool isValid = false;
    bool isCompensated = false;
    bool is92On = false;
    bool isInches = false;
    bool isRelative = false;
    bool hasAbsoluteCentres = false;
    bool retractsToR = true;
    bool hasToolOffset = false;
    Plane plane = Plane::XY;
    FeedMode feedMode = FeedMode::PerMinute;
    PathMode pathMode = PathMode::Continuous;
    Spindle spindle = Spindle::Off;
    std::uint8_t coolant = 0;
    std::size_t system = 0;
    double feedWord = 0;
    double speed = 0;
};

}  // namespace gcode_check
