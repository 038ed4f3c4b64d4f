// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CompletionPopup.h"

#include <algorithm>

#include <QEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>

namespace {

constexpr int kMaxRows = 8;

bool endsOffer(QEvent::Type type) {
    return type == QEvent::Move || type == QEvent::Resize || type == QEvent::Hide ||
           type == QEvent::Close || type == QEvent::WindowDeactivate ||
           type == QEvent::WindowStateChange;
}

}  // namespace

CompletionPopup::CompletionPopup(QLineEdit* field) : QListWidget(field), m_field(field) {
    setWindowFlags(Qt::ToolTip);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAccessibleName(tr("Commands that begin with the typed text"));
    m_field->installEventFilter(this);
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Q_EMIT picked(item->text()); });
}

void CompletionPopup::offer(const QStringList& names, int current) {
    if (names.isEmpty()) {
        hide();
        return;
    }
    setFont(m_field->font());
    clear();
    addItems(names);
    setCurrentRow(current);
    setGeometry(place());
    show();
    raise();
}

void CompletionPopup::step(int by) {
    const int states = count() + 1;
    setCurrentRow((currentRow() + 1 + by + states) % states - 1);
}

QString CompletionPopup::highlighted() const {
    const QListWidgetItem* item = isVisible() ? currentItem() : nullptr;
    return item == nullptr ? QString() : item->text();
}

/// Above the field, because it stands at the bottom of its window; below when there is no room.
QRect CompletionPopup::place() const {
    const int rows = std::min(count(), kMaxRows);
    const int height = rows * sizeHintForRow(0) + 2 * frameWidth();
    const int scrollBar = count() > kMaxRows ? verticalScrollBar()->sizeHint().width() : 0;
    const int margin = fontMetrics().averageCharWidth() * 2;
    const int width = sizeHintForColumn(0) + margin + scrollBar + 2 * frameWidth();
    const QPoint top = m_field->mapToGlobal(QPoint(0, 0));
    const QRect screen = m_field->screen()->availableGeometry();
    const bool fitsAbove = top.y() - height >= screen.top();
    const int left = std::max(screen.left(), std::min(top.x(), screen.right() + 1 - width));
    return {left, fitsAbove ? top.y() - height : top.y() + m_field->height(), width, height};
}

bool CompletionPopup::eventFilter(QObject* watched, QEvent* event) {
    const bool fieldIsLeft = watched == m_field && event->type() == QEvent::FocusOut;
    if (fieldIsLeft || (watched == m_watchedWindow && endsOffer(event->type()))) {
        hide();
    }
    return QListWidget::eventFilter(watched, event);
}

void CompletionPopup::showEvent(QShowEvent* event) {
    m_watchedWindow = m_field->window();
    m_watchedWindow->installEventFilter(this);
    QListWidget::showEvent(event);
}

void CompletionPopup::hideEvent(QHideEvent* event) {
    if (m_watchedWindow != nullptr) {
        m_watchedWindow->removeEventFilter(this);
        m_watchedWindow = nullptr;
    }
    QListWidget::hideEvent(event);
}
