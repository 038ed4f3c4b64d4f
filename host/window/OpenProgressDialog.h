// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QDialog>

class QProgressBar;

/// Shows how much of a drawing is read, and blocks the other windows. Cancel and Esc reject it.
class OpenProgressDialog : public QDialog {
    Q_OBJECT

public:
    OpenProgressDialog(const QString& path, QWidget* parent);

    /// From 0 to 1.
    void setFraction(double fraction);

private:
    QProgressBar* m_bar;
};
