// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/PaneScrollArea.h"

#include <algorithm>

#include <QCoreApplication>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTimer>

namespace {

// A dock must not force the window to be higher than a small screen.
constexpr int kLeastHeight = 120;
constexpr int kUsualHeight = 600;

}  // namespace

PaneScrollArea::PaneScrollArea(QWidget* pane, int paneWidth) : m_paneWidth(paneWidth) {
    setFrameShape(QFrame::NoFrame);
    // The focus goes to what is in it, and it scrolls there.
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    // The pane has a window of its own, and only one of the viewport's own cuts that off.
    viewport()->setAttribute(Qt::WA_DontCreateNativeAncestors);
    viewport()->setAttribute(Qt::WA_NativeWindow);
    setWidget(pane);
}

int PaneScrollArea::neededWidth() const {
    int width = m_paneWidth;
    if (widget() != nullptr) {
        width = std::max({width, widget()->minimumWidth(), widget()->minimumSizeHint().width()});
    }
    return width + verticalScrollBar()->sizeHint().width();
}

QSize PaneScrollArea::sizeHint() const {
    return {neededWidth(), kUsualHeight};
}

QSize PaneScrollArea::minimumSizeHint() const {
    return {neededWidth(), kLeastHeight};
}

bool PaneScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

bool PaneScrollArea::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    } else if (event->type() == QEvent::Move && isViewportLost()) {
        QTimer::singleShot(0, this, &PaneScrollArea::bringViewportBack);
    }
    return QScrollArea::viewportEvent(event);
}

// A dock behind another tab lies far outside of the window. What the window system says of the
// viewport's own window may come when the dock has moved on, and the toolkit believes it: the
// viewport is then as far outside of this area, and nothing of the pane is seen.
bool PaneScrollArea::isViewportLost() const {
    return !rect().contains(viewport()->geometry());
}

void PaneScrollArea::bringViewportBack() {
    if (isViewportLost()) {
        QResizeEvent again(size(), size());
        QCoreApplication::sendEvent(this, &again);
    }
}
