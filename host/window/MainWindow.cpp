// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/MainWindow.h"

#include <iostream>
#include <utility>

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QTabWidget>
#include <QThread>
#include <QUrl>

#include "commandline/CommandLine.h"
#include "commandline/CommandRunner.h"
#include "commandline/CommandTable.h"
#include "commandline/SelectionPrompt.h"
#include "view/DrawingView.h"
#include "window/AddinFiles.h"
#include "window/AddinPanes.h"
#include "window/AreaWalk.h"
#include "window/CheckDock.h"
#include "window/CommandInput.h"
#include "window/DrawingTab.h"
#include "window/Drawings.h"
#include "window/HelpWindow.h"
#include "window/HostActions.h"
#include "window/HostMenus.h"
#include "window/HostParts.h"
#include "window/HostSession.h"
#include "window/HostStatusBar.h"
#include "window/KeptSettings.h"
#include "window/LayersDock.h"
#include "window/MeasureTool.h"
#include "window/ProgramCheck.h"
#include "window/RecentFiles.h"
#include "window/SafeSettings.h"
#include "window/SelectionKeeper.h"
#include "window/ShownName.h"
#include "window/ToolPathCheck.h"
#include "window/ToolsMenu.h"
#include "window/WelcomePage.h"
#include "window/WhenIdle.h"

namespace {

constexpr int kLayersWidth = 190;
constexpr int kCommandHeight = 120;
constexpr QSize kFirstSize{1366, 740};
constexpr char kGeometry[] = "window/geometry";
constexpr char kState[] = "window/state";
constexpr char kHistory[] = "window/commandHistory";
/// Raised when docks change so that an old state no longer fits.
constexpr int kStateVersion = 2;

/// The drawings of this machine among what is dragged.
QStringList drawingsIn(const QMimeData& data) {
    QStringList files;
    for (const QUrl& url : data.urls()) {
        const bool isHere =
            url.isLocalFile() && (url.host().isEmpty() || url.host() == "localhost");
        const QString file = isHere ? url.path(QUrl::FullyDecoded) : QString();
        if (file.endsWith(".dxf", Qt::CaseInsensitive)) {
            files.append(file);
        }
    }
    return files;
}

/// Whether an address is of the place that another one names.
bool isBelow(const QUrl& address, const QUrl& place) {
    const QString path = address.adjusted(QUrl::NormalizePathSegments).path();
    const QString above = place.path();
    const bool isInside =
        path == above || path.startsWith(above.endsWith('/') ? above : above + '/');
    return isInside && address.scheme() == place.scheme() &&
           address.authority() == place.authority();
}

/// The name as a window's title takes it, where "[*]" would be left out and "[*][*]" stands for it.
QString titleOf(const DrawingTab& tab) {
    return tab.name().replace("[*]", "[*][*]");
}

}  // namespace

MainWindow::MainWindow() : m_settings(HostSettings::load()) {
    setObjectName("mainWindow");
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    createParts();
    createCentre();
    createDocks();
    createCommands();
    createMenus();
    connectSession();
    connectDrawings();
    connectCommandLine();
    applySettings();
    showTab(nullptr);
    tellUnkeptSettings();
}

MainWindow::~MainWindow() {
    end();
    // While there still is a window to be told what becomes of them.
    qDeleteAll(findChildren<DrawingTab*>());
}

void MainWindow::createParts() {
    m_recent = new RecentFiles(this);
    m_prompt = new SelectionPrompt(this);
    m_idle = new WhenIdle(m_prompt, this);
    m_panes = new AddinPanes(this);
    m_session = new HostSession({m_panes, m_prompt, m_idle}, this);
    m_selection = new SelectionKeeper(m_prompt, this);
    m_statusBar = new HostStatusBar(this);
    setStatusBar(m_statusBar);
    m_measure = new MeasureTool([this](const QString& line) { m_commandLine->print(line); }, this);
}

void MainWindow::createCentre() {
    m_tabs = new QTabWidget;
    m_tabs->setObjectName("drawingTabs");
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_tabs->setDocumentMode(true);
    auto* welcome = new WelcomePage(m_recent);
    connect(welcome, &WelcomePage::openAsked, this, [this] { m_input->run("OPEN"); });
    connect(welcome, &WelcomePage::fileChosen, this,
            [this](const QString& path) { m_drawings->open({path}); });
    m_centre = new QStackedWidget(this);
    m_centre->addWidget(welcome);
    m_centre->addWidget(m_tabs);
    setCentralWidget(m_centre);
    m_drawings = new Drawings({m_session, m_selection, m_idle, m_recent, m_tabs}, this);
}

