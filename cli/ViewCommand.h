// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "Options.h"

/// Loads a program into the add-in's view and writes the view's picture. Says on standard error
/// what happened; returns an `ExitCode`. Needs a `QApplication` on a display.
int viewProgram(const ViewOptions& options);
