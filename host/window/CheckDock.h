// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <optional>

#include <QDockWidget>

#include "findings/Check.h"

class CheckedProgram;
class QDoubleSpinBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

/// What the check of a program found: the findings ("findingsTable"), the program's lines around
/// the chosen one ("programLines"), and what the program is held against.
class CheckDock : public QDockWidget {
    Q_OBJECT

public:
    explicit CheckDock(QWidget* parent = nullptr);

    /// Both in the drawing's unit.
    double surface() const;
    double tolerance() const;

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
    /// Another surface or tolerance asks for another check.
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
    double m_checkedSurface = 0;
    double m_checkedTolerance = 0;
    QPushButton* m_again;
    QPushButton* m_report;
};
