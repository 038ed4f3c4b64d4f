// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QStringList>

/// A command of the host's own.
struct HostCommand {
    /// In capital letters.
    QString name;
    /// What may follow the name, such as "[FILE]"; empty for nothing.
    QString arguments;
    /// One sentence.
    QString help;
    std::function<void(const QStringList& arguments)> run;
    /// Whether it may run while a selection prompt waits.
    bool allowedInPrompt = false;
};

/// The host's commands, by name in any case, in the order they were added.
class CommandTable {
public:
    void add(HostCommand command);
    const HostCommand* find(const QString& name) const;
    const std::vector<HostCommand>& commands() const { return m_commands; }

private:
    std::vector<HostCommand> m_commands;
};

/// The words of a typed line: separated by blanks, "quoted text" is one word; "^C" in front is
/// dropped, as macros of menus have it. Empty for a line of blanks.
QStringList splitCommandLine(const QString& line);
