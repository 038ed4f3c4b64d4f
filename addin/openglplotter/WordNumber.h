// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The number of a word, from a text of digits, points and signs only and without the process's
/// locale: read as double, then narrowed. What is no number or vanishes in a float is 0, what
/// exceeds one is infinite.
float wordNumber(std::string_view text);

/// `value` without its fraction; beyond 32 bits the nearest limit, and 0 for NaN.
int truncateToInt(float value);
