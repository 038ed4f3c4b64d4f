// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

/// The add-in's library: `asked` when it is not empty, else the one beside the program or in the
/// library folder next to the program's; empty, with the places in `error`, when there is none.
std::string findAddinFile(const std::string& asked, std::string* error);
