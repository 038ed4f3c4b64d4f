// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

#include "window/KeptSettings.h"

namespace {

QString settingsKey() {
    return QStringLiteral("recentFiles");
}

}  // namespace

RecentFiles::RecentFiles(QObject* parent) : QObject(parent) {
    load();
}

void RecentFiles::load() {
    m_files = QSettings().value(settingsKey()).toStringList().mid(0, kMaxFiles);
}

void RecentFiles::store() {
    QSettings().setValue(settingsKey(), m_files);
    writeSettings();
    Q_EMIT changed();
}

void RecentFiles::add(const QString& path) {
    // Another window may have added its own meanwhile.
    load();
    const QString file = QFileInfo(path).absoluteFilePath();
    m_files.removeAll(file);
    m_files.prepend(file);
    m_files = m_files.mid(0, kMaxFiles);
    store();
}

void RecentFiles::remove(const QString& path) {
    load();
    m_files.removeAll(QFileInfo(path).absoluteFilePath());
    store();
}

void RecentFiles::clear() {
    m_files.clear();
    store();
}
