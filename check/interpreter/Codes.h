// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace gcode_check {

// Codes of one group exclude each other on a line.
enum class GGroup : std::uint8_t {
    Unknown,
    OneShot,       // G4 G10 G28 G30 G52 G53 G92
    Motion,        // G0 to G3, the cycles
    CancelMotion,  // G80, beside any other
    Plane,
    Distance,
    ArcDistance,
    FeedMode,
    Unit,
    RadiusOffset,
    ToolLength,
    Retract,
    System,
    Path,
    SpindleMode,
    Diameter,
    OffsetOff,     // G92.1 G92.2 G92.3
    LatheContour,  // G70 to G72.2: not interpreted, and rejected without Q
    NotInterpreted,
    Count
};

enum class MGroup : std::uint8_t {
    Unknown,
    Stop,      // M0 M1 M2 M30 M60
    Tool,      // M6 M61
    Spindle,   // M3 M4 M5, and what saves modes: M70 to M73
    Coolant,   // M7 M8 M9
    Override,  // M48 to M53
    Output,    // M62 to M68
    NotInterpreted,
    Count
};

constexpr int kGGroups = static_cast<int>(GGroup::Count);
constexpr int kMGroups = static_cast<int>(MGroup::Count);

// G codes are counted in tenths: 921 is G92.1.
GGroup groupOfG(int tenths);
MGroup groupOfM(int code);

// "G92.1", "G2"
struct CodeText {
    char text[12];
};
CodeText textOfG(int tenths);

inline bool isCycle(int tenths) {
    return tenths == 730 || (tenths >= 810 && tenths <= 890);
}

}  // namespace gcode_check
