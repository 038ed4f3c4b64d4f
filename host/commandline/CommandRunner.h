// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <kx/host/kxHostApplication.h>

#include "commandline/CommandTable.h"

/// Runs typed lines: a command of the host's own, else one that an add-in registered, with or
/// without a leading underscore. A name that is neither is said: "Unknown command: NAME".
class CommandRunner {
    Q_DECLARE_TR_FUNCTIONS(CommandRunner)

public:
    using Print = std::function<void(const QString& line, bool isError)>;
    CommandRunner(CommandTable* table, kxHostApplication_c* application, Print print);

    /// False when the line holds no command that there is, or one that may not run now.
    bool run(const QString& line);
    /// While true, only commands that are allowed in a prompt run; for others it is said that
    /// `prompt` must be ended first.
    void setPromptActive(bool active, const QString& prompt = QString());
    /// The names of all commands, sorted, for completion.
    QStringList names() const;

private:
    QStringList addinNames() const;
    QString addinCommand(const QString& typed) const;
    void refuse(const QString& name) const;

    CommandTable* m_table;
    kxHostApplication_c* m_application;
    Print m_print;
    bool m_promptActive = false;
    QString m_prompt;
};
