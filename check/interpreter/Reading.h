// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "interpreter/Diagnostic.h"
#include "interpreter/MachineState.h"
#include "interpreter/Motion.h"

namespace gcode_check {

// What stands in a line besides its motions. Lines after the end or after a rejected line have
// their facts too, as far as their words can be read.
enum class FactKind : std::uint8_t {
    LineNumber,    // value: the N word
    Unit,          // value: 20 or 21
    Distance,      // value: 90 or 91
    System,        // value: 1 for G54, ... 9 for G59.3
    Spindle,       // value: 3, 4 or 5
    Feed,          // value: the F word as written, in the line's unit
    Speed,         // value: the S word as written
    Tool,          // value: the T word as written
    End,           // value: 2 or 30 for the M code
    Percent,       // a line of only a percent sign
    Comment,       // value: the column where it begins
    BlockDelete,   // value: 1 when the line was left out
    TextAfterEnd,  // a line that is not empty after the end; value: the column of the text
    ToolLength,    // value: H of G43, 0 without it: the tool in the spindle; or one of those below
};

constexpr double kNoToolLength = -1;   // G49
constexpr double kOwnToolLength = -2;  // G43.1, G43.2; and M72, which may bring back any

struct Fact {
    std::uint32_t line = 0;  // from 1
    FactKind kind = FactKind::Comment;
    double value = 0;
};

// What a program does on a machine, as far as a controller runs it and this reading follows.
struct Reading {
    std::vector<Motion> motions;          // in the order in which the machine does them
    std::vector<Frame> frames;            // Motion::frame
    std::vector<RotaryAxes> rotaryAxes;   // Motion::rotary
    std::vector<Contour> contours;        // Motion::contour
    std::vector<Diagnostic> diagnostics;  // in the order of the lines
    std::size_t diagnosticsLeftOut = 0;   // beyond MachineOptions::diagnosticsAtMost
    std::vector<Fact> facts;              // in the order of the lines
    MachineState state;                   // after the last line that was executed
    std::uint32_t lines = 0;              // of the text
    std::uint32_t endLine = 0;  // of the M2, M30 or closing percent that ended it; 0: none
    // The first line that a controller rejects or that is not interpreted; 0: none. There the
    // motions end: the lines behind are looked at for their words only, nothing is guessed.
    std::uint32_t stopLine = 0;
};

}  // namespace gcode_check
