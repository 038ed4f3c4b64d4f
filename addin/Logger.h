// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

/// A log file in the platform's directory for temporary files, for its owner only. A file that
/// can't be opened is ignored: what is written then goes nowhere. So is what somebody else may have
/// put there under its name: a link, a second name of a file, another's file, a device.
class Logger {
public:
    /// Opens "kxaec.log" for appending.
    Logger();
    /// Opens the named file, emptied.
    explicit Logger(const QString& fileName);
    ~Logger();
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    /// Goes on in the named file, emptied.
    void OpenFile(const QString& fileName);
    /// Writes both texts, each with a line end, as UTF-8.
    void WriteLog(const QString& first, const QString& second);

private:
    void open(const QString& fileName, QIODevice::OpenMode mode);

    QString m_fileName;
    QFile m_file;
};
