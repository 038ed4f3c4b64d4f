// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandLog.h"

#include <algorithm>

#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr int kErrorState = 1;
constexpr int kHintedLines = 6;

/// Red that is readable on the background of the palette.
QColor errorColor(const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20);
}

}  // namespace

CommandLog::CommandLog(int maxLines, QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setMaximumBlockCount(maxLines);
    document()->setDocumentMargin(2);
}

void CommandLog::append(const QString& text, bool isError) {
    const bool follow = isAtEnd();
    const QTextBlock first = firstVisibleBlock();
    const int firstNumber = first.blockNumber();
    const int offset = verticalScrollBar()->value() - first.firstLineNumber();
    const int countBefore = m_isEmpty ? 0 : blockCount();
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        appendBlock(line, isError);
    }
    if (follow) {
        scrollToEnd();
        return;
    }
    // The oldest lines may have gone, and those that the user reads have moved up by as many.
    const int removed = countBefore + lines.size() - blockCount();
    const QTextBlock stays = document()->findBlockByNumber(std::max(0, firstNumber - removed));
    verticalScrollBar()->setValue(stays.firstLineNumber() + offset);
}

void CommandLog::appendBlock(const QString& line, bool isError) {
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    if (!m_isEmpty) {
        cursor.insertBlock();
    }
    QTextCharFormat format;
    if (isError) {
        format.setForeground(errorColor(palette()));
    }
    cursor.setBlockCharFormat(format);
    QString shown = line;
    shown.remove(QLatin1Char('\r'));
    cursor.insertText(shown, format);
    cursor.block().setUserState(isError ? kErrorState : -1);
    cursor.endEditBlock();
    m_isEmpty = false;
}

QSize CommandLog::sizeHint() const {
    return {QPlainTextEdit::sizeHint().width(), heightOf(kHintedLines)};
}

QSize CommandLog::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 20, heightOf(1)};
}

int CommandLog::heightOf(int lines) const {
    const double margins = 2 * (document()->documentMargin() + frameWidth());
    return fontMetrics().lineSpacing() * lines + static_cast<int>(margins);
}

void CommandLog::resizeEvent(QResizeEvent* event) {
    const bool follow = isAtEnd();
    QPlainTextEdit::resizeEvent(event);
    if (follow) {
        scrollToEnd();
    }
}

void CommandLog::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colorErrors();
    }
}

void CommandLog::colorErrors() {
    QTextCharFormat format;
    format.setForeground(errorColor(palette()));
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.userState() == kErrorState) {
            QTextCursor cursor(block);
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(format);
        }
    }
}

bool CommandLog::isAtEnd() const {
    return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

void CommandLog::scrollToEnd() {
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}
