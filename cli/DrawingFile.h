// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>

#include "drawing/DxfReader.h"

/// How much is said of what was read.
enum class ImportWords { Warnings, Notes, Report };

ImportWords wordsFor(bool report, bool quiet);

/// Reads a drawing and says on standard error what became of its content, or why it can't be read.
std::optional<kxdrawing::Drawing> readDrawingFile(const std::string& path, ImportWords words);
