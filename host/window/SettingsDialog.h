// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QDialog>

#include "window/HostSettings.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLineEdit;

/// Lets the user change the settings.
class SettingsDialog : public QDialog {
    Q_OBJECT

public:
    explicit SettingsDialog(const HostSettings& settings, QWidget* parent = nullptr);

    HostSettings settings() const;

private:
    void addViewRows(QFormLayout* form);
    void addHelpRows(QFormLayout* form);

    HostSettings m_settings;
    QComboBox* m_canvas = nullptr;
    QCheckBox* m_grid = nullptr;
    QCheckBox* m_axes = nullptr;
    QDoubleSpinBox* m_tolerance = nullptr;
    QCheckBox* m_webHelp = nullptr;
    QLineEdit* m_webLink = nullptr;
    QComboBox* m_language = nullptr;
};
