// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

/// Until `noteStarted`, a toolkit that can't start, as at a display that is not there or lets
/// nobody in, ends the program with one line on standard error and this code, not by a crash.
void endWhenToolkitFails(int exitCode);
void noteStarted();
