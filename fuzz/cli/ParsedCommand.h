// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "Options.h"

/// What a command line gave: options or an exit code, and what was printed.
struct ParsedCommand {
    Options options;
    std::optional<int> exitCode;
    /// Whether all that was given was taken, even if more is needed.
    bool isTaken = false;
    std::string output;
    std::string messages;
};

/// Reads a command line, the program's name left out. Ends the process when it throws, and when
/// what was printed does not fit the exit code: nothing for options, help or version for 0, and
/// else one line that begins with the program's name, for a wrong usage with a second one about the
/// help.
ParsedCommand parseCommand(const std::vector<std::string>& arguments);

/// A file that exists as long as the process, in a folder of its own, with this content.
std::string settingsFileWith(const std::string& content);

/// Ends the process when something in the options is no number, or not one that is allowed.
void checkNumbers(const Options& options);
