// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "Judge.h"

namespace fs = std::filesystem;

namespace {

struct Sample {
    std::string name;
    std::string text;
};

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string withoutComments(const std::string& text) {
    std::string result;
    char end = '\0';
    for (const char c : text) {
        if (end == '\0' && (c == '(' || c == ';')) {
            end = c == '(' ? ')' : '\n';
        } else if (c == end || c == '\n') {
            end = '\0';
            result += '\n';
        } else if (end == '\0') {
            result += c;
        }
    }
    return result;
}

/// Those without O words, parameters and expressions.
std::vector<Sample> samples() {
    std::vector<Sample> result;
    if (!fs::is_directory(KX_REAL_PROGRAMS)) {
        return result;
    }
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(KX_REAL_PROGRAMS)) {
        if (entry.is_regular_file() && entry.path().extension() == ".ngc") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        const std::string text = bytesOf(file);
        if (withoutComments(text).find_first_of("oO#[") == std::string::npos) {
            result.push_back({file.parent_path().filename() / file.filename(), text});
        }
    }
    return result;
}

void expectAll(const Sample& sample, const gcode_check::Reading& reading,
               const judge::Judgement& judgement) {
    EXPECT_EQ(judge::difference(judge::stepsOf(reading), judgement.steps), "");
    // The judge rejects a text that has no end; here that is a finding.
    const bool lacksEnd = reading.endLine == 0 && reading.stopLine == 0;
    EXPECT_EQ(reading.stopLine == 0 && !lacksEnd, judgement.isAccepted) << judgement.message;
    if (reading.stopLine != 0) {
        EXPECT_EQ(judge::lineOf(sample.text, reading.stopLine), judge::lineOf(judgement.badLine, 1))
            << judgement.message;
    }
}

}  // namespace

TEST(JudgedPrograms, SamplesHaveTheStepsOfTheController) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    const std::vector<Sample> programs = samples();
    ASSERT_GE(programs.size(), 35U) << "in " KX_REAL_PROGRAMS;
    std::vector<std::string> texts;
    for (const Sample& sample : programs) {
        texts.push_back(sample.text);
    }
    const std::vector<judge::Judgement> judgements = judge::judgeAll(texts);
    std::size_t steps = 0;
    for (std::size_t i = 0; i < programs.size(); ++i) {
        SCOPED_TRACE(programs[i].name);
        const auto reading = gcode_check::read(texts[i], judge::optionsWithTools());
        steps += judge::stepsOf(reading).size();
        if (programs[i].name == "ncfiles/skeleton.ngc") {
            continue;  // the next test
        }
        expectAll(programs[i], reading, judgements[i]);
    }
    std::printf("%zu programs, %zu steps\n", programs.size(), steps);
}

// The tools that they name are too large for some of them, so that they are rejected.
TEST(JudgedPrograms, SamplesOfRadiusCompensationHaveTheStepsOfTheControllerWithSmallerToolsToo) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    struct Smaller {
        const char* name;
        std::vector<std::pair<std::string, std::string>> words;
    };
    const std::vector<Smaller> smaller = {
        {"ncfiles/comp.ngc", {{"d1", "d5"}}},
        {"ncfiles/gmoccapy_2_tools_with_cutter_radius_compensation.ngc",
         {{"T3 M6", "T4 M6"}, {"T1 M6", "T5 M6"}, {"G0 X50 Y50\n\n", "M2\n"}}},
        {"ncfiles/lathecomp.ngc",
         {{"g42\n", "g42.1 d.06 l3\n"}, {"g41\n", "g41.1 d.06 l3\n"}, {"t7 m6", "t4 m6"}}}};
    std::size_t compared = 0;
    for (const Sample& sample : samples()) {
        const auto found = std::find_if(smaller.begin(), smaller.end(), [&](const Smaller& row) {
            return row.name == sample.name;
        });
        if (found == smaller.end()) {
            continue;
        }
        SCOPED_TRACE(sample.name);
        std::string text = sample.text;
        for (const auto& [word, other] : found->words) {
            for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word)) {
                text.replace(at, word.size(), other);
            }
        }
        const auto judgement = judge::judge(text);
        EXPECT_TRUE(judgement.isAccepted) << judgement.message;
        const auto reading = gcode_check::read(text, judge::optionsWithTools());
        EXPECT_EQ(reading.stopLine, 0U);
        EXPECT_EQ(judge::difference(judge::stepsOf(reading), judgement.steps), "");
        ++compared;
    }
    EXPECT_EQ(compared, smaller.size());
}

// In one line with a tool change the judge by itself forgets the offset of G43: a machine tells it
// where the tool stands, and by itself there is none. In two lines it does as the machine would.
TEST(JudgedPrograms, TheSampleWithAToolChangeBesideG43HasThemInTwoLinesTheStepsOfTheController) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    const std::vector<Sample> programs = samples();
    const auto skeleton = std::find_if(programs.begin(), programs.end(), [](const Sample& sample) {
        return sample.name == "ncfiles/skeleton.ngc";
    });
    ASSERT_NE(skeleton, programs.end());
    const std::string together = "T1 M06 G43 H1";
    std::string text = skeleton->text;
    const std::size_t at = text.find(together);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, together.size(), "T1 M06\nG43 H1");
    const auto reading = gcode_check::read(text, judge::optionsWithTools());
    const auto judgement = judge::judge(text);
    EXPECT_TRUE(judgement.isAccepted);
    EXPECT_EQ(judge::difference(judge::stepsOf(reading), judgement.steps), "");
    // The steps of both forms are the same.
    const auto inOneLine = gcode_check::read(skeleton->text, judge::optionsWithTools());
    EXPECT_EQ(judge::difference(judge::stepsOf(inOneLine), judge::stepsOf(reading)), "");
}
