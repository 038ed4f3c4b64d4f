// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/AddinFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "InstallFolders.h"

namespace {

constexpr char kLibraryName[] = "libGCodeAddin.so.1";

/// The library at a place, which is a folder or the file itself; empty without.
QString libraryAt(const QString& place) {
    const QFileInfo info(place);
    const QFileInfo library(info.isDir() ? QDir(place).filePath(QString::fromLatin1(kLibraryName))
                                         : place);
    return library.isFile() ? library.absoluteFilePath() : QString();
}

}  // namespace

QString findAddinFrom(const QString& programFolder, const QString& addinPath,
                      QStringList* searched) {
    QStringList places = addinPath.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    const QDir folder(programFolder);
    const QString libraries = QLatin1String("../") + QString::fromLatin1(kLibraryFolder);
    places << folder.path() << QDir::cleanPath(folder.filePath(QStringLiteral("../lib")))
           << QDir::cleanPath(folder.filePath(libraries));
    places.removeDuplicates();
    for (const QString& place : qAsConst(places)) {
        *searched << place;
        const QString library = libraryAt(place);
        if (!library.isEmpty()) {
            return library;
        }
    }
    return {};
}

QString findAddin(QStringList* searched) {
    return findAddinFrom(QCoreApplication::applicationDirPath(),
                         QString::fromLocal8Bit(qgetenv("KX_ADDIN_PATH")), searched);
}
