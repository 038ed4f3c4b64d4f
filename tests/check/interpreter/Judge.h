// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "interpreter/Interpreter.h"

/// A controller that others wrote: Debian's rs274, which prints the canonical motions of a program.
/// tools/fetch-linuxcnc-programs brings it.
namespace judge {

/// What a machine does, in the program's coordinates and unit, whoever says so.
struct Step {
    std::string name;  // "feed", "arc", "spindle", ...
    std::vector<double> numbers;
};

bool operator==(const Step& a, const Step& b) = delete;
/// To four decimals: as near as a number that was printed with them can be. What is no number in
/// `a` is not compared.
bool areSame(const Step& a, const Step& b);
std::string textOf(const Step& step);

struct Judgement {
    bool isAccepted = false;
    std::string message;  // why not
    std::string badLine;  // the text of the line that was rejected
    std::vector<Step> steps;
};

bool isThere();
/// Fails in continuous integration, skips elsewhere: what to do when isThere() is false.
#define JUDGE_MISSING()                                                                \
    if (std::getenv("CI") != nullptr) {                                                \
        FAIL() << "no rs274 in " KX_JUDGE ": tools/fetch-linuxcnc-programs brings it"; \
    } else {                                                                           \
        GTEST_SKIP() << "NOT JUDGED: no rs274 in " KX_JUDGE                            \
                        ": tools/fetch-linuxcnc-programs brings it";                   \
    }                                                                                  \
    static_assert(true, "")

/// Runs it on a program, with a table of the tools that optionsWithTools() has. Comments of the
/// form
/// (@7) become steps "@" with that number.
Judgement judge(std::string_view program);
/// All of them, as many at a time as there are processors.
std::vector<Judgement> judgeAll(const std::vector<std::string>& programs);

gcode_check::MachineOptions optionsWithTools();
std::vector<Step> stepsOf(const gcode_check::Reading& reading);

/// A line of a text, counted from 1, without blanks at its end.
std::string lineOf(const std::string& text, std::uint32_t number);

/// Empty: the same steps; otherwise the first difference.
std::string difference(const std::vector<Step>& ours, const std::vector<Step>& theirs);

}  // namespace judge
