// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "interpreter/Motion.h"

namespace gcode_check {

struct Tool {
    std::int32_t number = 0;
    std::int32_t pocket = 0;
    Point offset;  // millimetres; its length along z
    double diameterMm = 0;
    std::uint8_t orientation = 0;  // of a lathe tool, 1 to 8: where its tip is; else it is round
};

// What a program can't say about the machine that runs it.
struct MachineOptions {
    bool startsInInches = false;  // the unit before any G20 or G21
    bool blockDelete = false;     // the operator's switch: lines with a slash are left out
    bool anyTool = true;          // a tool that is not listed is taken, its length as 0
    std::vector<Tool> tools;
    Point start;                     // millimetres, machine coordinates
    std::array<Point, 9> systems{};  // G54 to G59.3, millimetres
    Point home28;                    // G28, millimetres, machine coordinates
    Point home30;                    // G30
    // A program of n lines may have so many steps for each line and so many besides: a few words
    // can ask for thousand millions of them.
    std::uint32_t motionsPerLine = 4;
    std::uint32_t motionsBesides = 1000000;
    std::uint32_t diagnosticsAtMost = 1000;
};

enum class PathMode : std::uint8_t { Continuous, ExactPath, ExactStop };  // G64, G61, G61.1

// What M70 saves as it is: all that a word puts in force until another one does, but for the motion
// code.
struct Modes {
    bool inches = false;              // G20
    bool relative = false;            // G91
    bool arcCentresAbsolute = false;  // G90.1
    bool retractToR = true;           // G99
    bool offset92On = false;
    Plane plane = Plane::XY;
    FeedMode feedMode = FeedMode::PerMinute;
    PathMode pathMode = PathMode::Continuous;
    Spindle spindle = Spindle::Off;
    std::uint8_t coolant = 0;  // bit 0: mist, bit 1: flood
    std::uint8_t system = 1;   // 1: G54, ... 9: G59.3
    double spindleSpeed = 0;   // revolutions a minute
};

// The machine after the last line that was executed.
struct MachineState : Modes {
    Point position;  // millimetres, machine coordinates
    RotaryAxes rotary;
    std::int16_t motionMode = 0;     // tenths of the G number: 0, 10, 20, 30, 800, 810, ...
    double feed = 0;                 // millimetres a minute or a revolution, or moves a minute
    std::int32_t tool = 0;           // in the spindle
    std::int32_t nextTool = 0;       // the T word
    std::array<Point, 9> systems{};  // offsets of G54 to G59.3, millimetres
    std::array<double, 9> rotationsDeg{};
    Point offset92;    // of G92 and G52 while they are on, millimetres
    Point toolOffset;  // of G43, millimetres
};

}  // namespace gcode_check
