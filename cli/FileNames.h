// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

/// Says which output is an input or another output as well, through links too, and so would
/// destroy it; empty when none is. Empty names and "-" are no files, devices do not count.
std::string clashOfFiles(const std::vector<std::string>& inputs,
                         const std::vector<std::string>& outputs);
