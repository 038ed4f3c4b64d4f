// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kxfiles {

/// A text on one line, safe for a terminal: control characters (a line feed in a file's name, an
/// escape sequence), marks that turn the direction of writing and bytes that are not UTF-8 are
/// written as "\n", "\t", "\r" or "\x1b". All else, backslashes included, stays; so what is
/// printable already is not changed.
std::string printable(std::string_view text);

/// The number, from 1, of the first line that holds a zero byte or bytes that are not UTF-8; 0 when
/// all of it is text.
std::size_t firstLineOfNoText(std::string_view text);

}  // namespace kxfiles
