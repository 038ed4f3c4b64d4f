// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandTable.h"

#include <algorithm>
#include <utility>

namespace {

bool isNamed(const HostCommand& command, const QString& name) {
    return command.name.compare(name, Qt::CaseInsensitive) == 0;
}

QString withoutCancels(const QString& line) {
    QString rest = line.trimmed();
    while (rest.startsWith(QLatin1String("^C"), Qt::CaseInsensitive)) {
        rest.remove(0, 2);
    }
    return rest;
}

}  // namespace

void CommandTable::add(HostCommand command) {
    const auto known = std::find_if(m_commands.begin(), m_commands.end(), [&](const auto& other) {
        return isNamed(other, command.name);
    });
    if (known == m_commands.end()) {
        m_commands.push_back(std::move(command));
    } else {
        *known = std::move(command);
    }
}

const HostCommand* CommandTable::find(const QString& name) const {
    const auto found = std::find_if(m_commands.begin(), m_commands.end(),
                                    [&](const auto& command) { return isNamed(command, name); });
    return found == m_commands.end() ? nullptr : &*found;
}

QStringList splitCommandLine(const QString& line) {
    QStringList words;
    QString word;
    bool inWord = false;
    bool inQuotes = false;
    for (const QChar character : withoutCancels(line)) {
        if (character == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (inQuotes || !character.isSpace()) {
            word += character;
            inWord = true;
        } else if (inWord) {
            words.push_back(word);
            word.clear();
            inWord = false;
        }
    }
    if (inWord) {
        words.push_back(word);
    }
    return words;
}
