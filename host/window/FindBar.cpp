// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>
#include <QToolButton>

FindBar::FindBar(QTextEdit* page, QWidget* parent)
    : QWidget(parent), m_page(page), m_text(new QLineEdit), m_message(new QLabel) {
    setObjectName(QStringLiteral("findBar"));
    m_text->setObjectName(QStringLiteral("findText"));
    m_text->setClearButtonEnabled(true);
    m_message->setObjectName(QStringLiteral("findMessage"));
    auto* const label = new QLabel(tr("F&ind:"));
    label->setBuddy(m_text);
    auto* const next = new QToolButton;
    next->setText(tr("Next"));
    next->setToolTip(tr("Next place (Enter, F3)"));
    auto* const previous = new QToolButton;
    previous->setText(tr("Previous"));
    previous->setToolTip(tr("Previous place (Shift+Enter, Shift+F3)"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(label);
    layout->addWidget(m_text);
    layout->addWidget(next);
    layout->addWidget(previous);
    layout->addWidget(m_message, 1);
    connect(m_text, &QLineEdit::textEdited, this, &FindBar::findWhileTyping);
    connect(next, &QToolButton::clicked, this, &FindBar::findNext);
    connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
}

void FindBar::begin() {
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void FindBar::findNext() {
    find(/*backward=*/false);
}

void FindBar::findPrevious() {
    find(/*backward=*/true);
}

void FindBar::findWhileTyping() {
    // The same place as long as it still fits.
    QTextCursor cursor = m_page->textCursor();
    cursor.setPosition(cursor.selectionStart());
    m_page->setTextCursor(cursor);
    findNext();
}

void FindBar::find(bool backward) {
    m_message->clear();
    if (m_text->text().isEmpty()) {
        return;
    }
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (m_page->find(m_text->text(), flags)) {
        return;
    }
    const QTextCursor before = m_page->textCursor();
    m_page->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (!m_page->find(m_text->text(), flags)) {
        m_page->setTextCursor(before);
        m_message->setText(tr("Not on this page"));
    }
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        m_page->setFocus();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        find(event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}
