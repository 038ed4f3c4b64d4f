// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "findings/Setting.h"

namespace gcode_check {

// Lines of a program from the first on, as the interpreter counts them.
class LineCursor {
public:
    explicit LineCursor(std::string_view program) : m_rest(program) {}
    bool next();
    std::string_view text() const { return m_text; }
    std::uint32_t number() const { return m_number; }  // from 1

private:
    std::string_view m_rest;
    std::string_view m_text;
    std::uint32_t m_number = 0;
};

// The first lines with a word X, Y and Z.
AxisLines firstAxisLines(std::string_view program);

// Whether a line from `line` on seems to cut or drill. `modal`: what the controller is in there.
bool cutsFrom(std::string_view program, std::uint32_t line, int modalTenths);

// The words of a line that move the zero. Codes are in tenths, 0: none.
struct ZeroWords {
    static constexpr std::size_t kInForce = 9;
    int selects = 0;                // 540 to 593
    int switches = 0;               // 921, 922, 923
    int sets = 0;                   // 100, 520, 920
    bool fromTool = false;          // L20
    std::size_t system = kInForce;  // P of G10, from 0
    std::array<std::optional<double>, 3> axes;
};
ZeroWords zeroWordsOf(std::string_view line);

// Whether a line has a letter with a number outside of its remarks.
bool hasWords(std::string_view program);

std::string_view lineOf(std::string_view program, std::uint32_t line);

}  // namespace gcode_check
