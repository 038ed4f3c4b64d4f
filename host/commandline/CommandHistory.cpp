// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandHistory.h"

void CommandHistory::add(const QString& line) {
    const bool isNew = m_lines.isEmpty() || m_lines.last() != line;
    if (isNew && !line.trimmed().isEmpty()) {
        m_lines.push_back(line);
        if (m_lines.size() > kMaxLines) {
            m_lines.removeFirst();
        }
    }
    m_typed.clear();
    m_position = m_lines.size();
}

void CommandHistory::setLines(const QStringList& lines) {
    m_lines.clear();
    for (const QString& line : lines) {
        add(line);
    }
    m_typed.clear();
    m_position = m_lines.size();
}

QString CommandHistory::older(const QString& typed) {
    if (m_position == m_lines.size()) {
        m_typed = typed;
    }
    if (m_position == 0) {
        return typed;
    }
    return m_lines.at(--m_position);
}

QString CommandHistory::newer(const QString& typed) {
    if (m_position == m_lines.size()) {
        return typed;
    }
    ++m_position;
    return m_position == m_lines.size() ? m_typed : m_lines.at(m_position);
}
