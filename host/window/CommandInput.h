// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <kx/host/kxHostCallbacks.h>

class CommandLine;
class CommandRunner;
class SelectionPrompt;
class WhenIdle;

/// Where commands come in: typed lines, answers to a prompt, actions and macros of menus.
class CommandInput : public QObject {
    Q_OBJECT

public:
    /// All outlive the input.
    struct Parts {
        CommandLine* line = nullptr;
        CommandRunner* runner = nullptr;
        SelectionPrompt* prompt = nullptr;
        WhenIdle* idle = nullptr;
    };
    explicit CommandInput(const Parts& parts, QObject* parent = nullptr);

    /// Runs a command and remembers it for an empty Enter.
    void run(const QString& line);
    /// Runs what a menu item holds; "^C" in front ends a prompt first.
    void runMacro(const QString& macro);

Q_SIGNALS:
    /// A prompt began or ended.
    void promptChanged(bool active);
    /// Escape on an empty command line, without a prompt.
    void escaped();

private:
    void take(const QString& line);
    void begin(const kxSelectionRequest& request);
    void end();
    void cancel();

    Parts m_parts;
    QString m_last;
    QString m_keyword;
};
