// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/AreaWalk.h"

#include <utility>

#include <QApplication>
#include <QWidget>

namespace {

bool takesFocus(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isVisible() && widget.isEnabled();
}

/// Where the focus goes in an area; null when nothing there takes it.
QWidget* entryOf(QWidget* area) {
    QWidget* const last = area->focusWidget();
    if (last != nullptr && takesFocus(*last)) {
        return last;
    }
    if (takesFocus(*area)) {
        return area;
    }
    for (QWidget* next = area->nextInFocusChain(); next != area; next = next->nextInFocusChain()) {
        if (area->isAncestorOf(next) && takesFocus(*next)) {
            return next;
        }
    }
    return nullptr;
}

}  // namespace

AreaWalk::AreaWalk(Areas areas) : m_areas(std::move(areas)) {}

void AreaWalk::step(int by) const {
    QList<QWidget*> entries;
    int current = by > 0 ? -1 : 0;
    const QWidget* focused = QApplication::focusWidget();
    for (QWidget* area : m_areas()) {
        QWidget* const entry = area->isVisible() ? entryOf(area) : nullptr;
        if (entry == nullptr) {
            continue;
        }
        if (focused != nullptr && (area == focused || area->isAncestorOf(focused))) {
            current = entries.size();
        }
        entries.append(entry);
    }
    if (entries.isEmpty()) {
        return;
    }
    QWidget* const target = entries.at((current + by + entries.size()) % entries.size());
    // A dock that floats is a window of its own.
    target->activateWindow();
    target->setFocus(Qt::ShortcutFocusReason);
}
