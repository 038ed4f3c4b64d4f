// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CommandInput.h"

#include "KxText.h"
#include "commandline/CommandLine.h"
#include "commandline/CommandRunner.h"
#include "commandline/SelectionPrompt.h"
#include "window/WhenIdle.h"

CommandInput::CommandInput(const Parts& parts, QObject* parent) : QObject(parent), m_parts(parts) {
    connect(m_parts.line, &CommandLine::entered, this, &CommandInput::take);
    connect(m_parts.line, &CommandLine::cancelled, this, &CommandInput::cancel);
    connect(m_parts.prompt, &SelectionPrompt::started, this, &CommandInput::begin);
    connect(m_parts.prompt, &SelectionPrompt::ended, this, &CommandInput::end);
}

void CommandInput::take(const QString& line) {
    const bool isAnswer = line.isEmpty() || (!m_keyword.isEmpty() &&
                                             line.compare(m_keyword, Qt::CaseInsensitive) == 0);
    if (m_parts.prompt->isActive() && isAnswer) {
        m_parts.prompt->finish();
    } else if (!line.isEmpty()) {
        run(line);
    } else if (!m_last.isEmpty()) {
        m_parts.line->print(CommandLine::idlePrompt() + " " + m_last);
        run(m_last);
    }
}

void CommandInput::run(const QString& line) {
    if (!m_parts.prompt->isActive()) {
        m_last = line;
    }
    m_parts.runner->run(line);
}

void CommandInput::runMacro(const QString& macro) {
    if (macro.startsWith("^C") && m_parts.prompt->isActive()) {
        m_parts.idle->run([this, macro] { runMacro(macro); });
        return;
    }
    QString command = macro;
    while (command.startsWith("^C")) {
        command.remove(0, 2);
    }
    run(command);
}

void CommandInput::begin(const kxSelectionRequest& request) {
    const QString text = toQString(request.prompt);
    m_keyword = toQString(request.keyword);
    m_parts.runner->setPromptActive(true, text);
    m_parts.line->setPrompt(tr("%1 (Enter ends, Esc cancels):").arg(text));
    Q_EMIT promptChanged(true);
}

void CommandInput::end() {
    m_keyword.clear();
    m_parts.runner->setPromptActive(false);
    m_parts.line->setPrompt(CommandLine::idlePrompt());
    Q_EMIT promptChanged(false);
}

void CommandInput::cancel() {
    if (m_parts.prompt->isActive()) {
        m_parts.prompt->cancel();
    } else {
        Q_EMIT escaped();
    }
}
