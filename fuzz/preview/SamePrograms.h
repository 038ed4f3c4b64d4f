// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// Ends the process when an interpreter of `program`, which may be any bytes, does not give what
/// the literal one gives, bit for bit: line by line with its words, as UTF-8, as UTF-16 and as it
/// is. And when it keeps more than `maxVertices`, asks for more memory than they take or takes
/// seconds.
void checkProgram(std::string_view program, std::size_t maxVertices);
