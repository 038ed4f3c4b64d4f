// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

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

// The words of a line, without its comments: two letters in a row as in a text for people.
bool looksLikeText(std::string_view line);

std::string_view lineOf(std::string_view program, std::uint32_t line);

}  // namespace gcode_check
