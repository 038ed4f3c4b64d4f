// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Judge.h"
#include "RandomWords.h"

namespace {

constexpr std::size_t kPrograms = 160;

/// The steps of the lines before the one that is rejected; what that one does first is not told
/// apart from the beginning of nothing.
std::string difference(gcode_check::Reading reading, std::vector<judge::Step> theirs) {
    if (reading.stopLine == 0) {
        return judge::difference(judge::stepsOf(reading), theirs);
    }
    auto& motions = reading.motions;
    while (!motions.empty() && motions.back().line >= reading.stopLine) {
        motions.pop_back();
    }
    const std::vector<judge::Step> ours = judge::stepsOf(reading);
    theirs.resize(std::min(theirs.size(), ours.size()));
    return judge::difference(ours, theirs);
}

}  // namespace

TEST(JudgedPrograms, WhateverWordsStandTogetherAreTakenOrRejectedAsTheControllerDoes) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    std::vector<std::string> texts;
    for (std::size_t seed = 0; seed < kPrograms; ++seed) {
        texts.push_back(judge::RandomWords(seed).text());
    }
    const std::vector<judge::Judgement> judgements = judge::judgeAll(texts);
    std::size_t rejected = 0;
    for (std::size_t seed = 0; seed < kPrograms; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", the judge says: " +
                     judgements[seed].message + judgements[seed].badLine + "\n" + texts[seed]);
        const auto reading = gcode_check::read(texts[seed], judge::optionsWithTools());
        EXPECT_EQ(reading.stopLine == 0, judgements[seed].isAccepted);
        EXPECT_EQ(difference(reading, judgements[seed].steps), "");
        if (reading.stopLine != 0) {
            EXPECT_EQ(judge::lineOf(texts[seed], reading.stopLine),
                      judge::lineOf(judgements[seed].badLine, 1));
            ++rejected;
        }
        if (HasFailure()) {
            return;
        }
    }
    // Nearly half of them end with a line that is rejected.
    EXPECT_GT(rejected, kPrograms / 3);
    std::printf("%zu programs, %zu rejected\n", kPrograms, rejected);
}
