// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/Chance.h"

namespace judge {

/// Writes lines of words that are put together at random: whatever stands beside each other. Lines
/// that are rejected are left out, but every other program ends with one. The same seed gives the
/// same program on each machine.
class RandomWords {
public:
    explicit RandomWords(std::uint64_t seed);
    std::string text();

private:
    std::string line();
    std::string code();
    std::string number();
    std::string value(char letter);
    std::string shuffled(std::vector<std::string> words);
    std::size_t pick(std::size_t count) { return m_chance.below(count); }

    Chance m_chance;
    std::vector<std::string> m_codes;
    std::string m_letters;
    bool m_endsBadly = false;
};

}  // namespace judge