void MainWindow::createDocks() {
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    m_layers = new LayersDock(this);
    addDockWidget(Qt::LeftDockWidgetArea, m_layers);
    m_commandDock = new QDockWidget(tr("Command Line"), this);
    m_commandDock->setObjectName("commandLineDock");
    m_commandLine = new CommandLine(m_commandDock);
    m_commandDock->setWidget(m_commandLine);
    addDockWidget(Qt::BottomDockWidgetArea, m_commandDock);
    m_check = new ProgramCheck({this, m_drawings, m_selection,
                                [this](const QString& line) { m_commandLine->print(line); },
                                [this](const QString& line) { complain(line); },
                                [this](const QString& page) { showHelp(page); }});
    addDockWidget(Qt::LeftDockWidgetArea, m_check->dock());
    tabifyDockWidget(m_layers, m_check->dock());
    m_check->dock()->hide();
}

void MainWindow::createCommands() {
    m_commands = std::make_unique<CommandTable>();
    const HostParts parts = commandParts();
    addFileCommands(parts);
    addSelectionCommands(parts);
    addEditCommands(parts);
    addViewCommands(parts);
    addToolCommands(parts);
    m_runner = std::make_unique<CommandRunner>(
        m_commands.get(), m_session->application(), [this](const QString& line, bool isError) {
            isError ? complain(line) : m_commandLine->print(line);
        });
    m_input = new CommandInput({m_commandLine, m_runner.get(), m_prompt, m_idle}, this);
}

HostParts MainWindow::commandParts() {
    HostParts parts;
    parts.window = this;
    parts.commands = m_commands.get();
    parts.session = m_session;
    parts.drawings = m_drawings;
    parts.selection = m_selection;
    parts.measure = m_measure;
    parts.settings = &m_settings;
    parts.say = [this](const QString& line) { m_commandLine->print(line); };
    parts.complain = [this](const QString& line) { complain(line); };
    parts.settingsChanged = [this] {
        m_settings.save();
        applySettings();
        tellUnkeptSettings();
    };
    parts.showManual = [this] { showHelp(HelpWindow::pageOfTopic(0)); };
    parts.checkProgram = [this](const QString& file) { m_check->run(file); };
    parts.walkAreas = [this](int by) { AreaWalk([this] { return areas(); }).step(by); };
    return parts;
}

QList<QWidget*> MainWindow::areas() const {
    const DrawingTab* tab = m_drawings->current();
    QWidget* const centre = tab != nullptr ? tab->view() : m_centre->currentWidget();
    QList<QWidget*> areas{centre, m_commandLine};
    for (QDockWidget* dock : m_panes->docks()) {
        areas.append(dock->widget());
    }
    areas.append(m_layers->widget());
    areas.append(m_check->dock()->widget());
    return areas;
}

void MainWindow::createMenus() {
    m_actions = new HostActions([this](const QString& command) { m_input->run(command); },
                                [this](const QString& command) {
                                    const HostCommand* known = m_commands->find(command);
                                    return known != nullptr && known->allowedInPrompt;
                                },
                                this);
    m_menus = new HostMenus(
        {this, m_actions, m_recent, m_panes, m_layers, m_commandDock, m_check->dock()});
    connect(m_menus, &HostMenus::recentChosen, this,
            [this](const QString& path) { m_drawings->open({path}); });
    m_toolsMenu = new ToolsMenu(m_session->application(), m_actions, m_menus->tools(),
                                [this](const QString& macro) { m_input->runMacro(macro); });
}

void MainWindow::connectSession() {
    connect(m_session, &HostSession::printed, m_commandLine, &CommandLine::print);
    connect(m_session, &HostSession::userInterfaceChanged, this, &MainWindow::rebuildMenus);
    connect(m_session, &HostSession::webHelpAsked, this, &MainWindow::openWebHelp);
    connect(m_session, &HostSession::localHelpAsked, this,
            [this](long topic) { showHelp(HelpWindow::pageOfTopic(topic)); });
}

