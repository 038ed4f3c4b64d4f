// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QStringList>

#include "window/FileStamp.h"

class QTimer;

/// Tells when files change on disk, also when a program replaces them, or a folder above them, by
/// renaming or by removing and making: once for a burst of writes, after it has been quiet for
/// `kQuietMs`. A file that vanishes is said when it is back. What is written anew with the same
/// bytes has not changed.
class FileWatch : public QObject {
    Q_OBJECT

public:
    static constexpr int kQuietMs = 400;

    explicit FileWatch(QObject* parent = nullptr);
    ~FileWatch() override;

    void add(const QString& path);
    void remove(const QString& path);
    /// The file is as the program knows it now; what happened before is not reported. Call it
    /// before a file is read, so that what is written while it is read is still said.
    void accept(const QString& path);

Q_SIGNALS:
    /// With the path as it was added.
    void changed(const QString& path);

private:
    struct Watched {
        QString path;
        /// Its folder and all above.
        QStringList folders;
        /// What the program knows, and what was seen last.
        FileContent known;
        FileStamp seen;
        QTimer* quiet = nullptr;
    };

    void noticeFile(const QString& file);
    void noticeFolder(const QString& folder);
    void noticeActivity(const QString& file, Watched* watched);
    void judge(const QString& file);
    void watchAgain(const QString& file);
    void watchFolders();
    void forgetFolders();

    QFileSystemWatcher m_watcher;
    /// By absolute path.
    std::map<QString, Watched> m_files;
    /// What had the name of each folder when the watch began; no folder when it has none.
    std::map<QString, std::optional<std::uint64_t>> m_folders;
};
