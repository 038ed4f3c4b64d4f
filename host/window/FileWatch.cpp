// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/FileWatch.h"

#include <QFileInfo>
#include <QTimer>

namespace {

QString keyOf(const QString& path) {
    return QFileInfo(path).absoluteFilePath();
}

}  // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent) {
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatch::noticeFile);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatch::noticeFolder);
}

FileWatch::~FileWatch() = default;

void FileWatch::add(const QString& path) {
    const QString file = keyOf(path);
    if (m_files.count(file) != 0) {
        return;
    }
    Watched watched;
    watched.path = path;
    watched.folder = QFileInfo(file).absolutePath();
    watched.quiet = new QTimer(this);
    watched.quiet->setSingleShot(true);
    watched.quiet->setInterval(kQuietMs);
    connect(watched.quiet, &QTimer::timeout, this, [this, file] { judge(file); });
    // Watched first and looked at then: what happens in between is noticed.
    m_watcher.addPath(watched.folder);
    watchAgain(file);
    watched.known = FileContent::of(file);
    watched.seen = watched.known.stamp;
    m_files.emplace(file, watched);
}

void FileWatch::remove(const QString& path) {
    const auto found = m_files.find(keyOf(path));
    if (found == m_files.end()) {
        return;
    }
    const QString folder = found->second.folder;
    delete found->second.quiet;
    m_watcher.removePath(found->first);
    m_files.erase(found);
    for (const auto& [file, watched] : m_files) {
        if (watched.folder == folder) {
            return;
        }
    }
    m_watcher.removePath(folder);
}

void FileWatch::accept(const QString& path) {
    const auto found = m_files.find(keyOf(path));
    if (found == m_files.end()) {
        return;
    }
    found->second.quiet->stop();
    watchAgain(found->first);
    found->second.known = FileContent::of(found->first);
    found->second.seen = found->second.known.stamp;
}

void FileWatch::watchAgain(const QString& file) {
    // The watch is on what had the name: when another file took it, the watch must be made anew.
    m_watcher.removePath(file);
    if (QFileInfo::exists(file)) {
        m_watcher.addPath(file);
    }
}

void FileWatch::noticeFile(const QString& file) {
    const auto found = m_files.find(file);
    if (found != m_files.end()) {
        noticeActivity(file, &found->second);
    }
}

void FileWatch::noticeFolder(const QString& folder) {
    // Other files of the folder may never come to rest: they must not put this one off.
    for (auto& [file, watched] : m_files) {
        if (watched.folder == folder && FileStamp::of(file) != watched.seen) {
            noticeActivity(file, &watched);
        }
    }
}

void FileWatch::noticeActivity(const QString& file, Watched* watched) {
    const FileStamp now = FileStamp::of(file);
    if (now.inode != watched->seen.inode || now.exists != watched->seen.exists) {
        watchAgain(file);
    }
    watched->seen = now;
    watched->quiet->start();
}

void FileWatch::judge(const QString& file) {
    Watched& watched = m_files.at(file);
    if (FileStamp::of(file) != watched.seen) {
        noticeActivity(file, &watched);
        return;
    }
    const FileContent now = FileContent::of(file);
    if (!now.stamp.exists) {
        return;
    }
    const bool same = now.sameAs(watched.known);
    watched.known = now;
    if (!same) {
        // A copy: whoever is told may stop watching this file.
        const QString path = watched.path;
        Q_EMIT changed(path);
    }
}
