// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CommandRun.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

namespace {

CommandRun finish(QProcess& process) {
    CommandRun run;
    if (process.waitForFinished(50000) && process.exitStatus() == QProcess::NormalExit) {
        run.code = process.exitCode();
    }
    process.kill();
    run.output = process.readAllStandardOutput();
    run.messages = process.readAllStandardError();
    return run;
}

CommandRun runIn(const QProcessEnvironment& environment, const QStringList& arguments) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(KX_PROGRAM, arguments);
    return finish(process);
}

}  // namespace

CommandRun runProgram(const QStringList& arguments, const QString& locale) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LOCPATH", KX_COMMA_LOCALES);
    environment.insert("LC_ALL", locale);
    return runIn(environment, arguments);
}

CommandRun runAtDisplay(const QStringList& arguments, const QString& display) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", display);
    environment.remove("WAYLAND_DISPLAY");
    environment.remove("QT_QPA_PLATFORM");
    return runIn(environment, arguments);
}

CommandRun runWithoutDisplay(const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    environment.remove("QT_QPA_PLATFORM");
    return runIn(environment, arguments);
}

CommandRun runProgramWithInput(const QStringList& arguments, const QByteArray& input) {
    QProcess process;
    process.start(KX_PROGRAM, arguments);
    process.write(input);
    process.closeWriteChannel();
    return finish(process);
}

CommandRun runProgramInto(const QStringList& arguments, const QString& output) {
    QProcess process;
    process.setStandardOutputFile(output);
    process.start(KX_PROGRAM, arguments);
    return finish(process);
}

QStringList toolPathSettings() {
    return {"--safe-height", "2",   "--retraction", "10", "--depth", "-1",
            "--feed-z",      "100", "--feed-xy",    "300"};
}

QString example(const QString& name) {
    return QString(KX_EXAMPLES) + "/" + name;
}

QString WorkFolder::write(const QString& name, const QByteArray& content) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("can't write %s", qUtf8Printable(file.fileName()));
    }
    return file.fileName();
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray drawingOf(const QByteArray& entities) {
    return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

QByteArray lineEntity(double x1, double y1, double x2, double y2) {
    return "0\nLINE\n8\n0\n10\n" + QByteArray::number(x1) + "\n20\n" + QByteArray::number(y1) +
           "\n30\n0\n11\n" + QByteArray::number(x2) + "\n21\n" + QByteArray::number(y2) +
           "\n31\n0\n";
}
