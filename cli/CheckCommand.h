// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "Options.h"

/// Reads a program and, when one is named, the drawing that it was made from, and prints on
/// standard output what is wrong. Returns an `ExitCode`. Needs no toolkit.
int checkProgramFile(const CheckCommandOptions& options);
