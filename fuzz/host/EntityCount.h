// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

/// How many entities the drawing of a well-formed DXF text has, literally: what its groups 0 in
/// sections ENTITIES name, but not the vertices of polylines nor the ends of sequences.
long countEntities(std::string_view text);
