// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace gcode_check {

// Millimetres, whatever the program's unit word says, unless a function says otherwise.
struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};

inline bool operator==(const Point& a, const Point& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}
inline bool operator!=(const Point& a, const Point& b) {
    return !(a == b);
}

// Degrees, program coordinates.
struct RotaryAxes {
    double a = 0;
    double b = 0;
    double c = 0;
};

enum class Plane : std::uint8_t { XY, XZ, YZ };  // G17, G18, G19

enum class FeedMode : std::uint8_t { PerMinute, InverseTime, PerRevolution };  // G94, G93, G95

enum class Spindle : std::uint8_t { Off, Clockwise, CounterClockwise };  // M5, M3, M4

enum class MotionKind : std::uint8_t {
    Rapid,       // straight, as fast as the machine can
    Feed,        // straight, at the feed
    Arc,         // circle or helix, at the feed
    Dwell,       // waits `seconds`
    Spindle,     // from here on `spindle` and `spindleSpeed`
    ToolChange,  // M6: `tool` is in the spindle from here on
    Coolant,     // M7, M8, M9
    Stop,        // M0, M1, M60: waits for the operator
    ProgramEnd,  // M2, M30, or the closing percent line
};

// What a straight motion does within a canned cycle.
enum class Stroke : std::uint8_t {
    None,        // not part of a cycle
    Approach,    // rapid: up to R, across, down to R
    Drill,       // feed: into the material
    Peck,        // rapid: out and back in between two drill strokes
    Retract,     // rapid: out of the hole for good
    FedRetract,  // the same at the feed (G85, G89)
};

constexpr std::int32_t kNoContour = -1;
constexpr std::int32_t kRoundCorner = -2;  // beside a corner: nothing was programmed

// One step of what the machine does. It begins where the one before ended.
struct Motion {
    std::uint32_t line = 0;  // of the program, from 1
    MotionKind kind = MotionKind::Rapid;
    Plane plane = Plane::XY;  // of an arc or a cycle, in program coordinates
    FeedMode feedMode = FeedMode::PerMinute;
    Spindle spindle = Spindle::Off;  // while it goes on; of a Spindle step: from then on
    Stroke stroke = Stroke::None;
    std::uint8_t cycle = 0;       // 73, 81, 82, 83, 85, 86, 89; 0: not part of a cycle
    std::uint8_t coolant = 0;     // bit 0: mist (M7), bit 1: flood (M8)
    bool toMachinePlace = false;  // G28, G30, G53: where that lies from the work nobody knows
    // Of an arc, seen from the positive end of the plane's third axis: 1 is up to a full turn
    // counter-clockwise, -1 clockwise, 2 a full turn more than 1, and so on.
    std::int32_t turns = 0;
    std::uint32_t frame = 0;   // Reading::frames, for programToMachine and back
    std::int32_t rotary = -1;  // Reading::rotaryAxes at the end; -1: all are at 0
    // Reading::contours: what was programmed, where radius compensation moves the tool beside it;
    // kNoContour: what is programmed is where the tool goes.
    std::int32_t contour = kNoContour;
    std::int32_t tool = 0;  // number of the tool in the spindle
    Point from;             // machine coordinates, millimetres
    Point to;
    Point centre;     // of an arc; along its axis as `from`
    double feed = 0;  // millimetres a minute or a revolution, or moves a minute; see feedMode
    double spindleSpeed = 0;  // revolutions a minute; as programmed, also while the spindle is off
    double seconds = 0;       // of a dwell
};

// Where the programmed line or arc of a compensated step lies: as in Motion.
struct Contour {
    Point from;
    Point to;
    Point centre;
};

inline bool isMove(const Motion& motion) {
    return motion.kind == MotionKind::Rapid || motion.kind == MotionKind::Feed ||
           motion.kind == MotionKind::Arc;
}

// How program coordinates lie in the machine: program = unturned by `rotation` (machine - offset).
struct Frame {
    Point offset;             // millimetres: G54 to G59.3, G92, tool length and the like together
    double rotationDeg = 0;   // about Z, counter-clockwise (R of G10 L2)
    bool inches = false;      // the unit of the program's words
    std::uint8_t system = 1;  // 1: G54, 2: G55, ... 9: G59.3
    Point zero;               // millimetres: the offset without that of the tool's length
    std::uint32_t zeroLine =
        0;  // the last line that set it: G10, G52, G54 to G59.3, G92 and its offs; 0: none
};

// Both in millimetres.
Point toProgram(const Frame& frame, const Point& machine);
Point toMachine(const Frame& frame, const Point& program);

}  // namespace gcode_check
