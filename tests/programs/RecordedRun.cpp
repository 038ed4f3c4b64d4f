// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RecordedRun.h"

#include <algorithm>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>

namespace {

constexpr int kLimitMs = 40000;

/// Files of the system that the toolkit, fonts, the display and its driver are configured with.
bool isOfSystem(const QString& path) {
    static const QRegularExpression known(
        "^/(usr|lib|lib64|etc|proc|sys|run)/|^/dev/(null|urandom|random|dri|shm|nvidia)|"
        "^/var/(cache/fontconfig|lib/dbus|lib/snapd/desktop|tmp/mesa)");
    return known.match(path).hasMatch();
}

/// Libraries by their bare names come from the system's folders: the display's driver does so.
bool isOfSystemLoaded(const QString& name) {
    return name == "(the program)" || isOfSystem(name) || !name.contains('/');
}

QProcessEnvironment environmentOf(const RecordedRun& run, const QString& record, bool atDisplay) {
    QProcessEnvironment environment;
    const QProcessEnvironment here = QProcessEnvironment::systemEnvironment();
    for (const char* kept : {"PATH", "DISPLAY", "XAUTHORITY"}) {
        if (here.contains(kept)) {
            environment.insert(kept, here.value(kept));
        }
    }
    environment.insert("HOME", run.home());
    environment.insert("TMPDIR", run.temporary());
    environment.insert("XDG_RUNTIME_DIR", run.temporary());
    environment.insert("XDG_CACHE_HOME", run.home() + "/.cache");
    environment.insert("KX_RECORD_OPENS", record);
    environment.insert("LD_PRELOAD", KX_RECORDER);
    // Nothing is started to speak with the rest of a desktop.
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    environment.insert("NO_AT_BRIDGE", "1");
    if (!atDisplay) {
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.remove("DISPLAY");
    }
    return environment;
}

}  // namespace

RecordedRun::RecordedRun() {
    for (const QString& folder : {work(), home(), temporary()}) {
        QDir().mkpath(folder);
    }
}

QString RecordedRun::write(const QString& name, const QByteArray& content) const {
    QFile file(work() + "/" + name);
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("can't write %s", qUtf8Printable(file.fileName()));
    }
    return file.fileName();
}

bool RecordedRun::run(const QString& program, const QStringList& arguments, bool atDisplay) {
    const QString record = m_folder.filePath("record");
    QFile::remove(record);
    QProcess process;
    process.setProcessEnvironment(environmentOf(*this, record, atDisplay));
    process.setWorkingDirectory(work());
    process.start(program, arguments);
    const bool ended = process.waitForFinished(kLimitMs);
    process.kill();
    m_output = process.readAllStandardOutput();
    m_messages = process.readAllStandardError();
    QFile file(record);
    m_record.clear();
    if (file.open(QIODevice::ReadOnly)) {
        m_record = QString::fromLocal8Bit(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

QStringList RecordedRun::foreign(const QStringList& named) const {
    const QString installed = QFileInfo(QFileInfo(KX_GCODE).path()).path() + "/";
    const auto isKnown = [&](const QString& line) {
        const QString what = line.section(' ', 0, 0);
        const QString name = line.section(' ', 1);
        if (what == "connect") {
            return name == "local";
        }
        const bool isOwn = name.startsWith(installed) || name == KX_ADDIN;
        if (what == "load") {
            return isOwn || isOfSystemLoaded(name);
        }
        return what == "open" &&
               (isOwn || isOfSystem(name) || named.contains(name) || name == home() ||
                name == QString::fromLocal8Bit(qgetenv("XAUTHORITY")) ||
                name.startsWith(home() + "/") || name.startsWith(temporary() + "/"));
    };
    QStringList others;
    std::copy_if(m_record.begin(), m_record.end(), std::back_inserter(others),
                 [&](const QString& line) { return !isKnown(line); });
    others.removeDuplicates();
    return others;
}

QStringList RecordedRun::openedBelow(const QString& folder) const {
    QStringList files;
    for (const QString& line : m_record) {
        if (line.startsWith("open " + folder + "/")) {
            files << line.section(' ', 1);
        }
    }
    files.removeDuplicates();
    return files;
}
