// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace GCode {

/// `text` with "N5 ", "N10 ", "N15 " and so on before its lines, blank ones and those that carry a
/// number already included. Lines end at a line feed; a missing last one is added.
std::string numberLines(const std::string& text);

}  // namespace GCode
