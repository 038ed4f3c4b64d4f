// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QObject>
#include <QPointer>

#include "findings/Check.h"
#include "window/CheckedProgram.h"
#include "window/FileWatch.h"

class CheckDock;
class DrawingTab;
class Drawings;
class QMainWindow;
class SelectionKeeper;

/// Checks programs against the drawing in front: what is selected there, else all that is shown.
/// The findings are in a dock, and the chosen one in the drawing.
class ProgramCheck : public QObject {
    Q_OBJECT

public:
    /// All outlive the check.
    struct Parts {
        QMainWindow* window = nullptr;
        Drawings* drawings = nullptr;
        SelectionKeeper* selection = nullptr;
        std::function<void(const QString&)> say;
        std::function<void(const QString&)> complain;
        std::function<void(const QString& page)> showManual;
    };
    explicit ProgramCheck(const Parts& parts);

    CheckDock* dock() const { return m_dock; }

    /// Asks for the program when the name is empty.
    void run(const QString& file);

private:
    void choose();
    bool load(const QString& path);
    void check();
    QString hold(DrawingTab* tab);
    void showFinding(int index);
    void showReport();
    void follow(DrawingTab* tab);
    void forget(const QString& why);

    Parts m_parts;
    CheckDock* m_dock;
    CheckedProgram m_program;
    FileWatch m_watch;
    gcode_check::CheckResult m_result;
    gcode_check::Drawing m_drawing;
    QPointer<DrawingTab> m_tab;
};
