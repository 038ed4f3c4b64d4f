// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include <QWidget>

#include "interpreter/MachineState.h"

class QAction;
class QCheckBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QLineEdit;

/// What a program is checked with. Lengths in the drawing's unit.
struct CheckValues {
    double surface = 0;
    std::optional<double> depth;
    double tolerance = 0;
    std::vector<gcode_check::Tool> tools;
};

/// The fields of what a program is checked with: below each other, or in two columns where there is
/// room.
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

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Other values than those that were accepted, without an error.
    void entered();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createTools();
    void createGrid();
    void arrange(int columns);
    void judge();

    QDoubleSpinBox* m_surface;
    QCheckBox* m_isDepthMeant;
    QDoubleSpinBox* m_depth;
    QDoubleSpinBox* m_tolerance;
    QLineEdit* m_tools;
    QLabel* m_toolsError;
    /// The sign in the field that goes with it.
    QAction* m_wrong = nullptr;
    QGridLayout* m_grid;
    /// Labels and their fields.
    std::vector<std::pair<QWidget*, QWidget*>> m_rows;
    int m_columns = 0;
    int m_leastWidth = 0;
    int m_wideWidth = 0;
    CheckValues m_accepted;
};
