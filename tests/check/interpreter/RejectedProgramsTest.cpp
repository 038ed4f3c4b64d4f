// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "InvalidLines.h"
#include "Judge.h"
#include "RandomProgram.h"
#include "findings/rules/NoProgramRule.h"

namespace {

constexpr std::size_t kPrograms = 500;

struct RejectedProgram {
    std::string text;
    std::string badLine;
    std::uint32_t badLineNumber = 0;
};

std::string withNumber(std::string line, const std::string& number) {
    for (std::size_t at = line.find("{n}"); at != std::string::npos; at = line.find("{n}")) {
        line.replace(at, 3, number);
    }
    return line;
}

/// A random program that has a bad line in it. The line number makes the line the only one of its
/// kind.
RejectedProgram rejectedProgram(std::size_t seed) {
    Chance chance(seed + 100000);
    std::vector<std::string> lines = judge::RandomProgram(seed + 100000).lines();
    const std::vector<std::string>& kinds = judge::invalidLines();
    RejectedProgram result;
    const std::string bad = kinds[seed % kinds.size()];
    const std::string number = std::to_string(1 + chance.below(40));
    const bool isPercent = bad[0] == '%';
    result.badLine =
        (isPercent ? "" : "N" + std::to_string(9000 + seed) + " ") + withNumber(bad, number);
    if (seed % 97 == 5) {
        result.badLine.append(260, ' ');
    }
    const std::size_t at = chance.below(lines.size() + 1);
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), result.badLine);
    result.badLineNumber = static_cast<std::uint32_t>(at + 1);
    for (const std::string& line : lines) {
        result.text += line + "\n";
    }
    result.text += "M2\n";
    return result;
}

std::string trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    const std::size_t end = text.find_last_not_of(" \t\r");
    return begin == std::string::npos ? std::string() : text.substr(begin, end - begin + 1);
}

/// The steps of the lines before the bad one must be those that the controller begins with.
std::string differenceBefore(gcode_check::Reading reading, std::vector<judge::Step> theirs) {
    auto& motions = reading.motions;
    const auto firstOfBadLine =
        std::find_if(motions.begin(), motions.end(),
                     [&](const auto& motion) { return motion.line >= reading.stopLine; });
    motions.erase(firstOfBadLine, motions.end());
    const std::vector<judge::Step> ours = judge::stepsOf(reading);
    theirs.resize(std::min(theirs.size(), ours.size()));
    return judge::difference(ours, theirs);
}

}  // namespace

TEST(JudgedPrograms, FiveHundredBadOnesAreRejectedAtTheLineWhereTheControllerRejectsThem) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    std::vector<RejectedProgram> programs;
    std::vector<std::string> texts;
    for (std::size_t seed = 0; seed < kPrograms; ++seed) {
        programs.push_back(rejectedProgram(seed));
        texts.push_back(programs.back().text);
    }
    const std::vector<judge::Judgement> judgements = judge::judgeAll(texts);
    std::size_t rejected = 0;
    for (std::size_t i = 0; i < programs.size(); ++i) {
        const RejectedProgram& program = programs[i];
        const judge::Judgement& judgement = judgements[i];
        SCOPED_TRACE(program.badLine + ", the judge says: " + judgement.message);
        EXPECT_FALSE(judgement.isAccepted);
        // What it shows of a line that is too long is cut off.
        const std::string shown = trimmed(judgement.badLine);
        EXPECT_FALSE(shown.empty());
        EXPECT_EQ(trimmed(program.badLine).substr(0, shown.size()), shown);
        const auto reading = gcode_check::read(program.text, judge::optionsWithTools());
        EXPECT_EQ(reading.stopLine, program.badLineNumber);
        ASSERT_FALSE(reading.diagnostics.empty());
        EXPECT_EQ(reading.diagnostics[0].verdict, gcode_check::Verdict::Rejected);
        EXPECT_EQ(differenceBefore(reading, judgement.steps), "");
        rejected += judgement.isAccepted ? 0 : 1;
    }
    EXPECT_EQ(rejected, kPrograms);
}

TEST(RejectedPrograms, AreProgramsAllTheSame) {
    for (std::size_t seed = 0; seed < kPrograms; ++seed) {
        const std::string text = rejectedProgram(seed).text;
        EXPECT_FALSE(gcode_check::isNoProgram(text)) << text;
    }
}
