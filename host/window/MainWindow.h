// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>

#include <QMainWindow>

#include "window/HostOptions.h"
#include "window/HostSettings.h"

class AddinPanes;
class CommandInput;
class CommandLine;
class CommandRunner;
class CommandTable;
class DrawingTab;
class Drawings;
class HelpWindow;
class HostActions;
class HostMenus;
class HostSession;
class HostStatusBar;
class LayersDock;
class MeasureTool;
class ProgramCheck;
class QStackedWidget;
class QTabWidget;
class RecentFiles;
class SelectionKeeper;
class SelectionPrompt;
class ToolsMenu;
class WhenIdle;
struct HostParts;

/// The window of kxhost: puts the parts together and passes on what happens in one to the others.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// Loads the add-in that is found and those that are named. Failures are said on the command
    /// line.
    void loadAddins(const HostOptions& options);
    /// As it was left at the last end, within the screen.
    void restoreLayout();

    Drawings* drawings() const { return m_drawings; }
    HostSession* session() const { return m_session; }
    SelectionPrompt* prompt() const { return m_prompt; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void createParts();
    void createDocks();
    void createCentre();
    void createCommands();
    HostParts commandParts();
    /// In the order of F6.
    QList<QWidget*> areas() const;
    void createMenus();
    void connectSession();
    void connectDrawings();
    void connectCommandLine();
    void attach(DrawingTab* tab);
    void showTab(DrawingTab* tab);
    void tabChanged(DrawingTab* tab);
    void selectionChanged(DrawingTab* tab);
    void updateActions();
    void applySettings();
    void rebuildMenus();
    void tellUnkeptSettings();
    void complain(const QString& line);
    void showFailures(const QStringList& causes);
    void showHelp(const QString& page);
    void openWebHelp(const QString& address);
    void loadAddin(const QString& file);
    void end();

    HostSettings m_settings;
    RecentFiles* m_recent = nullptr;
    SelectionPrompt* m_prompt = nullptr;
    WhenIdle* m_idle = nullptr;
    AddinPanes* m_panes = nullptr;
    HostSession* m_session = nullptr;
    SelectionKeeper* m_selection = nullptr;
    QTabWidget* m_tabs = nullptr;
    QStackedWidget* m_centre = nullptr;
    Drawings* m_drawings = nullptr;
    LayersDock* m_layers = nullptr;
    QDockWidget* m_commandDock = nullptr;
    CommandLine* m_commandLine = nullptr;
    HostStatusBar* m_statusBar = nullptr;
    MeasureTool* m_measure = nullptr;
    ProgramCheck* m_check = nullptr;
    HostActions* m_actions = nullptr;
    HostMenus* m_menus = nullptr;
    ToolsMenu* m_toolsMenu = nullptr;
    CommandInput* m_input = nullptr;
    std::unique_ptr<CommandTable> m_commands;
    std::unique_ptr<CommandRunner> m_runner;
    std::unique_ptr<HelpWindow> m_help;
    bool m_hasEnded = false;
};
