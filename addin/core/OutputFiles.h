// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <QString>

// The panel's files: UTF-8, lines ended by a line feed. A file that can't be opened is passed over
// in silence, whether to read or to write.

/// Replaces the file's content.
void writeTextFile(const QString& path, const std::string& text);

/// Adds to the end of the file.
void appendTextFile(const QString& path, const std::string& text);

/// Numbers all lines of the file: N5, N10, N15, … A byte order mark is dropped.
void numberFileLines(const QString& path);

/// The whole text of the file, without a byte order mark; empty when it can't be read.
QString readTextFile(const QString& path);

/// The text of the file up to its first zero byte.
QString readProgramFile(const QString& path);
