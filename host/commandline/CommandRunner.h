// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QString>
#include <QStringList>

#include <kx/host/kxHostApplication.h>

#include "commandline/CommandTable.h"

/// Runs typed lines: a command of the host's own, else one that an add-in registered, with or
/// without a leading underscore. A name that is neither is said: "Unknown command: NAME".
class CommandRunner {
public:
    using Print = std::function<void(const QString& line, bool isError)>;
    CommandRunner(CommandTable* table, kxHostApplication_c* application, Print print);

    /// False when the line holds no command that there is, or one that may not run now.
    bool run(const QString& line);
    /// While true, only commands that are allowed in a prompt run.
    void setPromptActive(bool active) { m_promptActive = active; }
    /// The names of all commands, sorted, for completion.
    QStringList names() const;

private:
    CommandTable* m_table;
    kxHostApplication_c* m_application;
    Print m_print;
    bool m_promptActive = false;
};
