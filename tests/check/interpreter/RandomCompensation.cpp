// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RandomCompensation.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace judge {
namespace {

constexpr double kPi = 3.14159265358979323846;

struct TableRow {
    const char* number;
    double radiusMm;
};
// Of the table that Judge.cpp writes.
constexpr TableRow kTools[] = {{"2", 6.35}, {"4", 3.175}, {"5", 3.175}, {"9", 12.7}};
constexpr TableRow kLatheTool = {"20", 3.175};

std::string fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", decimals, value);
    return text;
}

}  // namespace

std::string RandomCompensation::text() {
    before();
    turnOn();
    contour(nullptr);
    behind();
    return std::move(m_text);
}

std::string RandomCompensation::textWith(const std::string& badLine) {
    before();
    turnOn();
    contour(&badLine);
    behind();
    return std::move(m_text);
}

std::string RandomCompensation::number(double value) const {
    return fixed(value, m_decimals);
}

void RandomCompensation::before() {
    const bool isInches = maybe(25);
    m_unit = isInches ? 1 / 25.4 : 1;
    m_isXZ = maybe(25);
    m_isTight = maybe(40);
    m_decimals = maybe(60) ? 9 : isInches ? 5 : 4;
    put(std::string(isInches ? "G20" : "G21") + (m_isXZ ? " G18" : " G17") + " G90 G91.1 G40 G64");
    if (maybe(15)) {
        put("G10 L2 P1 X" + number(m_unit * 3) + " Z-" + number(m_unit) + " R" +
            std::to_string(pick(90)));
    }
    put("F" + std::to_string(10 + pick(500)));
    put("G0 X0 Y0 Z0");
    if (maybe(10)) {
        put("G92 X" + number(m_unit * 7) + " Z" + number(m_unit * 2));
        put("G0 X0 Y0 Z0");
    }
}

void RandomCompensation::turnOn() {
    m_isLeft = maybe(50);
    const std::string code = m_isLeft ? "G41" : "G42";
    switch (pick(3)) {
        case 0: {
            m_hasTip = m_isXZ && maybe(40);
            const TableRow& tool = m_hasTip ? kLatheTool : kTools[pick(std::size(kTools))];
            m_radius = tool.radiusMm * m_unit;
            put(code + " D" + tool.number);
            break;
        }
        case 1: {
            // Of a change of tools the judge tells the row of the table, which is not 9.
            const TableRow& tool = kTools[pick(std::size(kTools) - 1)];
            m_radius = tool.radiusMm * m_unit;
            put(std::string("T") + tool.number + " M6");
            put("G0 X0 Y0 Z0");
            put(code + (maybe(30) ? " D0" : ""));
            break;
        }
        default:
            m_radius = static_cast<double>(1 + pick(60)) / 8 * m_unit;
            m_hasTip = m_isXZ && maybe(60);
            put(code + ".1 D" + number(2 * m_radius) +
                (m_hasTip ? " L" + std::to_string(pick(11)) : ""));
            // The number was rounded.
            m_radius *= 1.001;
            break;
    }
    if (maybe(20)) {
        m_isRelative = true;
        put("G91");
    }
    if (maybe(10)) {
        put(maybe(50) ? "G4 P1" : "M3 S100");
    }
}

void RandomCompensation::contour(const std::string* badLine) {
    const std::size_t moves = 2 + pick(10);
    const std::size_t badMove = pick(moves);
    m_heading = m_chance.between(0, 2 * kPi);
    for (std::size_t move = 0; move < moves; ++move) {
        double turn = 0;
        switch (pick(4)) {
            case 0:
                turn = m_chance.between(-kPi, kPi);
                break;
            case 1:
                turn = m_chance.between(-1, 1);
                break;
            case 2:
                turn = maybe(50) ? kPi / 2 : -kPi / 2;
                break;
            default:
                break;
        }
        if (badLine != nullptr && move == badMove) {
            put(*badLine);
        }
        // Behind an arc as the first move of a lathe tool the judge moves the wrong end.
        if (maybe(45) && !(m_hasTip && m_isEntry)) {
            arc(m_heading + turn);
        } else {
            line(m_heading + turn);
        }
        m_isEntry = false;
        if (maybe(12)) {
            between();
        }
    }
}

