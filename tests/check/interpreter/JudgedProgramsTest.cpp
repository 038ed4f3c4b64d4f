// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "Judge.h"
#include "RandomProgram.h"

namespace {

constexpr std::size_t kPrograms = 2000;
constexpr std::size_t kProgramsOfARun = 10;

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

std::string randomProgram(std::uint64_t seed) {
    return joined(judge::RandomProgram::resetLines()) + joined(judge::RandomProgram(seed).lines());
}

/// Starting the judge costs more than a program: it runs some of them one after another, each
/// behind the lines that bring the controller back to the start, between marks.
std::string runOf(std::size_t first) {
    std::string text;
    for (std::size_t i = first; i < first + kProgramsOfARun; ++i) {
        text += "(@0)\n" + joined(judge::RandomProgram::resetLines()) + "(@1)\n" + randomProgram(i);
    }
    static const char* const ends[] = {"M2\n", "m30", "M 02 (end)\n", "N9 g0 x1 m2\n"};
    return text + ends[first / kProgramsOfARun % std::size(ends)];
}

std::vector<std::vector<judge::Step>> byMark(const std::vector<judge::Step>& steps) {
    std::vector<std::vector<judge::Step>> result;
    bool isOfProgram = false;
    for (const judge::Step& step : steps) {
        if (step.name == "@") {
            isOfProgram = step.numbers.front() == 1;
            result.resize(result.size() + (isOfProgram ? 1 : 0));
        } else if (isOfProgram) {
            result.back().push_back(step);
        }
    }
    return result;
}

}  // namespace

TEST(JudgedPrograms, TwoThousandRandomOnesHaveTheStepsOfTheController) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    std::vector<std::string> runs;
    for (std::size_t first = 0; first < kPrograms; first += kProgramsOfARun) {
        runs.push_back(runOf(first));
    }
    const std::vector<judge::Judgement> judgements = judge::judgeAll(runs);
    std::size_t compared = 0;
    std::size_t steps = 0;
    for (std::size_t run = 0; run < runs.size(); ++run) {
        const judge::Judgement& judgement = judgements[run];
        ASSERT_TRUE(judgement.isAccepted) << judgement.message << judgement.badLine;
        // The last program's end is part of its run only.
        const auto theirs = byMark(judgement.steps);
        ASSERT_EQ(theirs.size(), kProgramsOfARun);
        for (std::size_t i = 0; i + 1 < kProgramsOfARun; ++i) {
            const std::size_t seed = run * kProgramsOfARun + i;
            const std::string text = randomProgram(seed);
            const auto reading = gcode_check::read(text, judge::optionsWithTools());
            EXPECT_TRUE(reading.diagnostics.empty()) << "seed " << seed;
            EXPECT_EQ(judge::difference(judge::stepsOf(reading), theirs[i]), "")
                << "seed " << seed << "\n"
                << text;
            ++compared;
            steps += theirs[i].size();
        }
        // All of a run as the one program that it is, with its end.
        const auto whole = gcode_check::read(runs[run], judge::optionsWithTools());
        EXPECT_TRUE(whole.diagnostics.empty()) << "run " << run;
        std::vector<judge::Step> unmarked;
        for (const judge::Step& step : judgement.steps) {
            if (step.name != "@") {
                unmarked.push_back(step);
            }
        }
        EXPECT_EQ(judge::difference(judge::stepsOf(whole), unmarked), "") << "run " << run;
        ++compared;
        if (HasFailure()) {
            return;
        }
    }
    EXPECT_EQ(compared, kPrograms);
    RecordProperty("steps", static_cast<int>(steps));
    std::printf("%zu programs, %zu steps\n", compared, steps);
}
