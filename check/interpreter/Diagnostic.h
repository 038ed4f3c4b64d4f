// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace gcode_check {

// What a controller rejects a line for, or what is not interpreted here: one value a rule.
enum class Rule : std::uint8_t {
    // The text of a line
    CommentNotClosed,
    NestedComment,
    UnknownCharacter,
    NumberMissing,
    NumberUnreadable,
    NumberOutOfRange,  // the word's number is negative, not whole or too large
    WordTwice,
    WordsTooMany,  // a fifth M code, a line that is too long
    // Its codes
    UnknownGCode,
    UnknownMCode,
    SameModalGroup,
    CodesClash,      // two codes that can't stand together though their groups differ
    WordWithoutUse,  // no code of the line takes the word
    WordMissing,     // a code of the line lacks it
    AxesMissing,     // motion without any coordinate
    AxesWithoutUse,  // coordinates without a motion
    // Its motion
    FeedMissing,
    SpindleMissing,
    ArcWithoutCentre,
    ArcFormsMixed,
    ArcRadiiDiffer,
    ArcRadiusTooSmall,
    ArcRadiusZero,
    CycleClash,         // a canned cycle in a mode that has none
    CycleRetractBelow,  // R below the bottom of the hole
    CycleRepeats,
    CycleInverseTime,
    PeckNotPositive,
    ModeForbids,  // the machine's mode does not allow the code
    OffsetOutOfRange,
    ModesNotSaved,            // M72 without an M70 or M73 before it
    CompensationOn,           // G41 or G42 while one of them is in force
    CompensationPlane,        // in the plane of G19
    CompensationForbids,      // what can't be while it is on
    CompensationEntryShort,   // the first move is not longer than the tool's radius
    CompensationArcTooSmall,  // an arc that has the tool inside and no room for it
    CompensationNoRoom,       // a corner that the tool does not fit into
    CompensationGouge,        // a move that ends before it begins, seen from the tool's centre
    CompensationExitArc,      // an arc as the first move behind G40
    ToolUnknown,
    ProgramNotOpened,  // text and percent lines that do not fit together
    // What a controller knows and this does not
    ControlWord,         // O words: subroutines, loops, conditions
    Parameter,           // #
    Expression,          // [ ]
    NotInterpretedCode,  // a code that controllers know
    // Bounds of this reading
    TooManyMotions,
    TooManyLines,
};

// "arc-radii-differ": fixed from version to version.
const char* identifierOf(Rule rule);

enum class Verdict : std::uint8_t {
    Rejected,        // a controller stops here with an error
    NotInterpreted,  // a controller goes on, this reading does not
};

struct Diagnostic {
    Rule rule = Rule::UnknownCharacter;
    Verdict verdict = Verdict::Rejected;
    std::uint32_t line = 0;    // from 1
    std::uint32_t column = 0;  // from 1, in bytes
    std::string found;         // as it stands in the program, or as numbers
    std::string expected;      // in words
};

}  // namespace gcode_check
