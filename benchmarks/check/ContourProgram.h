// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// A program of so many lines that a controller takes: contours of lines and arcs, rows of holes in
/// peck cycles, comments; the end is its last line.
std::string contourProgram(std::size_t lines);
