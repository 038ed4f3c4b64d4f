// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

/// What the program says to the shell.
enum ExitCode {
    kExitWritten = 0,
    kExitWrongUsage = 1,
    kExitUnreadableInput = 2,
    kExitNothingToWrite = 3,
    kExitUnwritableOutput = 4,
    /// By a check; the program is written all the same.
    kExitErrorsFound = 5
};
