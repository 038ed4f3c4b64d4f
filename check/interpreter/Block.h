// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "interpreter/Codes.h"
#include "interpreter/Diagnostic.h"

namespace gcode_check {

// Why a line can't be executed. Texts are made only then.
struct Fault {
    Rule rule = Rule::UnknownCharacter;
    std::uint32_t column = 0;
    std::string found;
    std::string expected;
};

// Gives false, so that a rule can end with `return reject(...)`.
bool reject(Fault& fault, Rule rule, std::uint32_t column, std::string found, std::string expected);

// The words of one line.
class Block {
public:
    static constexpr int kNone = -1;

    void clear() {
        m_words = 0;
        m_codes = 0;
        commentColumn = 0;
        isDeleted = false;
        hasText = false;
        mCount = 0;
        m_g.fill(kNone);
        m_m.fill(kNone);
    }

    bool has(char letter) const { return (m_words & bit(letter)) != 0; }
    bool hasAny(std::uint32_t letters) const { return (m_words & letters) != 0; }
    double value(char letter) const { return m_values[index(letter)]; }
    double valueOr(char letter, double other) const { return has(letter) ? value(letter) : other; }
    std::uint32_t column(char letter) const { return m_columns[index(letter)]; }
    void setWord(char letter, double value, std::uint32_t column) {
        m_words |= bit(letter);
        m_values[index(letter)] = value;
        m_columns[index(letter)] = static_cast<std::uint16_t>(column);
    }

    int g(GGroup group) const { return m_g[static_cast<std::size_t>(group)]; }
    int m(MGroup group) const { return m_m[static_cast<std::size_t>(group)]; }
    bool hasG(GGroup group) const { return g(group) != kNone; }
    bool hasM(MGroup group) const { return m(group) != kNone; }
    bool hasAnyCode() const { return m_codes != 0; }
    std::uint32_t columnOfG(GGroup group) const {
        return m_gColumns[static_cast<std::size_t>(group)];
    }
    std::uint32_t columnOfM(MGroup group) const {
        return m_mColumns[static_cast<std::size_t>(group)];
    }
    // Of what makes the line a move: where its motion code stands, or the line's first column.
    std::uint32_t columnOfMotion() const {
        return hasG(GGroup::Motion) ? columnOfG(GGroup::Motion) : 1;
    }
    void setG(GGroup group, int tenths, std::uint32_t column) {
        ++m_codes;
        m_g[static_cast<std::size_t>(group)] = static_cast<std::int16_t>(tenths);
        m_gColumns[static_cast<std::size_t>(group)] = static_cast<std::uint16_t>(column);
    }
    void setM(MGroup group, int code, std::uint32_t column) {
        ++m_codes;
        ++mCount;
        m_m[static_cast<std::size_t>(group)] = static_cast<std::int16_t>(code);
        m_mColumns[static_cast<std::size_t>(group)] = static_cast<std::uint16_t>(column);
    }

    bool hasAxes() const { return (m_words & axisBits()) != 0; }
    static constexpr std::uint32_t bit(char letter) { return 1U << index(letter); }
    // The distance from the origin and the angle.
    static constexpr std::uint32_t polarBits() { return bit('@') | bit('^'); }
    static constexpr std::uint32_t axisBits() {
        return bit('X') | bit('Y') | bit('Z') | bit('A') | bit('B') | bit('C') | polarBits();
    }

    std::uint32_t line = 0;
    std::uint32_t commentColumn = 0;  // of the last comment; 0: none
    bool isDeleted = false;           // begins with a slash
    bool hasText = false;             // any word
    int mCount = 0;

private:
    // Letters; besides them @ is the last and ^ the third last.
    static constexpr std::size_t index(char letter) {
        return static_cast<std::size_t>(letter - 'A') & 31U;
    }

    std::uint32_t m_words = 0;
    std::uint32_t m_codes = 0;
    std::array<double, 32> m_values{};
    std::array<std::uint16_t, 32> m_columns{};
    std::array<std::int16_t, kGGroups> m_g{};
    std::array<std::int16_t, kMGroups> m_m{};
    std::array<std::uint16_t, kGGroups> m_gColumns{};
    std::array<std::uint16_t, kMGroups> m_mColumns{};
};

}  // namespace gcode_check
