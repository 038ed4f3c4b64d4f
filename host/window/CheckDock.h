// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <optional>

#include <QDockWidget>

#include "findings/Check.h"

class CheckedProgram;
class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

/// What a program is checked with, in the drawing's unit.
struct CheckValues {
    double surface = 0;
    std::optional<double> depth;
    double tolerance = 0;
};

/// What the check of a program found: the findings ("findingsTable"), the program's lines around
/// the chosen one ("programLines"), and what the program is held against.
class CheckDock : public QDockWidget {
    Q_OBJECT

public:
    explicit CheckDock(QWidget* parent = nullptr);

    CheckValues values() const;

    /// Shows a result, nothing chosen. The program must stay until the next call.
    void showResult(const CheckedProgram* program, const gcode_check::CheckResult* result,
                    const QString& heldAgainst);
    /// The drawing that the findings are about has gone or is no longer the same.
    void tellOutdated(const QString& why);

Q_SIGNALS:
    void chooseAsked();
    void againAsked();
    void reportAsked();
    /// A page of the manual.
    void pageAsked(const QString& page);
    /// An index of the result's findings; -1 when none is chosen.
    void findingChosen(int index);

private:
    QWidget* createHead();
    QWidget* createMiddle();
    QLayout* createButtons();
    void fillTable();
    void choose();
    void showPageOf(gcode_check::FindingKind kind);
    /// Other values ask for another check.
    void checkChanged();

    const CheckedProgram* m_program = nullptr;
    const gcode_check::CheckResult* m_result = nullptr;
    QLabel* m_head;
    QLabel* m_summary;
    QTreeWidget* m_table;
    QLabel* m_page;
    QPlainTextEdit* m_lines;
    QDoubleSpinBox* m_surface;
    QDoubleSpinBox* m_tolerance;
    QCheckBox* m_isDepthMeant;
    QDoubleSpinBox* m_depth;
    CheckValues m_checked;
    QPushButton* m_again;
    QPushButton* m_report;
};
