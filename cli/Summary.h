// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include <kx/host/kxHostDocument.h>

/// Whether the add-in writes a tool path for objects of this type: lines, arcs, circles, points.
bool givesToolPath(kxObjectType_e type);

/// A type by its name in the command line's words, as "arc", "circle" or "polyline".
std::string typeName(kxObjectType_e type);

/// The layers of the drawing that are asked for by names in any case of ASCII letters. When one is
/// not there, `unknown` says so and names those that are.
std::vector<kxString> layersOf(const std::vector<kxLayer>& layers,
                               const std::vector<std::string>& names, std::string* unknown);

/// One line that counts, by type, the objects that give no tool path; empty when all give one.
std::string noToolPathLine(const std::vector<kxObject_ptr>& selected);
