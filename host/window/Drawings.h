// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

#include "window/FileWatch.h"

class DrawingTab;
class HostSession;
class QTabWidget;
class RecentFiles;
class SelectionKeeper;
class WhenIdle;

/// The drawings that are open, as tabs. The tab in front is the application's active drawing.
class Drawings : public QObject {
    Q_OBJECT

public:
    /// All outlive the drawings.
    struct Parts {
        HostSession* session = nullptr;
        SelectionKeeper* selection = nullptr;
        WhenIdle* idle = nullptr;
        RecentFiles* recent = nullptr;
        QTabWidget* tabs = nullptr;
    };
    enum class Opening { Opened, WasOpen, Cancelled, Failed };

    explicit Drawings(const Parts& parts, QObject* parent = nullptr);

    /// Null when no drawing is open.
    DrawingTab* current() const;
    QList<DrawingTab*> all() const;
    DrawingTab* find(const QString& path) const;

    /// Opens drawings one after another, later if something waits; tells what became of them.
    void open(const QStringList& paths);
    /// Opens a drawing and brings it to the front; what is open already comes to the front.
    Opening openNow(const QString& path, QString* error);
    /// Reads the file again, later if something waits; a failure leaves what is open.
    void reload(DrawingTab* tab);
    void close(DrawingTab* tab);
    void closeAll();
    /// Brings the drawing that is so many tabs further to the front, around the end.
    void walk(int step);

Q_SIGNALS:
    /// Null when none is left.
    void currentChanged(DrawingTab* tab);
    void added(DrawingTab* tab);
    void said(const QString& line);
    /// Drawings that could not be opened or read again, each with file, line and cause.
    void failed(const QStringList& causes);

private:
    void openAll(const QStringList& paths);
    void reloadNow(DrawingTab* tab);
    void closeNow(DrawingTab* tab);
    void addTab(DrawingTab* tab);
    void activateCurrent();
    void followTab();
    void offerReload(const QString& path);
    void tellOpened(const DrawingTab& tab, const QString& verb);
    void tellUnit(DrawingTab* tab);

    Parts m_parts;
    FileWatch m_watch;
    bool m_isReloading = false;
};
