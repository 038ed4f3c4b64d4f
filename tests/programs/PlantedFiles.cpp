// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "PlantedFiles.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

PlantedFiles::PlantedFiles(const QString& workFolder) : m_work(workFolder) {
    QDir().mkpath(folder());
}

QStringList PlantedFiles::plant(const QString& name) {
    QFile file(folder() + "/" + name);
    const QString pipe = folder() + "/pipe-" + name;
    const bool isThere = file.exists();
    if (!isThere && (!file.open(QIODevice::WriteOnly) || file.write("planted\n") < 0 ||
                     mkfifo(QFile::encodeName(pipe).constData(), 0600) != 0)) {
        qFatal("can't plant %s", qUtf8Printable(file.fileName()));
    }
    const QString whole = folder() + "/" + name;
    return {whole,
            pipe,
            "planted/" + name,
            "planted/pipe-" + name,
            "./planted/" + name,
            "../" + QFileInfo(m_work).fileName() + "/planted/" + name,
            "planted\\" + name,
            "file://" + whole,
            "file://localhost" + pipe,
            "<img src=\"" + whole + "\">"};
}
