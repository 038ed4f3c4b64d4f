// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "Options.h"

/// Opens the drawing, lets the add-in write the program with the given settings and puts it where
/// it was asked for. Says on standard error what happened; returns an `ExitCode`. Needs a
/// `QApplication`.
int generateProgram(const Options& options);
