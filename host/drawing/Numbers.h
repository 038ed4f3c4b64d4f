// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kxdrawing {

/// The text without spaces and tabs at its ends.
std::string_view trimmed(std::string_view text);
/// A whole text as a number, without regard to any locale; blanks around it and a leading plus
/// are allowed. "nan" and "inf" are read as such, and what no double holds becomes infinite.
std::optional<double> parseReal(std::string_view text);
/// The shortest text that is read back as exactly this number.
std::string realText(double value);
/// A whole text as an integer; a real without a fraction counts ("1.0"). Nothing for a value
/// that no 32-bit integer holds.
std::optional<int> parseInt(std::string_view text);

}  // namespace kxdrawing
