// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace gcode_check {

struct PlanePoint {
    double x = 0;
    double y = 0;
};

enum class ShapeKind : std::uint8_t { Point, Line, Arc, Circle };

// One object that a program was made from, seen from above, in the drawing's unit.
struct Shape {
    ShapeKind kind = ShapeKind::Point;
    PlanePoint first;   // a line's first end, a point's place
    PlanePoint second;  // a line's second end
    PlanePoint centre;  // of an arc or circle
    double radius = 0;
    double startRad = 0;       // an arc runs counter-clockwise from here
    double endRad = 0;         // to here; whole turns do not matter, equal angles are a full turn
    std::uint32_t object = 0;  // its number for people, from 1; 0: its place in the list, from 1
    std::string name;          // for messages, "line 12 of layer CUT"; empty: its kind and number
};

// What is selected. Its unit: 1 for millimetres, 25.4 for inches; none: the drawing does not say,
// its numbers are then taken in the program's unit.
struct Drawing {
    std::vector<Shape> shapes;
    std::optional<double> mmPerUnit;
};

// Its number for people, from 1.
std::uint32_t numberOf(const Shape& shape, std::size_t index);

// "line 12": the name, or what stands for it.
std::string nameOf(const Shape& shape, std::size_t index);

}  // namespace gcode_check
