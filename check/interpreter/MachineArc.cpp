// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// G2 and G3.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "interpreter/Machine.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

// The radii at both ends of an arc may differ by a thousandth, or by so many units.
constexpr double kSpiralRelative = 0.001;
constexpr double kSpiralLeastMm = 0.02828427124746190;
constexpr double kSpiralLeastInches = 0.002828427124746190;
constexpr double kSpiralMostOfLeast = 100;
// So much may the half of the chord be longer than the radius of R.
constexpr double kChordMm = 0.00127;
constexpr double kChordInches = 0.00005;

struct PlaneLetters {
    char first;
    char second;
    char firstOffset;
    char secondOffset;
    char foreignOffset;
    const char* offsetsOfPlane;
};

const PlaneLetters& lettersOf(Plane plane) {
    static constexpr std::array<PlaneLetters, 3> kLetters = {{
        {'X', 'Y', 'I', 'J', 'K', "I and J, the offsets of the plane XY (G17)"},
        {'Z', 'X', 'K', 'I', 'J', "I and K, the offsets of the plane XZ (G18)"},
        {'Y', 'Z', 'J', 'K', 'I', "J and K, the offsets of the plane YZ (G19)"},
    }};
    return kLetters[static_cast<std::size_t>(plane)];
}

std::string number(double value) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.6g", value);
    // The process's locale may write a comma.
    std::replace(text.begin(), text.end(), ',', '.');
    return text.data();
}

struct ArcWords {
    const Block& block;
    const PlaneLetters& letters;
    AxisPair start;
    AxisPair end;
    bool isInches = false;
    bool hasAbsoluteCentre = false;
    bool isClockwise = false;

    std::uint32_t column() const { return block.columnOfMotion(); }
    const char* code() const { return isClockwise ? "G2" : "G3"; }
    bool hasOffset() const {
        return block.has(letters.firstOffset) || block.has(letters.secondOffset);
    }
};

bool checkWords(const ArcWords& arc, Fault& fault) {
    const char foreign = arc.letters.foreignOffset;
    if (arc.block.has(foreign)) {
        return reject(fault, Rule::WordWithoutUse, arc.block.column(foreign),
                      std::string(1, foreign), arc.letters.offsetsOfPlane);
    }
    if (arc.block.has('R') && arc.hasOffset()) {
        return reject(fault, Rule::ArcFormsMixed, arc.block.column('R'), "R beside offsets",
                      "a radius or a centre");
    }
    if (!arc.block.has('R') && !arc.hasOffset()) {
        return reject(
            fault, Rule::ArcWithoutCentre, arc.column(), arc.code(),
            std::string(1, arc.letters.firstOffset) + ", " + arc.letters.secondOffset + " or R");
    }
    return true;
}

bool checkTurns(const Block& block, Fault& fault) {
    const double turns = block.valueOr('P', 1);
    if (turns >= 1 && std::abs(turns - std::round(turns)) < 0.001 && turns < kLargestWhole) {
        return true;
    }
    return reject(fault, Rule::NumberOutOfRange, block.column('P'), "P" + number(turns),
                  "a whole number of turns, 1 or more");
}

bool checkRadii(const ArcWords& arc, double atStart, double atEnd, Fault& fault) {
    const double least = arc.isInches ? kSpiralLeastInches : kSpiralLeastMm;
    const double difference = std::abs(atStart - atEnd);
    if (!(std::min(atStart, atEnd) >= (arc.isInches ? kChordInches : kChordMm))) {
        return reject(fault, Rule::ArcRadiusZero, arc.column(),
                      "radii " + number(atStart) + " and " + number(atEnd),
                      "a centre away from both ends");
    }
    if (difference > kSpiralMostOfLeast * least ||
        (difference > least && difference > kSpiralRelative * std::max(atStart, atEnd))) {
        const double allowed = std::max(
            least,
            std::min(kSpiralMostOfLeast * least, kSpiralRelative * std::max(atStart, atEnd)));
        const char* const unit = arc.isInches ? " in" : " mm";
        return reject(fault, Rule::ArcRadiiDiffer, arc.column(),
                      "a radius of " + number(atStart) + " at the start and of " + number(atEnd) +
                          " at the end, which differ by " + number(difference) + unit,
                      "radii that differ by at most " + number(allowed) + unit);
    }
    return true;
}

