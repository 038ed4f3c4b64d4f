// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "drawing/DxfDiagnostic.h"

namespace kxdrawing {

/// Reads a text file line by line through a buffer. Lines end with LF or CRLF, the last one also
/// with the file; a UTF-8 byte order mark is dropped.
class LineReader {
public:
    enum class Status { Line, EndOfFile, ReadError, ZeroByte, TooLong };

    /// Opens a regular file that is not empty; false, with the cause, when that fails.
    bool open(const std::string& path, DxfDiagnostic* error);
    /// Reads the next line; one with a zero byte is there to be looked at too.
    Status next(std::string* line);
    /// Why the file can't be read, after a read error.
    std::string problem() const { return "cannot be read: " + m_problem; }
    /// The number of the line read last, from 1.
    long lineNumber() const { return m_lineNumber; }
    /// What part of the file went through the buffer, 0 to 1.
    double fraction() const;

    static constexpr std::size_t kMaxLineLength = std::size_t{1} << 20;

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool refill();
    void dropByteOrderMark();

    std::unique_ptr<std::FILE, Closer> m_file;
    std::array<char, 65536> m_buffer{};
    std::size_t m_position = 0;
    std::size_t m_size = 0;
    std::uintmax_t m_bytesRead = 0;
    std::uintmax_t m_fileSize = 0;
    long m_lineNumber = 0;
    std::string m_problem;
    bool m_failed = false;
};

}  // namespace kxdrawing
