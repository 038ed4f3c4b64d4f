// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "Judge.h"

namespace {

constexpr std::size_t kPrograms = 40;
constexpr int kLines = 150;

/// Offsets, turns and moves that leave axes out, so that each shows where the others are.
class RandomOffsets {
public:
    explicit RandomOffsets(std::uint64_t seed) : m_random(seed) {}

    std::string text() {
        std::string program = "G21 G90\n";
        for (int i = 0; i < kLines; ++i) {
            program += line() + "\n";
        }
        return program + "M2\n";
    }

private:
    std::uint64_t pick(std::uint64_t count) { return m_random() % count; }
    std::string number() {
        return std::to_string(static_cast<int>(pick(200)) - 100) + "." + std::to_string(pick(10));
    }
    std::string coordinates() {
        std::string words;
        for (const char axis : {'X', 'Y', 'Z'}) {
            words += pick(2) == 0 ? std::string(1, axis) + number() : "";
        }
        return words.empty() ? "Y" + number() : words;
    }
    std::string line() {
        static const char* const systems[] = {"G54",   "G55",   "G59.1", "G54", "G92.1",
                                              "G92.2", "G92.3", "G91",   "G90"};
        switch (pick(8)) {
            case 0:
                return "G10 L2 P" + std::to_string(pick(3)) + coordinates();
            case 1:
                return "G10 L2 P" + std::to_string(pick(3)) + "R" + number() +
                       (pick(2) == 0 ? coordinates() : "");
            case 2:
                return "G10 L20 P" + std::to_string(pick(3)) + coordinates();
            case 3:
                return (pick(2) == 0 ? "G52" : "G92") + coordinates();
            case 4:
                return systems[pick(std::size(systems))];
            default:
                return "G0" + coordinates();
        }
    }

    std::mt19937_64 m_random;
};

}  // namespace

TEST(JudgedPrograms, OffsetsAndTurnsLeaveTheAxesThatAreNotNamedWhereTheControllerHasThem) {
    if (!judge::isThere()) {
        JUDGE_MISSING();
    }
    std::vector<std::string> texts;
    for (std::size_t seed = 0; seed < kPrograms; ++seed) {
        texts.push_back(RandomOffsets(seed).text());
    }
    const std::vector<judge::Judgement> judgements = judge::judgeAll(texts);
    std::size_t steps = 0;
    for (std::size_t seed = 0; seed < kPrograms; ++seed) {
        ASSERT_TRUE(judgements[seed].isAccepted)
            << judgements[seed].message << judgements[seed].badLine;
        const auto reading = gcode_check::read(texts[seed], judge::optionsWithTools());
        EXPECT_EQ(judge::difference(judge::stepsOf(reading), judgements[seed].steps), "")
            << "seed " << seed << "\n"
            << texts[seed];
        steps += judgements[seed].steps.size();
        if (HasFailure()) {
            return;
        }
    }
    std::printf("%zu programs, %zu steps\n", kPrograms, steps);
}
