// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QFrame>
#include <QString>

class QLabel;
class QPushButton;

/// A line above a drawing that says something and offers answers; it disturbs nobody's work.
/// Hidden until `ask`. The text's object name is "messageText".
class MessageBar : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// Shows a text with a button; the other button, "Ignore", hides the bar.
    void ask(const QString& text, const QString& answer, std::function<void()> accepted);

private:
    QLabel* m_text;
    QPushButton* m_accept;
    std::function<void()> m_accepted;
};
