// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "files/FileDescriptor.h"

namespace kxfiles {

/// Opens a regular file for reading, through links too. Without one the result is not open and
/// `cause` says why: "no such file", "a directory", "a named pipe, not a regular file". Never waits
/// for somebody else to open the other end.
FileDescriptor openInput(const std::string& path, std::string* cause);

/// Whether the file can be read and has at most `limit` bytes; otherwise `cause` says why not.
bool isReadable(const FileDescriptor& file, std::size_t limit, std::string* cause);

/// The whole content of a regular file of at most `limit` bytes. False, with the cause, when it
/// can't be read or is longer.
bool readInput(const std::string& path, std::size_t limit, std::string* content,
               std::string* cause);

/// The same of a stream that is open, such as standard input: waits until its end.
bool readStream(int handle, std::size_t limit, std::string* content, std::string* cause);

}  // namespace kxfiles
