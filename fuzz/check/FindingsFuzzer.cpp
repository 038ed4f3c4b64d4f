// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Whatever a program holds, with a drawing or without: the check ends, what it tells is of lines,
// moves and objects that exist, and its reports are the same again, byte for byte.
#include <cstdint>
#include <numeric>
#include <string_view>

#include "FuzzCheck.h"
#include "findings/Check.h"
#include "report/JsonReport.h"
#include "report/TextReport.h"

using gcode_check::CheckOptions;
using gcode_check::CheckResult;
using gcode_check::Drawing;
using gcode_check::Finding;
using gcode_check::Place;
using gcode_check::Shape;
using gcode_check::ShapeKind;

namespace {

constexpr std::size_t kFindingsPerKind = 5;

/// One of each kind; the line and the arc meet.
Drawing drawing() {
    Drawing result;
    Shape line;
    line.kind = ShapeKind::Line;
    line.second = {10, 0};
    Shape arc;
    arc.kind = ShapeKind::Arc;
    arc.centre = {10, 5};
    arc.radius = 5;
    arc.startRad = -1.5707963267948966;
    arc.endRad = 1.5707963267948966;
    Shape circle;
    circle.kind = ShapeKind::Circle;
    circle.centre = {30, 5};
    circle.radius = 4;
    Shape point;
    point.first = {5, 5};
    result.shapes = {line, arc, circle, point};
    return result;
}

/// The last byte, often a line feed, chooses what a program can't say.
CheckOptions optionsOf(unsigned char choice) {
    CheckOptions options;
    options.findingsPerKind = kFindingsPerKind;
    options.machine.motionsBesides = 300;
    options.machine.tools.push_back({1, 1, {0, 0, 25}, 6});
    options.surfaceZ = choice % 16 == 1 ? 5 : 0;
    if (choice % 16 == 2) {
        options.depth = -1;
        options.plungeFeed = 100;
    }
    options.machine.startsInInches = choice % 16 == 3;
    return options;
}

void checkPlace(const Place& place, const CheckResult& result) {
    FUZZ_CHECK(place.firstMotion.has_value() == place.lastMotion.has_value());
    FUZZ_CHECK(!place.firstMotion || (*place.firstMotion <= *place.lastMotion &&
                                      *place.lastMotion < result.reading.motions.size()));
}

void checkFinding(const Finding& finding, const CheckResult& result) {
    FUZZ_CHECK(finding.line <= result.reading.lines);
    FUZZ_CHECK(!finding.sentence.empty());
    FUZZ_CHECK(finding.sentence.find('\n') == std::string::npos);
    FUZZ_CHECK(!finding.shape || *finding.shape < result.shapes);
    FUZZ_CHECK(finding.object <= result.shapes);
    if (finding.place) {
        checkPlace(*finding.place, result);
    }
}

void checkResult(const CheckResult& result) {
    const std::size_t told = result.findings.size();
    FUZZ_CHECK(std::accumulate(result.counts.begin(), result.counts.end(), std::size_t{0}) ==
               std::accumulate(result.leftOut.begin(), result.leftOut.end(), told));
    FUZZ_CHECK(result.shapesCut <= result.shapes);
    // A program that a controller does not run to its end is never praised.
    FUZZ_CHECK(result.reading.stopLine == 0 || gcode_check::hasErrors(result));
    for (const Finding& finding : result.findings) {
        checkFinding(finding, result);
    }
}

void check(std::string_view program, const Drawing* drawing) {
    const CheckOptions options =
        optionsOf(program.empty() ? 0 : static_cast<unsigned char>(program.back()));
    const CheckResult result = gcode_check::check(program, options, drawing);
    checkResult(result);
    const CheckResult again = gcode_check::check(program, options, drawing);
    FUZZ_CHECK(textReport(result) == textReport(again));
    FUZZ_CHECK(jsonReport(result) == jsonReport(again));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view program(reinterpret_cast<const char*>(data), size);
    check(program, nullptr);
    const Drawing selected = drawing();
    check(program, &selected);
    return 0;
}
