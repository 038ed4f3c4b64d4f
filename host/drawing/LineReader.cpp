// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/LineReader.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstring>

#include "files/InputFile.h"

namespace kxdrawing {

bool LineReader::open(const std::string& path, DxfDiagnostic* error) {
    *error = {path, 0, "", "a DXF file"};
    kxfiles::FileDescriptor file = kxfiles::openInput(path, &error->found);
    if (!file) {
        return false;
    }
    struct stat status {};
    m_fileSize =
        ::fstat(file.handle(), &status) == 0 ? static_cast<std::uintmax_t>(status.st_size) : 0;
    m_file.reset(::fdopen(file.release(), "rb"));
    if (!m_file || !refill()) {
        error->found = m_failed ? problem() : "an empty file";
        return false;
    }
    dropByteOrderMark();
    return true;
}

void LineReader::dropByteOrderMark() {
    constexpr char kMark[] = "\xEF\xBB\xBF";
    if (m_size >= 3 && std::memcmp(m_buffer.data(), kMark, 3) == 0) {
        m_position = 3;
    }
}

bool LineReader::refill() {
    m_position = 0;
    m_size = std::fread(m_buffer.data(), 1, m_buffer.size(), m_file.get());
    m_bytesRead += m_size;
    m_failed = m_size == 0 && std::ferror(m_file.get()) != 0;
    m_problem = m_failed ? kxfiles::lastCause() : std::string();
    return m_size > 0;
}

double LineReader::fraction() const {
    // A file that is written meanwhile may turn out longer, or shorter, than it was.
    return m_bytesRead >= m_fileSize
               ? 1
               : static_cast<double>(m_bytesRead) / static_cast<double>(m_fileSize);
}

LineReader::Status LineReader::next(std::string* line) {
    if (m_position == m_size && !refill()) {
        return m_failed ? Status::ReadError : Status::EndOfFile;
    }
    line->clear();
    ++m_lineNumber;
    bool ended = false;
    while (!ended && (m_position < m_size || refill())) {
        const char* const first = m_buffer.data() + m_position;
        const char* const last = m_buffer.data() + m_size;
        const char* const end = std::find(first, last, '\n');
        line->append(first, end);
        ended = end != last;
        m_position += static_cast<std::size_t>(end - first) + (ended ? 1 : 0);
        if (line->size() > kMaxLineLength) {
            return Status::TooLong;
        }
    }
    if (m_failed) {
        return Status::ReadError;
    }
    if (!line->empty() && line->back() == '\r') {
        line->pop_back();
    }
    return line->find('\0') == std::string::npos ? Status::Line : Status::ZeroByte;
}

}  // namespace kxdrawing
