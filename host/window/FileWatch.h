// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QString>

/// Tells when files change on disk, also when a program replaces them by renaming: once for a
/// burst of writes, after it has been quiet for `kQuietMs`. A file that vanishes is said when it is
/// back.
class FileWatch : public QObject {
    Q_OBJECT

public:
    static constexpr int kQuietMs = 400;

    explicit FileWatch(QObject* parent = nullptr);
    ~FileWatch() override;

    void add(const QString& path);
    void remove(const QString& path);
    /// The file is as the program knows it now; what happened before is not reported.
    void accept(const QString& path);

Q_SIGNALS:
    void changed(const QString& path);
};
