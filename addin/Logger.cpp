// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Logger.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStandardPaths>
#include <QTextStream>

namespace {

/// Whether an open file may be the log: others write to the same directory, and could have put a
/// device or a queue there, a file of theirs, or a second name of one of ours.
bool isOwnPlainFile(int handle) {
    struct stat found {};
    return fstat(handle, &found) == 0 && S_ISREG(found.st_mode) && found.st_uid == geteuid() &&
           found.st_nlink == 1;
}

/// A handle for writing that does not follow a link nor wait for a reader; -1 without. An existing
/// file is not touched before it is known which it is.
int openForWriting(const QByteArray& path, bool append) {
    constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | O_NONBLOCK;
    const int handle = ::open(path.constData(), flags | (append ? O_APPEND : 0), kOwnerOnly);
    if (handle < 0) {
        return -1;
    }
    if (!isOwnPlainFile(handle) || (!append && ftruncate(handle, 0) != 0)) {
        ::close(handle);
        return -1;
    }
    return handle;
}

}  // namespace

Logger::Logger() {
    open(QString::fromLatin1("kxaec.log"), QIODevice::Append | QIODevice::Text);
}

Logger::Logger(const QString& fileName) {
    OpenFile(fileName);
}

Logger::~Logger() {
    m_file.close();
}

void Logger::OpenFile(const QString& fileName) {
    open(fileName, QIODevice::WriteOnly | QIODevice::Text);
}

void Logger::WriteLog(const QString& first, const QString& second) {
    if (!m_file.isOpen()) {
        return;
    }
    QTextStream stream(&m_file);
    stream.setCodec("UTF-8");
    stream << first << '\n' << second << '\n';
}

void Logger::open(const QString& fileName, QIODevice::OpenMode mode) {
    const QStringList directories = QStandardPaths::standardLocations(QStandardPaths::TempLocation);
    m_fileName = directories.value(0) + QLatin1Char('/') + fileName;
    m_file.close();
    m_file.setFileName(m_fileName);
    const int handle =
        openForWriting(QFile::encodeName(m_fileName), mode.testFlag(QIODevice::Append));
    if (handle >= 0 && !m_file.open(handle, mode, QFileDevice::AutoCloseHandle)) {
        ::close(handle);
    }
}
