// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Whatever a text holds: the interpreter ends, in bounded memory, what it says is about lines and
// columns that exist, and it says the same again.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "FuzzCheck.h"
#include "interpreter/Interpreter.h"

using gcode_check::Diagnostic;
using gcode_check::MachineOptions;
using gcode_check::Motion;
using gcode_check::Reading;

namespace {

constexpr std::uint32_t kMotionsBesides = 3000;

/// The last byte, often a line feed, chooses what a program can't say.
MachineOptions optionsOf(std::string_view program) {
    MachineOptions options;
    options.motionsBesides = kMotionsBesides;
    const unsigned char choice = program.empty() ? 0 : static_cast<unsigned char>(program.back());
    options.blockDelete = choice % 16 == 1;
    options.startsInInches = choice % 16 == 2;
    options.anyTool = choice % 16 != 3;
    options.tools.push_back({1, 1, {0, 0, 25}, 6});
    if (choice % 16 == 4) {
        options.start = {1, 2, 3};
        options.systems[1] = {-5, 4, 0.5};
    }
    return options;
}

void checkMotion(const Reading& reading, const Motion& motion, const Motion* before) {
    FUZZ_CHECK(motion.line >= 1 && motion.line <= reading.lines);
    FUZZ_CHECK(reading.stopLine == 0 || motion.line <= reading.stopLine);
    FUZZ_CHECK(motion.frame < reading.frames.size());
    FUZZ_CHECK(motion.rotary == -1 ||
               static_cast<std::size_t>(motion.rotary) < reading.rotaryAxes.size());
    FUZZ_CHECK((motion.kind == gcode_check::MotionKind::Arc) == (motion.turns != 0));
    FUZZ_CHECK(motion.contour < 0 ||
               static_cast<std::size_t>(motion.contour) < reading.contours.size());
    if (before != nullptr) {
        FUZZ_CHECK(before->line <= motion.line);
        // Bit for bit: numbers may be so large that they are none any more.
        FUZZ_CHECK(std::memcmp(&before->to, &motion.from, sizeof(motion.from)) == 0);
    }
}

std::size_t lengthOfLine(std::string_view program, std::uint32_t line) {
    std::size_t begin = 0;
    for (std::uint32_t i = 1; i < line; ++i) {
        begin = program.find('\n', begin) + 1;
    }
    const std::size_t end = program.find('\n', begin);
    return (end == std::string_view::npos ? program.size() : end) - begin;
}

void checkDiagnostic(std::string_view program, const Reading& reading,
                     const Diagnostic& diagnostic) {
    FUZZ_CHECK(diagnostic.line >= 1 && diagnostic.line <= reading.lines);
    FUZZ_CHECK(diagnostic.line >= reading.stopLine);
    FUZZ_CHECK(diagnostic.column >= 1 &&
               diagnostic.column <= lengthOfLine(program, diagnostic.line) + 1);
    FUZZ_CHECK(!diagnostic.found.empty() && !diagnostic.expected.empty());
}

bool areSame(const Reading& a, const Reading& b) {
    const auto sameMotion = [](const Motion& x, const Motion& y) {
        return x.line == y.line && x.kind == y.kind && x.turns == y.turns &&
               std::memcmp(&x.to, &y.to, sizeof(x.to)) == 0 &&
               std::memcmp(&x.centre, &y.centre, sizeof(x.centre)) == 0;
    };
    const auto sameDiagnostic = [](const Diagnostic& x, const Diagnostic& y) {
        return x.rule == y.rule && x.line == y.line && x.column == y.column && x.found == y.found &&
               x.expected == y.expected;
    };
    return std::equal(a.motions.begin(), a.motions.end(), b.motions.begin(), b.motions.end(),
                      sameMotion) &&
           std::equal(a.diagnostics.begin(), a.diagnostics.end(), b.diagnostics.begin(),
                      b.diagnostics.end(), sameDiagnostic) &&
           a.facts.size() == b.facts.size() && a.stopLine == b.stopLine && a.endLine == b.endLine;
}

void check(std::string_view program) {
    const MachineOptions options = optionsOf(program);
    const Reading reading = gcode_check::read(program, options);
    const auto feeds = static_cast<std::uint32_t>(std::count(program.begin(), program.end(), '\n'));
    FUZZ_CHECK(reading.lines == feeds + (program.empty() || program.back() == '\n' ? 0 : 1));
    // Besides its moves a hole has a dwell and the spindle, a line some modes.
    FUZZ_CHECK(reading.motions.size() <=
               2U * (kMotionsBesides + options.motionsPerLine * reading.lines) +
                   8U * reading.lines);
    FUZZ_CHECK(reading.facts.size() <= 16U * reading.lines);
    FUZZ_CHECK(reading.frames.size() <= 8U * reading.lines + 1);
    FUZZ_CHECK((reading.stopLine == 0) == reading.diagnostics.empty());
    const Motion* before = nullptr;
    for (const Motion& motion : reading.motions) {
        checkMotion(reading, motion, before);
        before = &motion;
    }
    for (const Diagnostic& diagnostic : reading.diagnostics) {
        checkDiagnostic(program, reading, diagnostic);
    }
    for (const gcode_check::Fact& fact : reading.facts) {
        FUZZ_CHECK(fact.line >= 1 && fact.line <= reading.lines);
    }
    FUZZ_CHECK(areSame(reading, gcode_check::read(program, options)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    check(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
