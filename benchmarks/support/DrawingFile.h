// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

enum class DrawingOrder { drawn, random };

/// The path of a DXF file with that many lines, arcs and circles, which goes when the program ends.
std::string drawingFile(std::size_t entities, DrawingOrder order);

/// A folder for files, which goes when the program ends.
const std::string& benchmarkFolder();
