// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <memory>

#include <QDockWidget>

#include "findings/Check.h"

class CheckFields;
class CheckedProgram;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTreeWidget;

/// A program and what its check found.
struct CheckedResult {
    std::shared_ptr<const CheckedProgram> program;
    std::shared_ptr<const gcode_check::CheckResult> result;
};

/// What the check of a program found: the findings ("findingsTable"), the program's lines around
/// the chosen one ("programLines"), and what the program is held against.
class CheckDock : public QDockWidget {
    Q_OBJECT

public:
    explicit CheckDock(QWidget* parent = nullptr);

    CheckFields* fields() const { return m_fields; }

    /// A check has begun that takes its time; no result is shown. With the program's path.
    void showChecking(const QString& path, const QString& heldAgainst);
    /// From 0 to 1.
    void setPart(double part);
    /// Nothing chosen.
    void showResult(const CheckedResult& checked, const QString& heldAgainst);
    /// There is no result, and why.
    void showNothing(const QString& path, const QString& why);
    /// The drawing that the findings are about has gone or is no longer the same.
    void tellOutdated(const QString& why);

Q_SIGNALS:
    void chooseAsked();
    void againAsked();
    void stopAsked();
    void reportAsked();
    /// A page of the manual.
    void pageAsked(const QString& page);
    /// An index of the result's findings; -1 when none is chosen.
    void findingChosen(int index);

private:
    QWidget* createHead();
    QWidget* createBusy();
    QWidget* createMiddle();
    QLayout* createButtons();
    void take(const CheckedResult& checked);
    void tellProgram(const QString& path, const QString& text);
    void fillTable();
    void choose();
    void showPageOf(gcode_check::FindingKind kind);

    CheckedResult m_checked;
    QLabel* m_head;
    CheckFields* m_fields;
    QLabel* m_summary;
    QWidget* m_busy;
    QProgressBar* m_bar;
    QTreeWidget* m_table;
    QLabel* m_page;
    QPlainTextEdit* m_lines;
    QPushButton* m_again;
    QPushButton* m_report;
};
