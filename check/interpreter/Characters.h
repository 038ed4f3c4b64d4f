// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

namespace gcode_check {

// Of ASCII, whatever the process's locale. Blanks are all that a line can be empty of.
constexpr bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr bool isLetter(char c) {
    return upper(c) >= 'A' && upper(c) <= 'Z';
}

}  // namespace gcode_check