bool centreByOffsets(const ArcWords& arc, AxisPair& centre, Fault& fault) {
    const Block& block = arc.block;
    if (arc.hasAbsoluteCentre) {
        for (const char letter : {arc.letters.firstOffset, arc.letters.secondOffset}) {
            if (!block.has(letter)) {
                return reject(fault, Rule::WordMissing, arc.column(), arc.code(),
                              std::string(1, letter) + " too, as G90.1 is in force");
            }
        }
    }
    centre.first = block.valueOr(arc.letters.firstOffset, 0);
    centre.second = block.valueOr(arc.letters.secondOffset, 0);
    if (!arc.hasAbsoluteCentre) {
        centre.first += arc.start.first;
        centre.second += arc.start.second;
    }
    return checkRadii(arc, distance(centre, arc.start), distance(centre, arc.end), fault);
}

// A positive radius makes the shorter of the two arcs, a negative one the longer.
bool centreByRadius(const ArcWords& arc, AxisPair& centre, Fault& fault) {
    const Block& block = arc.block;
    const double radius = block.value('R');
    if (!block.has(arc.letters.first) && !block.has(arc.letters.second)) {
        return reject(fault, Rule::AxesMissing, arc.column(), arc.code(),
                      std::string(1, arc.letters.first) + " or " + arc.letters.second);
    }
    const double half = distance(arc.start, arc.end) / 2;
    if (half == 0) {
        return reject(fault, Rule::ArcRadiusZero, block.column('R'), "an end at the start",
                      "a centre for a full circle, R can't tell it");
    }
    const double size = std::abs(radius);
    if (size == 0 || !(half - size <= (arc.isInches ? kChordInches : kChordMm))) {
        return reject(fault, Rule::ArcRadiusTooSmall, block.column('R'),
                      "R" + number(radius) + " for ends " + number(2 * half) + " apart",
                      "R of at least " + number(half));
    }
    const double height = half >= size ? 0 : std::sqrt((size - half) * (size + half));
    const bool isLeft = (radius > 0) != arc.isClockwise;
    const double factor = (isLeft ? height : -height) / (2 * half);
    centre.first =
        (arc.start.first + arc.end.first) / 2 - (arc.end.second - arc.start.second) * factor;
    centre.second =
        (arc.start.second + arc.end.second) / 2 + (arc.end.first - arc.start.first) * factor;
    return true;
}

ProgrammedPath pathOf(const ArcWords& arc, const AxisPair& centre) {
    ProgrammedPath path;
    path.start = arc.start;
    path.end = arc.end;
    path.centre = centre;
    path.isArc = true;
    path.isClockwise = arc.isClockwise;
    return path;
}

double lengthInPlane(const ProgrammedPath& path, std::int32_t turns) {
    return arcLength(path) + (turns - 1) * 2 * kPi * distance(path.centre, path.start);
}

}  // namespace

bool Machine::arc(const Block& block, int motion, Fault& fault) {
    const PlaneAxes& axes = axesOf(m_modes.plane);
    const Axes to = target(block);
    ArcWords words{block,
                   lettersOf(m_modes.plane),
                   {m_position[axes.first], m_position[axes.second]},
                   {to[axes.first], to[axes.second]},
                   m_modes.inches,
                   m_modes.arcCentresAbsolute,
                   motion == 20};
    if (!checkFeed(block, motion, fault) || !checkWords(words, fault) ||
        !checkTurns(block, fault)) {
        return false;
    }
    noteInverseFeed();
    AxisPair centre;
    if (!(block.has('R') ? centreByRadius(words, centre, fault)
                         : centreByOffsets(words, centre, fault))) {
        return false;
    }
    Axes centreAxes = m_position;
    centreAxes[axes.first] = centre.first;
    centreAxes[axes.second] = centre.second;
    Motion motionStep = step(MotionKind::Arc);
    motionStep.centre = machinePoint(centreAxes);
    const auto turns = static_cast<std::int32_t>(std::lround(block.valueOr('P', 1)));
    motionStep.turns = words.isClockwise ? -turns : turns;
    if (m_modes.feedMode == FeedMode::InverseTime) {
        setFeedOf(motionStep, std::hypot(lengthInPlane(pathOf(words, centre), turns),
                                         to[axes.third] - m_position[axes.third]));
    }
    if (m_compensation.isOn) {
        return compensated(block, motionStep, to, pathOf(words, centre), fault);
    }
    if (m_compensation.isLeaving) {
        return leavesByArc(words.column(), fault);
    }
    return pushMove(motionStep, to, fault);
}

}  // namespace gcode_check
