// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/AddinPanes.h"

#include <algorithm>

#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>

#include <kx/kxApplication.h>

#include "KxText.h"
#include "window/PaneScrollArea.h"

namespace {

QDockWidget::DockWidgetFeatures featuresOf(long flags) {
    QDockWidget::DockWidgetFeatures features = QDockWidget::DockWidgetMovable;
    features.setFlag(QDockWidget::DockWidgetClosable,
                     (flags & kxCustomPropertyControl_MayClose) != 0);
    features.setFlag(QDockWidget::DockWidgetFloatable,
                     (flags & kxCustomPropertyControl_MayFloat) != 0);
    return features;
}

/// A widget with a window of its own, which add-ins know it by.
QWidget* makePane() {
    auto* const pane = new QWidget;
    pane->setAttribute(Qt::WA_DontCreateNativeAncestors);
    pane->setAttribute(Qt::WA_NativeWindow);
    return pane;
}

/// Docks in tabs lie upon each other, and the one in front would not cover the pane's own window.
void hideBehindTabs(QDockWidget* dock) {
    QObject::connect(dock, &QDockWidget::visibilityChanged, dock, [dock](bool isSeen) {
        // Neither is there while the window is destroyed.
        const auto* const window = qobject_cast<QMainWindow*>(dock->parentWidget());
        if (window == nullptr || dock->widget() == nullptr) {
            return;
        }
        const bool isBehind =
            !isSeen && !dock->isHidden() && !window->tabifiedDockWidgets(dock).isEmpty();
        dock->widget()->setVisible(!isBehind);
    });
}

}  // namespace

AddinPanes::AddinPanes(QMainWindow* window) : QObject(window), m_window(window) {
    // Else a pane's own window would give one to every widget of the main window.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
}

kxWindowHandle AddinPanes::create(const kxPaneRequest& request) {
    const QString title = toQString(request.title);
    auto* const dock = new QDockWidget(title, m_window);
    dock->setObjectName(freeName(title));
    dock->setFeatures(featuresOf(request.flags));
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    QWidget* const pane = makePane();
    dock->setWidget(new PaneScrollArea(pane, kPaneWidth));
    hideBehindTabs(dock);
    if (!m_window->restoreDockWidget(dock)) {
        const bool left = request.area == kxCustomPropertyControlArea_Left;
        m_window->addDockWidget(left ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea, dock);
    }
    dock->hide();
    const auto handle = static_cast<kxWindowHandle>(pane->winId());
    m_panes.push_back({handle, dock});
    Q_EMIT changed();
    return handle;
}

QString AddinPanes::freeName(const QString& title) const {
    const QString name = QStringLiteral("pane ") + title;
    QString free = name;
    for (int number = 2; m_window->findChild<QDockWidget*>(free) != nullptr; ++number) {
        free = name + QLatin1Char(' ') + QString::number(number);
    }
    return free;
}

QDockWidget* AddinPanes::dockOf(kxWindowHandle pane) const {
    const auto found = std::find_if(m_panes.begin(), m_panes.end(),
                                    [&](const Pane& each) { return each.handle == pane; });
    return found == m_panes.end() ? nullptr : found->dock.data();
}

void AddinPanes::setVisible(kxWindowHandle pane, bool visible) {
    QDockWidget* const dock = dockOf(pane);
    if (dock == nullptr) {
        return;
    }
    dock->setVisible(visible);
    if (visible) {
        dock->raise();
    }
}

bool AddinPanes::isVisible(kxWindowHandle pane) const {
    const QDockWidget* const dock = dockOf(pane);
    return dock != nullptr && !dock->isHidden();
}

void AddinPanes::destroy(kxWindowHandle pane) {
    const auto found = std::find_if(m_panes.begin(), m_panes.end(),
                                    [&](const Pane& each) { return each.handle == pane; });
    if (found == m_panes.end()) {
        return;
    }
    // At once: the code of what is in it may be unloaded next.
    delete found->dock.data();
    m_panes.erase(found);
    Q_EMIT changed();
}

std::vector<QDockWidget*> AddinPanes::docks() const {
    std::vector<QDockWidget*> docks;
    for (const Pane& pane : m_panes) {
        if (pane.dock) {
            docks.push_back(pane.dock);
        }
    }
    return docks;
}
