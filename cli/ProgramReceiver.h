// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include <QObject>
#include <QString>

/// Keeps the program that a panel gave out last.
class ProgramReceiver : public QObject {
    Q_OBJECT

public:
    /// Nothing when there was none.
    const std::optional<QString>& program() const { return m_program; }

public Q_SLOTS:
    void take(const QString& program);

private:
    std::optional<QString> m_program;
};
