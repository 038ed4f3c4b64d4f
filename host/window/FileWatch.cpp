// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/FileWatch.h"

#include <QFileInfo>
#include <QTimer>

namespace {

QString keyOf(const QString& path) {
    return QFileInfo(path).absoluteFilePath();
}

/// From the root downwards: a folder that is made just after it was looked for is noticed by the
/// one above, which is watched by then.
QStringList foldersAbove(const QString& file) {
    QStringList folders;
    QString folder = file;
    while (folder != "/") {
        folder = QFileInfo(folder).absolutePath();
        folders.prepend(folder);
    }
    return folders;
}

std::optional<std::uint64_t> inodeOf(const QString& folder) {
    const FileStamp stamp = FileStamp::of(folder);
    return stamp.exists ? std::optional(stamp.inode) : std::nullopt;
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
    watched.folders = foldersAbove(file);
    watched.quiet = new QTimer(this);
    watched.quiet->setSingleShot(true);
    watched.quiet->setInterval(kQuietMs);
    connect(watched.quiet, &QTimer::timeout, this, [this, file] { judge(file); });
    Watched& kept = m_files.emplace(file, watched).first->second;
    // Watched first and looked at then: what happens in between is noticed.
    watchFolders();
    watchAgain(file);
    kept.known = FileContent::of(file);
    kept.seen = kept.known.stamp;
}

void FileWatch::remove(const QString& path) {
    const auto found = m_files.find(keyOf(path));
    if (found == m_files.end()) {
        return;
    }
    delete found->second.quiet;
    m_watcher.removePath(found->first);
    m_files.erase(found);
    forgetFolders();
}

void FileWatch::forgetFolders() {
    std::map<QString, std::optional<std::uint64_t>> needed;
    for (const auto& [file, watched] : m_files) {
        for (const QString& folder : watched.folders) {
            needed.insert(*m_folders.find(folder));
        }
    }
    for (const auto& [folder, inode] : m_folders) {
        if (needed.count(folder) == 0) {
            m_watcher.removePath(folder);
        }
    }
    m_folders = needed;
}

void FileWatch::watchFolders() {
    for (const auto& [file, watched] : m_files) {
        for (const QString& folder : watched.folders) {
            const auto known = m_folders.find(folder);
            const std::optional<std::uint64_t> now = inodeOf(folder);
            // A folder that was removed has lost its watch, and the next one may get its number.
            const bool isWatched = known != m_folders.end() && known->second == now &&
                                   (!now || m_watcher.directories().contains(folder));
            if (!isWatched) {
                m_watcher.removePath(folder);
                m_folders[folder] = now && m_watcher.addPath(folder) ? now : std::nullopt;
            }
        }
    }
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
    watchFolders();
    // Other files of the folder may never come to rest: they must not put this one off.
    for (auto& [file, watched] : m_files) {
        if (watched.folders.contains(folder) && FileStamp::of(file) != watched.seen) {
            noticeActivity(file, &watched);
        }
    }
}

void FileWatch::noticeActivity(const QString& file, Watched* watched) {
    const FileStamp now = FileStamp::of(file);
    // A file that was removed has lost its watch, and the next one may get its number.
    if (now.inode != watched->seen.inode || now.exists != watched->seen.exists ||
        !m_watcher.files().contains(file)) {
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
