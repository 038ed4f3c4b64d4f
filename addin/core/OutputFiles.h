// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <QString>

#include "core/OutputText.h"

// The panel's files: UTF-8, lines ended by a line feed. A file that can't be opened is passed over
// in silence, whether to read or to write. So is what would be waited for or has no end: a pipe,
// and to read a device or more than 1,000,000,000 bytes.

/// Replaces the file's content.
void writeTextFile(const QString& path, const std::string& text);

/// Adds to the end of the file.
void appendTextFile(const QString& path, const std::string& text);

/// Numbers all lines of the file: N5, N10, N15, … A byte order mark is dropped. Where the disk has
/// no room for the numbers the file stays without.
void numberFileLines(const QString& path);

/// The whole text of the file, without a byte order mark; empty when it can't be read.
QString readTextFile(const QString& path);

/// The text of the file up to its first zero byte.
QString readProgramFile(const QString& path);

/// Replaces the file's content by a program and its comment, if there is one.
void saveOutput(const QString& path, const GCode::OutputText& output);

/// Replaces the file's content by what the last save kept, with a program appended to it: what was
/// appended since is gone. Gives the new content, as `readTextFile` does.
QString rebuildOutput(const QString& path, const std::string& kept,
                      const GCode::OutputText& output);

/// Appends a program to the file as it is. Gives the new content, as `readTextFile` does.
QString extendOutput(const QString& path, const GCode::OutputText& output);
