// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "findings/Shape.h"
#include "interpreter/Motion.h"

namespace gcode_check {

// What the check can find: one value a rule, one page in the manual's folder "findings" each.
enum class FindingKind : std::uint8_t {
    ControllerRejects,
    NotInterpreted,
    ArcRadiiDiffer,
    FeedMissing,
    SpindleStopped,
    RapidInMaterial,
    RapidAtSurface,
    ToolChangeInMaterial,
    PlungeFeed,
    HeightIncrements,
    CutAtUnknownHeight,
    CutAtUnknownPlace,
    DepthZero,
    CutOffDrawing,
    NotCut,
    CutTwice,
    DrillOffCentre,
    ZeroMoved,
    UnitsDiffer,
    UnitMissing,
    NoMotion,
    EndsInMaterial,
    NoEndCode,
    TextAfterEnd,
    AppendedTwoEnds,
    AppendedTwoUnits,
    LineNumbersDisorder,
    CutTooDeep,
    DepthNotReached,
    ToolLength,
};

// All of them, in the order above.
const std::vector<FindingKind>& allFindingKinds();
// "rapid-in-material": fixed from version to version.
const char* identifierOf(FindingKind kind);

enum class Severity : std::uint8_t {
    Note,
    Warning,  // somebody should look
    Error,    // the controller stops, the tool breaks, or the part is spoilt
};

// "error"
const char* nameOf(Severity severity);

enum class Measure : std::uint8_t { Length, Feed, Speed, Seconds, Count, Factor };

// Lengths in the program's unit, feeds in it per minute (or as the program's feed mode has it).
struct NamedNumber {
    const char* name = "";  // "distance": letters and hyphens, fixed
    double value = 0;
    Measure measure = Measure::Length;
};

// Where it is: a segment, or a point when both ends are equal.
struct Place {
    Point from;  // program coordinates, in the program's unit
    Point to;
    PlanePoint drawingFrom;  // in the drawing's unit
    PlanePoint drawingTo;
    // Of a cut that lies on no object: where it is farthest from all of them, in both units
    std::optional<PlanePoint> farthest;
    std::optional<PlanePoint> drawingFarthest;
    // Reading::motions[firstMotion ... lastMotion]; none when nothing moves there
    std::optional<std::size_t> firstMotion;
    std::optional<std::size_t> lastMotion;
};

struct Finding {
    FindingKind kind = FindingKind::ControllerRejects;
    Severity severity = Severity::Error;
    std::uint32_t line = 0;    // of the program, from 1; 0: the program as a whole
    std::uint32_t column = 0;  // from 1; 0: the line as a whole
    std::string sentence;      // for who stands at the machine; English, UTF-8, no line feed
    std::string detail;        // of a rejected line: identifierOf(Rule); else empty
    std::vector<NamedNumber> numbers;
    std::optional<Place> place;
    std::optional<std::size_t> shape;  // of Drawing::shapes
    std::uint32_t object = 0;          // the shape's number for people, from 1; 0: none
};

}  // namespace gcode_check
