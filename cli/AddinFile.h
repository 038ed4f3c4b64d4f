// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

/// The add-in's library: the first there is in `asked`, which is a file, a folder, or several of
/// them separated by colons; `asked` itself when there is none in it. When it is empty: the one
/// beside the program or in the library folder next to the program's; empty, with the places in
/// `error`, when there is none. Nothing is looked for in the current folder unless it is named.
std::string findAddinFile(const std::string& asked, std::string* error);
