// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandRunner.h"

#include <utility>

#include "KxText.h"

namespace {

const QLatin1Char kUnderscore('_');

}  // namespace

CommandRunner::CommandRunner(CommandTable* table, kxHostApplication_c* application, Print print)
    : m_table(table), m_application(application), m_print(std::move(print)) {}

bool CommandRunner::run(const QString& line) {
    QStringList words = splitCommandLine(line);
    if (words.isEmpty()) {
        return false;
    }
    const QString name = words.takeFirst();
    const QString addinName = addinCommand(name);
    const HostCommand* command = m_table->find(name);
    if (command == nullptr && addinName.isEmpty() && name.startsWith(kUnderscore)) {
        command = m_table->find(name.mid(1));
    }
    if (command == nullptr && addinName.isEmpty()) {
        m_print(tr("Unknown command: %1. Type HELP for the list.").arg(name), true);
        return false;
    }
    if (m_promptActive && (command == nullptr || !command->allowedInPrompt)) {
        refuse(command != nullptr ? command->name : addinName);
        return false;
    }
    if (command == nullptr) {
        return m_application->RunCommand(toKxString(addinName));
    }
    // A copy: the command may change the table.
    const auto action = command->run;
    action(words);
    return true;
}

void CommandRunner::setPromptActive(bool active, const QString& prompt) {
    m_promptActive = active;
    m_prompt = prompt;
}

QStringList CommandRunner::names() const {
    QStringList all = addinNames();
    for (const HostCommand& command : m_table->commands()) {
        all.push_back(command.name);
    }
    all.removeDuplicates();
    all.sort(Qt::CaseInsensitive);
    return all;
}

QStringList CommandRunner::addinNames() const {
    QStringList names;
    if (m_application != nullptr) {
        for (const kxString& name : m_application->GetCommandNames()) {
            names.push_back(toQString(name));
        }
    }
    return names;
}

/// The registered name that a typed one means; empty when there is none.
QString CommandRunner::addinCommand(const QString& typed) const {
    const QStringList names = addinNames();
    QStringList candidates{typed};
    if (!typed.startsWith(kUnderscore)) {
        candidates.push_back(kUnderscore + typed);
    }
    for (const QString& candidate : candidates) {
        for (const QString& name : names) {
            if (name.compare(candidate, Qt::CaseInsensitive) == 0) {
                return name;
            }
        }
    }
    return {};
}

void CommandRunner::refuse(const QString& name) const {
    const QString prompt = m_prompt.isEmpty() ? tr("the selection") : m_prompt;
    m_print(
        tr("%1 cannot run now. First end the prompt \"%2\" with Enter or Esc.").arg(name, prompt),
        true);
}
