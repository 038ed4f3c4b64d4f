// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

/// Why settings can't be kept, as long as nobody was told; empty when all is well, or was told. All
/// parts of the program keep theirs in one file, so one line about it is enough.
QString untoldSettingsFailure();

/// Writes what is not yet written. Call it when settings changed.
void writeSettings();

/// Ends the use of a settings file that can't be read as one, such as a pipe, which would be waited
/// for: then nothing is kept.
void leaveStrangeSettings();
