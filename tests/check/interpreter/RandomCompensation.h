// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/Chance.h"

namespace judge {

/// Writes a program with a random contour in radius compensation: lines and arcs, convex and
/// concave, on the left and on the right, in G17 and G18. About one in five does not fit the tool,
/// which a controller rejects. The same seed gives the same program on each machine.
class RandomCompensation {
public:
    explicit RandomCompensation(std::uint64_t seed) : m_chance(seed) {}
    std::string text();
    /// With a line among the moves that a controller rejects while compensation is on.
    std::string textWith(const std::string& badLine);

private:
    void before();
    void turnOn();
    void contour(const std::string* badLine);
    void line(double heading);
    void arc(double heading);
    double sweepOfEntry(double radius, bool isCounterClockwise);
    void between();
    void behind();
    void put(const std::string& line) { m_text += line + "\n"; }
    std::string place(double first, double second);
    std::string words();
    std::string number(double value) const;

    bool maybe(int percent) { return m_chance.below(100) < static_cast<std::size_t>(percent); }
    std::size_t pick(std::size_t count) { return m_chance.below(count); }

    Chance m_chance;
    std::string m_text;
    double m_unit = 1;  // a millimetre in the program's unit
    double m_radius = 1;
    double m_first = 0;
    double m_second = 0;
    double m_heading = 0;
    int m_decimals = 9;
    bool m_isLeft = true;
    bool m_isXZ = false;
    bool m_hasTip = false;
    bool m_isRelative = false;
    bool m_isTight = false;
    bool m_isEntry = true;
    bool m_isArc = false;
};

/// Lines that can't be while radius compensation is on.
const std::vector<std::string>& linesForbiddenInCompensation();

/// Writes a program that changes modes, saves them and brings them back, with moves in between.
std::string randomModes(std::uint64_t seed);

}  // namespace judge
