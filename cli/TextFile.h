// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>

#include <QString>

/// The text of a UTF-8 file without a byte order mark and without one final line end. Nothing,
/// with file, line and cause in `error`, when it can't be read or is not UTF-8.
std::optional<QString> readTextFile(const std::string& path, std::string* error);

/// Replaces a file only when the whole content is written; devices and pipes are written to as
/// they are. An empty path or "-" is standard output. False, with file and cause in `error`.
bool writeOutput(const std::string& path, const QByteArray& content, std::string* error);
