// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kxdrawing {

/// A value of the file as UTF-8: what is not valid UTF-8 is taken for Latin-1, and "\U+XXXX"
/// becomes that character.
std::string decodeText(std::string_view value);
/// How many characters a text in UTF-8 has.
std::size_t characterCount(std::string_view text);
/// The plain characters of a text, control characters as blanks: "%%d", "%%p" and "%%c" become
/// signs, "%%u" and "%%o" vanish.
std::string plainText(std::string_view value);
/// The plain characters of a multi-line text; a paragraph's end becomes a blank, formats vanish.
std::string plainMultiLineText(std::string_view value);

}  // namespace kxdrawing
