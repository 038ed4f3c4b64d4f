// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "ChildRun.h"

using Words = std::vector<std::string>;

/// Runs kxgcode with arguments of any bytes.
ChildRun runWords(const Words& words, const ChildOptions& options = {});

/// The words that make a program of a drawing, without its destination.
Words programOf(const std::string& drawing);

Words operator+(Words all, const Words& more);

/// A drawing of so many lines.
std::string linesDrawing(int count);

/// Whether a text is one line that names all of these.
bool isOneLineWith(const std::string& text, const Words& parts);
