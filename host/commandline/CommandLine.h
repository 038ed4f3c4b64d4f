// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

#include "commandline/CommandCompletion.h"
#include "commandline/CommandHistory.h"

class CommandLog;
class CompletionPopup;
class QKeyEvent;
class QLabel;
class QLineEdit;

/// The command line: what was said above, a field to type in below. Object names:
/// "commandLog", "commandPrompt", "commandInput". Enter reports the line, an empty one too;
/// Escape clears the field, or is reported when it is empty; up and down walk the history;
/// Tab completes, and the completions pop up while typing ("commandCompletions"): Down goes into
/// them, Enter or a click takes one into the field, Escape closes them.
class CommandLine : public QWidget {
    Q_OBJECT

public:
    explicit CommandLine(QWidget* parent = nullptr);

    /// Appends a line; the oldest go beyond `kMaxLogLines`.
    void print(const QString& line);
    /// The same, marked as an error.
    void printError(const QString& line);
    QString text() const;
    /// What stands before the field, such as "Command:" or the prompt of a selection.
    void setPrompt(const QString& prompt);
    QString prompt() const;
    void setCompletions(const QStringList& names);
    CommandHistory& history() { return m_history; }
    /// Puts a character that was typed elsewhere into the field and the focus there.
    void typeHere(const QString& text);

    static constexpr int kMaxLogLines = 5000;
    static QString idlePrompt();

Q_SIGNALS:
    /// Without the blanks around it; of several pasted lines each, in order.
    void entered(const QString& line);
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void lay();
    bool handleInputKey(const QKeyEvent& event);
    bool handleLogKey(const QKeyEvent& event);
    void enter();
    void report(const QString& line);
    void reportAll(const QStringList& lines);
    void takeTyped(const QString& text);
    void walkUp();
    void walkDown();
    bool complete(int step);
    void escape();

    CommandLog* m_log = nullptr;
    QLabel* m_prompt = nullptr;
    QLineEdit* m_input = nullptr;
    CompletionPopup* m_popup = nullptr;
    CommandHistory m_history;
    CommandCompletion m_completion;
};
