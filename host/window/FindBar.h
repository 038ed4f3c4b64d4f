// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTextEdit;

/// Finds text in a page: Enter or F3 forward, with Shift backward, around the ends; Esc hides it.
class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QTextEdit* page, QWidget* parent = nullptr);

    /// Shows it, ready to type.
    void begin();
    void findNext();
    void findPrevious();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void find(bool backward);
    void findWhileTyping();

    QTextEdit* m_page;
    QLineEdit* m_text;
    QLabel* m_message;
};
