// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// What a typed beginning of a command can become. Letters match in any case; a leading underscore
/// may be missing or be too much, as it may when the command runs.
class CommandCompletion {
public:
    void setNames(const QStringList& names);

    /// The names that begin with what was typed, in the order they were given; none for an empty
    /// text and for one that goes on after the name.
    QStringList matches(const QString& typed) const;
    /// What the Tab key makes of a text: as much as all matches share, then one match after the
    /// other (backward with a step of -1). The text itself when nothing matches.
    QString next(const QString& typed, int step);
    /// The matches that `next` walks, as long as the text is what it gave.
    QStringList walked(const QString& text) const;

private:
    bool isWalking(const QString& text) const;

    QStringList m_names;
    QStringList m_walked;
    int m_position = 0;
};
