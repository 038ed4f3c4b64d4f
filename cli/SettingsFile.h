// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One line `name = value` of a settings file. Several values when it is a list.
struct Setting {
    std::string name;
    std::vector<std::string> values;
    bool isList = false;
    /// From 1: where the name stands.
    int line = 0;
};

/// The settings of a file, or what is wrong with it and in which line.
struct Settings {
    std::vector<Setting> list;
    std::string error;
    int errorLine = 0;
};

/// Reads settings as TOML without tables: comments, strings of one or several lines, lists, and
/// words without quotes (numbers, true, false), which stay the texts they are. A byte order mark is
/// dropped.
Settings readSettings(std::string_view text);
