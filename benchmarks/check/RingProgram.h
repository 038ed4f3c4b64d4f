// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// A program of so many lines, at least 200, that cuts circles as short lines, a hundred lines of
/// the program each.
std::string ringProgram(std::size_t lines);

/// The drawing of it, DXF: its circles.
std::string ringDrawing(std::size_t lines);
