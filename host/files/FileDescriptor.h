// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace kxfiles {

/// An open file of the system, closed with the object.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int handle) : m_handle(handle) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_handle(std::exchange(other.m_handle, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    explicit operator bool() const { return m_handle >= 0; }
    int handle() const { return m_handle; }
    int release() { return std::exchange(m_handle, -1); }
    /// False, with `errno` set, when what was written is not kept after all.
    bool close();

private:
    int m_handle = -1;
};

/// Writes all of the text; false, with `errno` set, when only a part of it was taken. Waits where
/// the other side, such as a pipe, takes its time.
bool writeAll(int handle, std::string_view text);

/// The system's words for `errno`, the same in every locale.
std::string lastCause();

}  // namespace kxfiles
