// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "support/Chance.h"

namespace judge {

/// Writes programs that a controller takes, out of all words that are interpreted. The same seed
/// gives the same program on each machine.
class RandomProgram {
public:
    explicit RandomProgram(std::uint64_t seed) : m_chance(seed) {}

    /// Lines that bring a controller that ran other programs back to the start, but for G28.1 and
    /// G30.1, whose points must be those of the machine's origin.
    static std::vector<std::string> resetLines();
    /// Lines without an end code; they count on what the lines above leave behind.
    std::vector<std::string> lines();

private:
    struct Words;
    using Axes = std::array<double, 3>;

    void line();
    void straight();
    void homeOrMachine();
    void arcByCentre();
    void arcByRadius();
    void cycles();
    void cycleLine(int code, const std::string& firstWords, bool isFirst);
    void modes();
    void offsets();
    void tools();
    void feedModes();
    void textOnly();
    void known();

    void put(std::vector<std::string> words);
    std::string word(char letter, double value);
    std::string number(double value);
    std::string code(const char* code);
    std::string comment();
    void feedWord(std::vector<std::string>& words);
    void axisWords(std::vector<std::string>& words, const Axes& target);

    bool maybe(int percent) { return m_chance.below(100) < static_cast<std::size_t>(percent); }
    double thousandth(double low, double high);
    std::size_t pick(std::size_t count) { return m_chance.below(count); }
    double unit() const { return m_isInches ? 0.05 : 1; }

    Chance m_chance;
    std::vector<std::string> m_lines;
    Axes m_at{};  // program coordinates, as far as they are known
    bool m_isKnown = true;
    bool m_isInches = false;
    bool m_isRelative = false;
    bool m_hasAbsoluteCentres = false;
    bool m_hasFeed = false;
    bool m_isInverseTime = false;
    bool m_spindleTurns = false;
    bool m_hasToolOffset = false;
    int m_plane = 0;  // 0: XY, 1: ZX, 2: YZ
    std::size_t m_tool = 0;
    int m_lineNumber = 0;
    std::string m_motion;  // the code in force, "" for none
};

}  // namespace judge
