// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include <QString>
#include <QStringList>

/// What kxhost is started with.
struct HostOptions {
    QStringList drawings;
    /// Add-ins to load besides the one that is found.
    QStringList addins;
    bool withoutAddins = false;
    /// Opens and closes each drawing that is named, prints what came of it, and ends.
    bool openEach = false;
};

/// Reads the arguments (with the program's name first). Nothing when the program is to end at
/// once, with `exitCode` and, in `message`, what to print: help and version (0) or an error (2).
std::optional<HostOptions> parseHostOptions(const QStringList& arguments, QString* message,
                                            int* exitCode);
