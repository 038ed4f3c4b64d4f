// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Judge.h"
#include "RandomCompensation.h"

namespace {

constexpr std::size_t kContours = 400;
constexpr std::size_t kForbidden = 138;
constexpr std::size_t kModes = 200;

/// The same steps, all of them, and the same line that is rejected, if any. How many were.
std::size_t expectAsJudged(const std::vector<std::string>& texts) {
    const std::vector<judge::Judgement> judgements = judge::judgeAll(texts);
    std::size_t rejected = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        SCOPED_TRACE("program " + std::to_string(i) + ", the judge says: " + judgements[i].message +
                     "\n" + texts[i]);
        const auto reading = gcode_check::read(texts[i], judge::optionsWithTools());
        EXPECT_EQ(judge::difference(judge::stepsOf(reading), judgements[i].steps), "");
        EXPECT_EQ(reading.stopLine == 0, judgements[i].isAccepted);
        if (reading.stopLine != 0) {
            EXPECT_EQ(reading.diagnostics[0].verdict, gcode_check::Verdict::Rejected);
            EXPECT_EQ(judge::lineOf(texts[i], reading.stopLine),
                      judge::lineOf(judgements[i].badLine, 1));
            ++rejected;
        }
        if (testing::Test::HasFailure()) {
            return rejected;
        }
    }
    return rejected;
}

}  // namespace

TEST(JudgedPrograms, FourHundredRandomContoursInRadiusCompensationHaveTheStepsOfTheController) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    std::vector<std::string> texts;
    for (std::size_t seed = 0; seed < kContours; ++seed) {
        texts.push_back(judge::RandomCompensation(seed).text());
    }
    const std::size_t rejected = expectAsJudged(texts);
    // Both kinds are many.
    EXPECT_GT(rejected, kContours / 20);
    EXPECT_LT(rejected, kContours / 2);
    std::printf("%zu programs, %zu of them rejected\n", texts.size(), rejected);
}

TEST(JudgedPrograms,
     AHundredAndThirtyEightOnesWithALineThatRadiusCompensationForbidsAreRejectedThere) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    const std::vector<std::string>& kinds = judge::linesForbiddenInCompensation();
    std::vector<std::string> texts;
    for (std::size_t seed = 0; seed < kForbidden; ++seed) {
        texts.push_back(
            judge::RandomCompensation(seed + 50000).textWith(kinds[seed % kinds.size()]));
    }
    EXPECT_EQ(expectAsJudged(texts), kForbidden);
}

TEST(JudgedPrograms, TwoHundredThatSaveAndRestoreModesHaveTheStepsOfTheController) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    std::vector<std::string> texts;
    for (std::size_t seed = 0; seed < kModes; ++seed) {
        texts.push_back(judge::randomModes(seed));
    }
    const std::size_t rejected = expectAsJudged(texts);
    std::printf("%zu programs, %zu of them rejected\n", texts.size(), rejected);
}
