// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

/// Random programs, legal and not: moves, arcs, drill cycles with pecks, both coordinate modes,
/// several G words, comments with capital letters, lower case, malformed numbers, numbers that
/// overflow or vanish, bytes of every value, mixed line ends. The seed decides it all.
class RandomProgram {
public:
    explicit RandomProgram(std::uint64_t seed) : m_random(seed) {}

    std::string text();
    std::string line();
    std::string number();
    /// In most cases more than a program needs, else a handful.
    std::size_t maxVertices();

private:
    int below(int limit);
    bool oneIn(int chances) { return below(chances) == 0; }
    template <typename Container>
    const auto& oneOf(const Container& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
    }
    std::string digits(int count);
    std::string coordinate();
    std::string word(char letter);
    std::string words(const std::string& letters);
    std::string gWord();
    std::string drillLine();
    std::string comment();
    std::string bytes(int count);
    std::string lineEnd();

    std::mt19937_64 m_random;
};
