// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

/// A DXF file of that many lines, arcs and circles, always the same: rows of plates with rounded
/// corners, holes and a slot, each different, as a sheet of nested parts has them.
std::string bigDrawing(int entities);