void MainWindow::connectDrawings() {
    connect(m_recent, &RecentFiles::changed, this, &MainWindow::tellUnkeptSettings);
    connect(m_drawings, &Drawings::said, m_commandLine, &CommandLine::print);
    connect(m_drawings, &Drawings::failed, this, &MainWindow::showFailures);
    connect(m_drawings, &Drawings::added, this, &MainWindow::attach);
    connect(m_drawings, &Drawings::currentChanged, this, &MainWindow::showTab);
    connect(m_selection, &SelectionKeeper::changed, this, &MainWindow::selectionChanged);
    connect(m_statusBar, &HostStatusBar::unitChosen, this,
            [this](short unit) { m_input->run(unit == 0 ? "UNITS INCH" : "UNITS MM"); });
}

void MainWindow::connectCommandLine() {
    m_commandLine->history().setLines(QSettings().value(kHistory).toStringList());
    connect(m_input, &CommandInput::promptChanged, this, [this](bool active) {
        updateActions();
        DrawingTab* tab = m_drawings->current();
        if (active && tab != nullptr) {
            // Where objects are pointed at, and Enter and Escape end it.
            tab->view()->setFocus();
            QString hint = m_commandLine->prompt();
            hint.chop(hint.endsWith(':') ? 1 : 0);
            m_statusBar->setHint(hint);
        } else {
            m_statusBar->setHint(QString());
        }
    });
    connect(m_input, &CommandInput::escaped, this, [this] {
        if (DrawingTab* tab = m_drawings->current()) {
            m_selection->replace(tab, {});
        }
    });
}

void MainWindow::attach(DrawingTab* tab) {
    tab->view()->setOptions(m_settings.canvas);
    m_measure->attach(tab);
    connect(tab, &DrawingTab::typed, this, [this](const QString& text) {
        m_commandDock->show();
        m_commandLine->typeHere(text);
    });
    connect(tab->view(), &DrawingView::hintChanged, m_statusBar, &HostStatusBar::setHint);
    connect(tab->view(), &DrawingView::cursorLeft, m_statusBar, &HostStatusBar::clearCursor);
    connect(tab->view(), &DrawingView::cursorMoved, this, [this, tab](const QPointF& world) {
        m_statusBar->setCursor(world, tab->view()->transform().scale());
    });
    connect(tab, &DrawingTab::unitChanged, this, [this, tab] { tabChanged(tab); });
    connect(tab, &DrawingTab::objectsChanged, this, [this, tab] { tabChanged(tab); });
    connect(tab->undoStack(), &QUndoStack::indexChanged, this, [this] { updateActions(); });
}

void MainWindow::showTab(DrawingTab* tab) {
    m_centre->setCurrentIndex(tab != nullptr ? 1 : 0);
    m_layers->setTab(tab);
    m_statusBar->clearCursor();
    m_statusBar->setHint(QString());
    setWindowTitle(tab != nullptr ? tr("%1 - kxhost").arg(titleOf(*tab)) : tr("kxhost"));
    tabChanged(tab);
    selectionChanged(tab);
    m_toolsMenu->rebuild(tab != nullptr);
}

void MainWindow::tabChanged(DrawingTab* tab) {
    if (tab == m_drawings->current()) {
        m_statusBar->setUnit(tab != nullptr ? tab->unitName() : QString());
        updateActions();
    }
}

void MainWindow::selectionChanged(DrawingTab* tab) {
    const DrawingTab* current = m_drawings->current();
    if (current == nullptr) {
        m_statusBar->setSelection(QString());
    } else if (tab == nullptr || tab == current) {
        m_statusBar->setSelection(ToolPathCheck(m_selection->selected(current)).shortText());
    }
}

void MainWindow::updateActions() {
    DrawingTab* tab = m_drawings->current();
    HostActions::State state;
    state.hasDrawing = tab != nullptr;
    state.canUndo = tab != nullptr && tab->undoStack()->canUndo();
    state.canRedo = tab != nullptr && tab->undoStack()->canRedo();
    state.isPrompting = m_prompt->isActive();
    state.grid = m_settings.canvas.grid;
    state.axes = m_settings.canvas.axes;
    state.lightCanvas = m_settings.canvas.canvas == Canvas::Light;
    m_actions->update(state);
}

