// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What one run of the program gave.
struct CommandRun {
    /// The exit code; -1 after a crash or a hang.
    int code = -1;
    QByteArray output;
    QByteArray messages;
};

/// Runs the program; `locale` is the process's locale, "C" or "de_DE.utf8".
CommandRun runProgram(const QStringList& arguments, const QString& locale = "C");

/// Runs the program with another display.
CommandRun runAtDisplay(const QStringList& arguments, const QString& display);

/// Runs the program where there is no display.
CommandRun runWithoutDisplay(const QStringList& arguments);

/// Runs the program with a text on its standard input.
CommandRun runProgramWithInput(const QStringList& arguments, const QByteArray& input);

/// Runs the program with a file or device as its standard output.
CommandRun runProgramInto(const QStringList& arguments, const QString& output);

/// The settings that a tool path needs.
QStringList toolPathSettings();

/// The path of an example file.
QString example(const QString& name);

/// A folder of one test, with files in it.
class WorkFolder {
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// Writes a file and returns its path.
    QString write(const QString& name, const QByteArray& content) const;

private:
    QTemporaryDir m_folder;
};

/// The whole content of a file; empty when there is none.
QByteArray contentOf(const QString& path);

/// A DXF drawing of the given entities: group codes and values, a line each.
QByteArray drawingOf(const QByteArray& entities);

/// A line on layer 0 from (x1, y1) to (x2, y2), as entity of a drawing.
QByteArray lineEntity(double x1, double y1, double x2, double y2);
