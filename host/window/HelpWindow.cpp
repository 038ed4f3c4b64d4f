// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HelpWindow.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QShortcut>
#include <QStyle>
#include <QTextBlock>
#include <QToolBar>
#include <QVBoxLayout>

#include "InstallFolders.h"
#include "window/FindBar.h"
#include "window/ManualBrowser.h"
#include "window/SafeSettings.h"

namespace {

constexpr long kPanelTopic = 2250;

QString contentsPage() {
    return QStringLiteral("index.html");
}

QString geometryKey() {
    return QStringLiteral("helpWindow/geometry");
}

}  // namespace

HelpWindow::HelpWindow(const QString& folder, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_folder(folder),
      m_browser(new ManualBrowser(folder)),
      m_findBar(new FindBar(m_browser)) {
    setObjectName(QStringLiteral("helpWindow"));
    m_browser->setObjectName(QStringLiteral("helpPage"));
    m_browser->setFrameShape(QFrame::NoFrame);
    m_browser->document()->setDocumentMargin(14);
    m_findBar->hide();
    auto* const bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addNavigation(bar);
    addKeys();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_findBar);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::takeTitle);
    if (!restoreGeometry(storedLayout(geometryKey()))) {
        resize(760, 640);
    }
}

void HelpWindow::addNavigation(QToolBar* bar) {
    const auto add = [&](QStyle::StandardPixmap icon, const QString& text, const QString& keys) {
        QAction* const action = bar->addAction(style()->standardIcon(icon), text);
        action->setShortcut(QKeySequence(keys));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(text, action->shortcut().toString()));
        return action;
    };
    QAction* const back = add(QStyle::SP_ArrowBack, tr("Back"), QStringLiteral("Alt+Left"));
    QAction* const forward =
        add(QStyle::SP_ArrowForward, tr("Forward"), QStringLiteral("Alt+Right"));
    QAction* const contents =
        add(QStyle::SP_DirHomeIcon, tr("Contents"), QStringLiteral("Alt+Home"));
    bar->addSeparator();
    QAction* const find =
        add(QStyle::SP_FileDialogContentsView, tr("Find"), QStringLiteral("Ctrl+F"));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(contents, &QAction::triggered, this, [this] { goTo(contentsPage()); });
    connect(find, &QAction::triggered, m_findBar, &FindBar::begin);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::addKeys() {
    const auto add = [this](const char* keys) {
        return new QShortcut(QKeySequence(QLatin1String(keys)), this);
    };
    connect(add("F3"), &QShortcut::activated, m_findBar, &FindBar::findNext);
    connect(add("Shift+F3"), &QShortcut::activated, m_findBar, &FindBar::findPrevious);
    connect(add("Ctrl+W"), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::showPage(const QString& page) {
    goTo(page);
    if (isMinimized()) {
        showNormal();
    }
    show();
    raise();
    activateWindow();
}

void HelpWindow::goTo(const QString& page) {
    m_browser->setSource(QUrl::fromLocalFile(QDir(m_folder).absoluteFilePath(page)));
}

void HelpWindow::takeTitle() {
    const QString title = m_browser->documentTitle();
    // A page in Markdown has no title but its heading.
    setWindowTitle(title.isEmpty() ? m_browser->document()->firstBlock().text() : title);
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    storeLayout(geometryKey(), saveGeometry());
    QWidget::closeEvent(event);
}

QString HelpWindow::manualFolder() {
    const QDir program(QCoreApplication::applicationDirPath());
    // The same in the installed place and where the program is built.
    const QString folder =
        program.filePath(QLatin1String("../") + QString::fromLatin1(kManualFolder));
    return QDir(folder).exists() ? QDir::cleanPath(folder) : QString();
}

QString HelpWindow::pageOfTopic(long topic) {
    return topic == kPanelTopic ? QStringLiteral("panel.html") : contentsPage();
}
