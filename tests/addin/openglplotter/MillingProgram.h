// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Lines as a CAM program writes them for a surface, the same ones each time: short feed moves, now
/// and then a rapid, an arc, a comment or a drill cycle.
std::string millingProgram(std::size_t lines);
