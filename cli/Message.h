// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

/// Prints one line on standard error, whatever is in the names that it holds.
void sayLine(const std::string& line);

/// Prints "kxgcode: " and the cause as one line; returns the code, to end with it.
int sayFailure(int code, const std::string& cause);
