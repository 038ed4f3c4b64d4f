// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostMenus.h"

#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "window/AddinPanes.h"
#include "window/HostActions.h"
#include "window/RecentFiles.h"
#include "window/ShownName.h"
#include "window/ToolsMenu.h"

namespace {

constexpr int kIconSize = 20;

/// Adds actions by their commands; an empty one stands for a separator.
template <class Bar>
void addActions(Bar* bar, const HostActions& actions, const QStringList& commands) {
    for (const QString& command : commands) {
        if (command.isEmpty()) {
            bar->addSeparator();
        } else {
            bar->addAction(actions.of(command));
        }
    }
}

QString withoutMnemonic(const QString& text) {
    return QString(text).replace("&", "&&");
}

}  // namespace

HostMenus::HostMenus(const Parts& parts) : QObject(parts.window), m_parts(parts) {
    addToolBar();
    addFileMenu();
    addEditMenu();
    addViewMenu();
    m_tools = m_parts.window->menuBar()->addMenu(tr("&Tools"));
    m_tools->setObjectName("menuTools");
    addHelpMenu();
    // Shortcuts work also while their menu is shorter.
    m_parts.window->addActions(m_parts.actions->all());
}

void HostMenus::addFileMenu() {
    QMenu* menu = m_parts.window->menuBar()->addMenu(tr("&File"));
    menu->setObjectName("menuFile");
    addActions(menu, *m_parts.actions, {"OPEN"});
    m_recent = menu->addMenu(tr("Open Rece&nt"));
    m_recent->setObjectName("menuRecent");
    addActions(menu, *m_parts.actions, {"RELOAD", "CLOSE", "", "QUIT"});
    connect(m_parts.recent, &RecentFiles::changed, this, &HostMenus::fillRecent);
    fillRecent();
}

void HostMenus::fillRecent() {
    m_recent->clear();
    int number = 0;
    for (const QString& path : m_parts.recent->files()) {
        ++number;
        const QString key = number < 10 ? "&" + QString::number(number) : QString::number(number);
        QAction* action = m_recent->addAction(
            key + "  " + withoutMnemonic(shownName(QFileInfo(path).fileName())));
        action->setStatusTip(QDir::toNativeSeparators(path));
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT recentChosen(path); });
    }
    m_recent->setEnabled(!m_recent->isEmpty());
    if (m_recent->isEmpty()) {
        return;
    }
    m_recent->addSeparator();
    // Later: it deletes the action that asks for it.
    connect(m_recent->addAction(tr("&Clear List")), &QAction::triggered, m_parts.recent,
            &RecentFiles::clear, Qt::QueuedConnection);
}

void HostMenus::addEditMenu() {
    QMenu* menu = m_parts.window->menuBar()->addMenu(tr("&Edit"));
    menu->setObjectName("menuEdit");
    addActions(menu, *m_parts.actions,
               {"UNDO", "REDO", "", "SELECTALL", "SELECTLAYER", "SELECTTYPE", "INVERT", "CLEAR", "",
                "EXPLODE"});
    menu->addSeparator();
    QMenu* units = menu->addMenu(tr("Drawing Unit&s"));
    addActions(units, *m_parts.actions, {"UNITS MM", "UNITS INCH"});
}

void HostMenus::addViewMenu() {
    m_view = m_parts.window->menuBar()->addMenu(tr("&View"));
    m_view->setObjectName("menuView");
    connect(m_parts.panes, &AddinPanes::changed, this, &HostMenus::fillViewMenu);
    fillViewMenu();
}

void HostMenus::fillViewMenu() {
    m_view->clear();
    addActions(m_view, *m_parts.actions,
               {"ZOOMFIT", "ZOOMWINDOW", "ZOOMIN", "ZOOMOUT", "", "GRID", "AXES", "CANVAS", "",
                "NEXT", "PREVIOUS", "NEXTAREA", "PREVIOUSAREA", ""});
    m_view->addAction(m_parts.layers->toggleViewAction());
    m_view->addAction(m_parts.commandLine->toggleViewAction());
    m_view->addAction(m_parts.check->toggleViewAction());
    for (QDockWidget* dock : m_parts.panes->docks()) {
        m_view->addAction(dock->toggleViewAction());
    }
    for (QToolBar* bar : m_parts.window->findChildren<QToolBar*>()) {
        m_view->addAction(bar->toggleViewAction());
    }
    addMnemonics(m_view);
}

void HostMenus::addHelpMenu() {
    QMenu* menu = m_parts.window->menuBar()->addMenu(tr("&Help"));
    menu->setObjectName("menuHelp");
    addActions(menu, *m_parts.actions, {"MANUAL", "COMMANDS", "", "ABOUT"});
}

void HostMenus::addToolBar() {
    QToolBar* bar = m_parts.window->addToolBar(tr("Toolbar"));
    bar->setObjectName("mainToolBar");
    bar->setIconSize(QSize(kIconSize, kIconSize));
    addActions(bar, *m_parts.actions,
               {"OPEN",         "RELOAD",  "",          "UNDO",        "REDO",
                "EXPLODE",      "",        "SELECTALL", "SELECTLAYER", "SELECTTYPE",
                "INVERT",       "CLEAR",   "",          "ZOOMFIT",     "ZOOMWINDOW",
                "ZOOMIN",       "ZOOMOUT", "",          "GRID",        "AXES",
                "CANVAS",       "",        "MEASURE",   "INFO",        "TOOLPATHCHECK",
                "CHECKPROGRAM", "",        "MANUAL"});
    m_parts.layers->toggleViewAction()->setIcon(QIcon(":/kxhost/icons/layers.svg"));
}
