// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// What was typed, oldest first, for the up and down keys. Equal neighbours are kept once.
class CommandHistory {
public:
    static constexpr int kMaxLines = 200;

    void add(const QString& line);
    const QStringList& lines() const { return m_lines; }
    void setLines(const QStringList& lines);

    /// The line before; `typed` is what stands in the field and comes back at the end.
    QString older(const QString& typed);
    QString newer(const QString& typed);

private:
    QStringList m_lines;
    QString m_typed;
    int m_position = 0;
};