// The place is kept as it is written.
std::string RandomCompensation::place(double first, double second) {
    const double scale = std::pow(10, m_decimals);
    const auto rounded = [scale](double value) { return std::round(value * scale) / scale; };
    const double from[] = {m_first, m_second};
    m_first = rounded(first);
    m_second = rounded(second);
    const double x = m_first - (m_isRelative ? from[0] : 0);
    const double y = m_second - (m_isRelative ? from[1] : 0);
    return m_isXZ ? " Z" + number(x) + " X" + number(y) : " X" + number(x) + " Y" + number(y);
}

std::string RandomCompensation::words() {
    std::string result;
    if (maybe(20)) {
        result += m_isXZ ? " Y" : " Z";
        result += number((static_cast<double>(pick(20)) - 10) * m_unit);
    }
    if (maybe(15)) {
        result += " F" + std::to_string(9 + pick(900));
    }
    return result;
}

void RandomCompensation::line(double heading) {
    const double shortest = m_isEntry ? 1.1 : m_isTight ? 0.6 : 1.2;
    const double longest = m_isEntry ? 8 : m_isTight ? 6 : 20;
    const double length = m_radius * m_chance.between(shortest, longest);
    m_heading = heading;
    m_isArc = false;
    const std::string where =
        place(m_first + length * std::cos(heading), m_second + length * std::sin(heading));
    put((maybe(88) ? "G1" : "G0") + where + words());
}

// So far that the tool, too, gets round it.
double RandomCompensation::sweepOfEntry(double radius, bool isCounterClockwise) {
    const bool isInside = isCounterClockwise == m_isLeft;
    const double least = isInside ? std::acos(std::max(-1.0, 1 - 1.2 * m_radius / radius)) : 1.0;
    return m_chance.between(least, 2 * kPi - least);
}

void RandomCompensation::arc(double heading) {
    const double least = m_isEntry || !m_isTight ? 1.3 : 0.7;
    const double radius = m_radius * m_chance.between(least, 10);
    const bool isCounterClockwise = maybe(50);
    const double sign = isCounterClockwise ? 1 : -1;
    static constexpr double kSweeps[] = {kPi / 2, kPi, 2 * kPi};
    double sweep = maybe(60) ? m_chance.between(0.2, 2 * kPi - 0.1) : kSweeps[pick(3)];
    if (m_isEntry) {
        sweep = sweepOfEntry(radius, isCounterClockwise);
    }
    const double toCentre = heading + sign * kPi / 2;
    const double first = radius * std::cos(toCentre);
    const double second = radius * std::sin(toCentre);
    const double out = toCentre + kPi + sign * sweep;
    const bool isFull = sweep == 2 * kPi;
    const std::string offsets = m_isXZ ? " K" + number(first) + " I" + number(second)
                                       : " I" + number(first) + " J" + number(second);
    const std::string where = isFull ? place(m_first, m_second)
                                     : place(m_first + first + radius * std::cos(out),
                                             m_second + second + radius * std::sin(out));
    put((isCounterClockwise ? "G3" : "G2") + where + offsets + (maybe(5) ? " P2" : "") + words());
    m_heading = heading + sign * sweep;
    m_isArc = true;
}

void RandomCompensation::between() {
    // Behind an arc's code coordinates without a centre are none of its.
    static const char* const texts[] = {"(between)", "S100", "M3", "M8",    "G4 P1", "M0",
                                        "M1",        "M9",   "N7", "G91.1", ""};
    if (!m_isArc && maybe(30)) {
        put(m_isXZ ? "G1 Y1" : "G1 Z1");
        return;
    }
    put(texts[pick(std::size(texts))]);
}

void RandomCompensation::behind() {
    put(maybe(80) ? "G40" : maybe(50) ? "G90" : "M2");
    put(m_isXZ ? "G1 Z1 X2" : "G1 X1 Y2");
    put("G0 X0 Y0 Z0");
    put("M2");
}