void MainWindow::applySettings() {
    for (DrawingTab* tab : m_drawings->all()) {
        tab->view()->setOptions(m_settings.canvas);
    }
    m_session->application()->SetHelp(m_settings.help());
    updateActions();
}

void MainWindow::rebuildMenus() {
    m_toolsMenu->rebuild(m_drawings->current() != nullptr);
    m_commandLine->setCompletions(m_runner->names());
}

void MainWindow::tellUnkeptSettings() {
    const QString failure = untoldSettingsFailure();
    if (!failure.isEmpty()) {
        complain(failure);
    }
}

void MainWindow::complain(const QString& line) {
    m_commandLine->printError(line);
}

void MainWindow::showFailures(const QStringList& causes) {
    for (const QString& cause : causes) {
        complain(cause);
    }
    QMessageBox box(QMessageBox::Warning, tr("Drawing Not Opened"), causes.join("\n\n"),
                    QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MainWindow::showHelp(const QString& page) {
    if (!m_help) {
        m_help = std::make_unique<HelpWindow>(HelpWindow::manualFolder());
    }
    m_help->showPage(page);
}

void MainWindow::openWebHelp(const QString& address) {
    const QUrl url(address);
    const bool isWeb = url.scheme() == "https" || url.scheme() == "http";
    if (!isWeb || url.host().isEmpty()) {
        complain(tr("There is no web address for help. SETTINGS holds it."));
    } else if (!isBelow(url, QUrl(m_settings.webLink))) {
        complain(tr("The help is not at the web address of the settings: %1").arg(address));
    } else if (!QDesktopServices::openUrl(url)) {
        complain(tr("No browser could be opened for %1").arg(address));
    }
}

void MainWindow::loadAddins(const HostOptions& options) {
    if (!options.withoutAddins) {
        QStringList searched;
        const QString found = findAddin(&searched);
        if (found.isEmpty()) {
            complain(tr("No add-in was found. Looked in: %1").arg(searched.join(", ")));
        } else {
            loadAddin(found);
        }
    }
    for (const QString& file : options.addins) {
        loadAddin(file);
    }
    rebuildMenus();
}

void MainWindow::loadAddin(const QString& file) {
    QString error;
    if (!m_session->loadAddin(file, &error)) {
        complain(tr("The add-in can't be loaded: %1").arg(shownName(error)));
    }
}

void MainWindow::restoreLayout() {
    QList<QDockWidget*> shown;
    for (QDockWidget* dock : m_panes->docks()) {
        if (!dock->isHidden()) {
            shown.append(dock);
        }
    }
    if (!restoreGeometry(storedLayout(kGeometry))) {
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        resize(kFirstSize.boundedTo(screen));
    }
    if (!restoreState(storedLayout(kState), kStateVersion)) {
        resizeDocks({m_layers}, {kLayersWidth}, Qt::Horizontal);
        resizeDocks({m_commandDock}, {kCommandHeight}, Qt::Vertical);
    }
    // What an add-in shows at its start is shown, however it was left.
    for (QDockWidget* dock : shown) {
        dock->show();
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!m_idle->isIdle()) {
        event->ignore();
        m_idle->run([this] { close(); });
        return;
    }
    if (QThread::currentThread()->loopLevel() > 1) {
        // A dialog waits below, perhaps that of an add-in, which must not be unloaded before its
        // code has returned: the rest is done when the program ends.
        event->accept();
        m_help.reset();
        QCoreApplication::quit();
        return;
    }
    end();
    event->accept();
}

void MainWindow::end() {
    if (std::exchange(m_hasEnded, true)) {
        return;
    }
    storeLayout(kGeometry, saveGeometry());
    storeLayout(kState, saveState(kStateVersion));
    QSettings().setValue(kHistory, m_commandLine->history().lines());
    if (!writeSettings()) {
        // Nobody sees the command line any more.
        std::cerr << "kxhost: " + settingsFailure().toStdString() + "\n";
    }
    m_check->stop();
    m_drawings->closeAll();
    m_session->unloadAddins();
    m_help.reset();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!drawingsIn(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QStringList files = drawingsIn(*event->mimeData());
    event->acceptProposedAction();
    // The program that is dragged from waits until the drop is answered.
    QMetaObject::invokeMethod(
        this, [this, files] { m_drawings->open(files); }, Qt::QueuedConnection);
}
