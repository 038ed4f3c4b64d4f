// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

/// The files that were opened last, newest first, kept with QSettings.
class RecentFiles : public QObject {
    Q_OBJECT

public:
    static constexpr int kMaxFiles = 10;

    explicit RecentFiles(QObject* parent = nullptr);

    const QStringList& files() const { return m_files; }
    void add(const QString& path);
    void remove(const QString& path);
    void clear();

Q_SIGNALS:
    void changed();

private:
    void load();
    void store();

    QStringList m_files;
};
