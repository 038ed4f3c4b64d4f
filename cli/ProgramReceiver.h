// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QObject>
#include <QString>

/// Notes that a panel gave out a program.
class ProgramReceiver : public QObject {
    Q_OBJECT

public:
    bool received() const { return m_received; }

public Q_SLOTS:
    void take(const QString& program);

private:
    bool m_received = false;
};
