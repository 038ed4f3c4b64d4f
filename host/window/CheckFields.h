// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <QWidget>

#include "interpreter/MachineState.h"

class QCheckBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;

/// What a program is checked with. Lengths in the drawing's unit.
struct CheckValues {
    double surface = 0;
    std::optional<double> depth;
    double tolerance = 0;
    std::vector<gcode_check::Tool> tools;
};

/// The fields of what a program is checked with.
class CheckFields : public QWidget {
    Q_OBJECT

public:
    explicit CheckFields(QWidget* parent = nullptr);

    CheckValues values() const;
    /// What is wrong in a field; empty: the values can be used. It is shown beside the field.
    QString error() const;
    void focusError();
    /// The values are those of the last check.
    void accept();

Q_SIGNALS:
    /// Other values than those that were accepted, without an error.
    void entered();

private:
    void addTools(QFormLayout* rows);
    void judge();

    QDoubleSpinBox* m_surface;
    QCheckBox* m_isDepthMeant;
    QDoubleSpinBox* m_depth;
    QDoubleSpinBox* m_tolerance;
    QLineEdit* m_tools;
    QLabel* m_toolsError;
    CheckValues m_accepted;
};
