// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace GCode {

/// `text` with every "G20" as "G21", then every "inch" as "mm", inside words too.
std::string textInMillimetres(std::string text);

/// `text` with every "G21" as "G20", then every "mm" as "inch", inside words too.
std::string textInInches(std::string text);

}  // namespace GCode
