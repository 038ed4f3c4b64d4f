// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Logger.h"

#include <QStandardPaths>
#include <QTextStream>

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
    m_file.open(mode);
}
