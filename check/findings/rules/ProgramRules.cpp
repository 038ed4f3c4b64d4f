// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/ProgramRules.h"

#include <algorithm>

#include "findings/ProgramText.h"

namespace gcode_check {
namespace {

struct Counted {
    std::size_t count = 0;
    std::uint32_t first = 0;  // line
    std::uint32_t second = 0;
};

Counted count(const Reading& reading, FactKind kind) {
    Counted counted;
    for (const Fact& fact : reading.facts) {
        if (fact.kind == kind && ++counted.count <= 2) {
            (counted.count == 1 ? counted.first : counted.second) = fact.line;
        }
    }
    return counted;
}

void say(Findings& findings, FindingKind kind, Severity severity, std::uint32_t line,
         const std::string& sentence) {
    Finding* const finding = findings.add(kind, severity, line);
    if (finding != nullptr) {
        finding->sentence = sentence;
    }
}

bool hasMoves(const Reading& reading) {
    return std::any_of(reading.motions.begin(), reading.motions.end(), isMove);
}

// Then ends may stand in branches, of which one only is run.
bool hasControlWords(const Reading& reading) {
    return std::any_of(
        reading.diagnostics.begin(), reading.diagnostics.end(),
        [](const Diagnostic& diagnostic) { return diagnostic.rule == Rule::ControlWord; });
}

const char* wordFor(double unit) {
    return unit == 20 ? "G20, inches" : "G21, millimetres";
}

}  // namespace

void findEndInMaterial(const Setting& setting, const Step& last, Findings& findings) {
    const double depth = setting.surface - last.to.z;
    // A reading that stops early does not know where the tool ends.
    if (setting.reading.stopLine != 0 || !last.heightKnown || depth <= kSame) {
        return;
    }
    Finding* const finding =
        findings.add(FindingKind::EndsInMaterial, Severity::Error, last.line());
    if (finding != nullptr) {
        finding->sentence = "The program ends with the tool in the material, at " +
                            setting.words.height(last.to.z) + ", " + setting.words.length(depth) +
                            " below the surface.";
        finding->numbers = {{"depth", depth}};
        finding->place = placeOf(setting, last);
    }
}

void findEnds(const Setting& setting, Findings& findings) {
    const Reading& reading = setting.reading;
    const Counted ends = count(reading, FactKind::End);
    const Counted behind = count(reading, FactKind::TextAfterEnd);
    if (ends.count == 0 && reading.endLine == 0 && hasMoves(reading)) {
        say(findings, FindingKind::NoEndCode, Severity::Warning, 0,
            "The program has no end: M2 or M30 is missing in its last line.");
    }
    if (ends.count > 1 && !hasControlWords(reading)) {
        say(findings, FindingKind::AppendedTwoEnds, Severity::Error, ends.second,
            "The program ends twice, here and in line " + std::to_string(ends.first) +
                " already: a controller never runs what stands behind the first end.");
    } else if (behind.count > 0) {
        const Severity severity = setting.moreBehind ? Severity::Error : Severity::Warning;
        say(findings, FindingKind::TextAfterEnd, severity, behind.first,
            "Behind the end of the program in line " + std::to_string(reading.endLine) +
                " stands " + counted(behind.count, "line", "lines") +
                " more: a controller never runs " + (behind.count == 1 ? "it." : "them."));
    }
}

void findUnits(const Setting& setting, Findings& findings) {
    const Fact* first = nullptr;
    for (const Fact& fact : setting.reading.facts) {
        if (fact.kind != FactKind::Unit) {
            continue;
        }
        if (first == nullptr) {
            first = &fact;
        } else if (first->value != fact.value) {
            say(findings, FindingKind::AppendedTwoUnits, Severity::Warning, fact.line,
                std::string("The unit changes within the program: here it is ") +
                    wordFor(fact.value) + ", in line " + std::to_string(first->line) + " it was " +
                    wordFor(first->value) + ".");
            return;
        }
    }
    if (first == nullptr && hasMoves(setting.reading)) {
        say(findings, FindingKind::UnitMissing, Severity::Warning, 0,
            "The program does not say its unit: without G20 or G21 a controller takes the one it "
            "used last.");
    }
}

void findNoMotion(const Setting& setting, Findings& findings) {
    const Reading& reading = setting.reading;
    if (hasMoves(reading) || reading.stopLine != 0 || setting.moreBehind) {
        return;
    }
    const char* const blanks = " \t\r\n\v\f";
    const bool isEmpty = setting.program.find_first_not_of(blanks) == std::string_view::npos;
    say(findings, FindingKind::NoMotion, Severity::Warning, 0,
        isEmpty                     ? "The program moves nothing: it is empty."
        : hasWords(setting.program) ? "The program moves nothing: none of its lines is a move."
                                    : "The program moves nothing: it has no words, only remarks.");
}

void findLineNumbers(const Setting& setting, Findings& findings) {
    const Fact* last = nullptr;
    const Fact* culprit = nullptr;
    double before = 0;
    std::size_t wrong = 0;
    for (const Fact& fact : setting.reading.facts) {
        if (fact.kind != FactKind::LineNumber) {
            continue;
        }
        if (last != nullptr && fact.value <= last->value && ++wrong == 1) {
            culprit = &fact;
            before = last->value;
        }
        last = &fact;
    }
    if (culprit == nullptr) {
        return;
    }
    Finding* const finding =
        findings.add(FindingKind::LineNumbersDisorder, Severity::Warning, culprit->line);
    if (finding != nullptr) {
        finding->sentence = "The line numbers do not grow: N" + numberText(culprit->value) +
                            " stands behind N" + numberText(before) + ".";
        finding->numbers = {{"lines", static_cast<double>(wrong), Measure::Count}};
    }
}

}  // namespace gcode_check