// A plain table. NOLINTNEXTLINE(readability-function-size)
const std::vector<std::string>& linesForbiddenInCompensation() {
    static const std::vector<std::string> lines = {"G41",
                                                   "G42 D4",
                                                   "G41.1 D1",
                                                   "G19",
                                                   "G54",
                                                   "G59.2",
                                                   "G10 L2 P1 X1",
                                                   "G10 L20 P0 Z1",
                                                   "G92 X1",
                                                   "G52 Y1",
                                                   "G28",
                                                   "G30 Z5",
                                                   "G28.1",
                                                   "G30.1",
                                                   "G53 G0 X1",
                                                   "G43 H1",
                                                   "G49",
                                                   "G43.1 Z1",
                                                   "T1 M6",
                                                   "M48",
                                                   "M49",
                                                   "M50 P1",
                                                   "M53 P0",
                                                   "M62 P1",
                                                   "M65 P1",
                                                   "M67 E0 Q1",
                                                   "M68 E0 Q1",
                                                   "G61",
                                                   "G64",
                                                   "G61.1",
                                                   "G98",
                                                   "G99",
                                                   "G81 X1 Y1 Z-1 R1",
                                                   "G0 X1 D4",
                                                   "G40 D1",
                                                   "G1 X1 H1",
                                                   "G2 X1 Y1",
                                                   "G3 X1 Y1 Z1 I0 J0 K0",
                                                   "G94 G1 X1",
                                                   "G1 X1 X2",
                                                   "G17 G18",
                                                   "G41 G42",
                                                   "Z",
                                                   "%",
                                                   "G40 G53 G2 X1 I1",
                                                   "G40 M6 G2"};
    return lines;
}

namespace {

std::string modeLine(Chance& chance, bool hasTools) {
    static const std::vector<std::string> always = {
        "F100",  "F33.33", "F7.04",    "S500",      "S12.7",    "M3",           "M4",     "M5",
        "M7",    "M8",     "M9",       "G17",       "G18",      "G19",          "G90",    "G91",
        "G90.1", "G91.1",  "G94 F50",  "G95 F2 S9", "G98",      "G99",          "G54",    "G55",
        "G59.3", "G61",    "G64 P0.1", "M48",       "M49",      "G10 L2 P2 X3", "G92 Z1", "G92.2",
        "G92.3", "G52 X2", "G92.1",    "G93",       "G94 F9 S3"};
    static const std::vector<std::string> ofUnits = {"G20", "G21"};
    static const std::vector<std::string> ofTools = {"G43", "G49", "G43 H2", "G43.1 Z3", "G49"};
    const auto& others = hasTools ? ofTools : ofUnits;
    const std::size_t which = chance.below(always.size() + 3 * others.size());
    return which < always.size() ? always[which] : others[(which - always.size()) % others.size()];
}

std::string saveLine(Chance& chance) {
    static const char* const lines[] = {"M70", "M70", "M70 F8", "M73", "M72",
                                        "M72", "M72", "M72 S3", "M71"};
    return lines[chance.below(std::size(lines))];
}

}  // namespace

// Units don't change with a tool's offset in force, where the judge keeps the number.
std::string randomModes(std::uint64_t seed) {
    Chance chance(seed);
    const bool hasTools = chance.below(2) == 0;
    std::string text = "G21 G17 G90 G91.1 G94 G40 G49 G99 G54 G64 G80\nF60 S100\n";
    if (hasTools) {
        text += "T1 M6\nG0 X0 Y0 Z0 A0 B0 C0\n";
    }
    text += "M70\n";
    const std::size_t count = 5 + chance.below(40);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t kind = chance.below(10);
        if (kind < 5) {
            text += modeLine(chance, hasTools) + "\n";
        } else if (kind < 7) {
            text += saveLine(chance) + "\n";
        } else {
            text += (chance.below(2) == 0   ? "G0"
                     : chance.below(4) == 0 ? "G1 F5"
                                            : "G1") +
                    std::string(" X") + fixed(chance.between(-9, 9), 3) + " Z" +
                    fixed(chance.between(-9, 9), 2) + "\n";
        }
    }
    return text + "M2\n";
}

}  // namespace judge
