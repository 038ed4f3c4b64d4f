// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

/// Writes what is not yet written; false when it can't be kept. Call it when settings changed.
bool writeSettings();

/// What to tell the user about settings that can't be kept; empty while they can.
QString settingsFailure();
/// The same, once: all parts of the program keep theirs in one file.
QString untoldSettingsFailure();

/// Ends the use of a settings file that can't be read as one, such as a pipe, which would be waited
/// for: then nothing is kept.
void leaveStrangeSettings();
