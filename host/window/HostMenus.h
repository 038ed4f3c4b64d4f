// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QObject>

class AddinPanes;
class HostActions;
class QDockWidget;
class QMainWindow;
class QMenu;
class RecentFiles;

/// The menu bar and the toolbar.
class HostMenus : public QObject {
    Q_OBJECT

public:
    /// All are the window's.
    struct Parts {
        QMainWindow* window = nullptr;
        HostActions* actions = nullptr;
        RecentFiles* recent = nullptr;
        AddinPanes* panes = nullptr;
        QDockWidget* layers = nullptr;
        QDockWidget* commandLine = nullptr;
        QDockWidget* check = nullptr;
    };
    explicit HostMenus(const Parts& parts);

    /// To be filled by others.
    QMenu* tools() const { return m_tools; }

Q_SIGNALS:
    void recentChosen(const QString& path);

private:
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addHelpMenu();
    void addToolBar();
    void fillRecent();
    void fillViewMenu();

    Parts m_parts;
    QMenu* m_recent = nullptr;
    QMenu* m_view = nullptr;
    QMenu* m_tools = nullptr;
};
