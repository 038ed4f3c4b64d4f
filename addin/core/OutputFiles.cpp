// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/OutputFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include <QFile>
#include <QTextCodec>

#include "core/LineNumbering.h"

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

/// The longest file that is read: far more than a program, and what a text can hold.
constexpr off_t kLongestFile = 1000000000;

/// An open file, closed with the object.
class OpenFile {
public:
    /// Doesn't wait for anybody: a pipe without a program at its other end can't be opened.
    OpenFile(const QString& path, int flags)
        : m_handle(::open(QFile::encodeName(path).constData(),
                          flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666)) {
        m_isOpen = m_handle >= 0 && ::fstat(m_handle, &m_status) == 0;
    }
    ~OpenFile() {
        if (m_handle >= 0) {
            ::close(m_handle);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isFile() const { return m_isOpen && S_ISREG(m_status.st_mode); }
    /// A device such as a serial line can be written to, though not read to its end.
    bool isDevice() const { return m_isOpen && S_ISCHR(m_status.st_mode); }
    off_t size() const { return m_status.st_size; }
    int handle() const { return m_handle; }

    void write(const std::string& text) const {
        ::fcntl(m_handle, F_SETFL, ::fcntl(m_handle, F_GETFL) & ~O_NONBLOCK);
        std::size_t done = 0;
        while (done < text.size()) {
            const ssize_t count = ::write(m_handle, text.data() + done, text.size() - done);
            if (count == 0 || (count < 0 && errno != EINTR)) {
                return;
            }
            done += static_cast<std::size_t>(count > 0 ? count : 0);
        }
    }

    /// Only a regular file can be cut.
    bool cut(off_t size) const { return ::ftruncate(m_handle, size) == 0; }

    /// To its end, which may have moved since it was opened; nothing when that fails.
    QByteArray readAll() const {
        std::vector<char> chunk(std::size_t{1} << 20);
        QByteArray bytes;
        for (;;) {
            const ssize_t count = ::read(m_handle, chunk.data(), chunk.size());
            if (count == 0) {
                return bytes;
            }
            if ((count < 0 && errno != EINTR) || bytes.size() > kLongestFile) {
                return {};
            }
            bytes.append(chunk.data(), static_cast<int>(count > 0 ? count : 0));
        }
    }

private:
    int m_handle;
    bool m_isOpen = false;
    struct stat m_status {};
};

void write(const QString& path, const std::string& text, int flags) {
    const OpenFile file(path, O_WRONLY | O_CREAT | flags);
    if (file.isFile() || file.isDevice()) {
        file.write(text);
    }
}

bool isTooLong(const OpenFile& file) {
    return file.isFile() && file.size() > kLongestFile;
}

QByteArray readBytes(const OpenFile& file) {
    return file.isFile() && !isTooLong(file) ? file.readAll() : QByteArray();
}

QByteArray readBytes(const QString& path) {
    return readBytes(OpenFile(path, O_RDONLY));
}

/// Whether a longer text has room in the file; where it hasn't the file is as it was.
bool makeRoom(const OpenFile& file, const std::string& text) {
    if (!file.isFile() || text.empty() ||
        ::fallocate(file.handle(), 0, 0, static_cast<off_t>(text.size())) == 0) {
        return true;
    }
    const bool isFull = errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
    return !isFull || !file.cut(file.size());
}

/// Replaces the content, unless it is known beforehand that there is no room: a text that stands in
/// the file whole is worth more than a part of its successor.
void rewrite(const QString& path, const std::string& text) {
    const OpenFile file(path, O_WRONLY | O_CREAT);
    if ((file.isFile() || file.isDevice()) && makeRoom(file, text)) {
        file.write(text);
        file.cut(static_cast<off_t>(text.size()));
    }
}

/// All of the bytes as text, beyond zero bytes too, without a byte order mark.
QString textOf(const QByteArray& bytes) {
    return QTextCodec::codecForName("UTF-8")->toUnicode(bytes);
}

void numberIfAsked(const QString& path, const GCode::OutputText& output) {
    if (output.numbersLines) {
        numberFileLines(path);
    }
}

}  // namespace

void writeTextFile(const QString& path, const std::string& text) {
    write(path, text, O_TRUNC);
}

void appendTextFile(const QString& path, const std::string& text) {
    write(path, text, O_APPEND);
}

void numberFileLines(const QString& path) {
    const OpenFile file(path, O_RDONLY);
    if (isTooLong(file)) {
        return;
    }
    const QByteArray bytes = readBytes(file);
    // Kept, the mark would stand behind the first number, where it marks nothing.
    const int start =
        bytes.startsWith(kByteOrderMark) ? static_cast<int>(sizeof kByteOrderMark) - 1 : 0;
    rewrite(path, GCode::numberLines(bytes.mid(start).toStdString()));
}

QString readTextFile(const QString& path) {
    return textOf(readBytes(path));
}

QString readProgramFile(const QString& path) {
    const QByteArray bytes = readBytes(path);
    const int end = bytes.indexOf('\0');
    return textOf(end < 0 ? bytes : bytes.left(end));
}

void saveOutput(const QString& path, const GCode::OutputText& output) {
    writeTextFile(path, GCode::savedText(output));
    numberIfAsked(path, output);
}

QString rebuildOutput(const QString& path, const std::string& kept,
                      const GCode::OutputText& output) {
    writeTextFile(path, kept + GCode::appendedText(output));
    numberIfAsked(path, output);
    return readTextFile(path);
}

QString extendOutput(const QString& path, const GCode::OutputText& output) {
    appendTextFile(path, GCode::appendedText(output));
    numberIfAsked(path, output);
    return readTextFile(path);
}
