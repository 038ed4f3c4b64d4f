// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A user's home, a place for temporary files and a working folder, and programs that run there
/// with all that they open recorded.
class RecordedRun {
public:
    RecordedRun();

    QString work() const { return m_folder.filePath("work"); }
    QString home() const { return m_folder.filePath("home"); }
    QString temporary() const { return m_folder.filePath("temporary"); }
    /// Writes a file of the working folder, with the folders above it; returns its path.
    QString write(const QString& name, const QByteArray& content) const;

    /// Runs a program in the working folder; false after a crash, a hang or a wrong exit code.
    /// Without a display of its own, unless it is asked for.
    bool run(const QString& program, const QStringList& arguments, bool atDisplay = false);

    QByteArray output() const { return m_output; }
    QByteArray messages() const { return m_messages; }
    /// Whether anything was opened at all: that the record works.
    bool isRecorded() const { return !m_record.isEmpty(); }
    /// What was opened, loaded, started and connected to besides what is of the system, of the
    /// programs' own installation, of the home and temporary, and the files that are named here.
    QStringList foreign(const QStringList& named) const;
    /// The files of a folder, and of those in it, that were opened.
    QStringList openedBelow(const QString& folder) const;
    /// Whether a file was opened.
    bool hasOpened(const QString& path) const { return m_record.contains("open " + path); }

private:
    QTemporaryDir m_folder;
    QStringList m_record;
    QByteArray m_output;
    QByteArray m_messages;
};
