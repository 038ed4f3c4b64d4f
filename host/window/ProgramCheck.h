// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QObject>
#include <QPointer>
#include <QTimer>

#include "window/CheckDock.h"
#include "window/CheckWorker.h"
#include "window/FileWatch.h"

class DrawingTab;
class Drawings;
class QMainWindow;
class SelectionKeeper;

/// Checks programs against the drawing in front: what is selected there, else all that is shown.
/// The findings are in a dock, and the chosen one in the drawing. The window stays alive meanwhile;
/// one check runs at a time, the last that was asked for.
class ProgramCheck : public QObject {
    Q_OBJECT

public:
    /// How long a check may take before the dock says that it runs.
    static constexpr int kQuietMs = 150;

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
    bool isRunning() const { return m_worker.isRunning(); }

    /// Asks for the program when the name is empty.
    void run(const QString& file);
    /// Ends what runs; the dock says so.
    void stop();

private:
    void connectDock();
    void choose();
    void showDock();
    void noticeDock();
    bool areFieldsRight();
    bool load(const QString& path);
    void check();
    /// What the drawing gives for a check. Says what it is in words.
    std::optional<gcode_check::Drawing> hold(DrawingTab* tab);
    void tellProgress();
    void finish(const CheckWorker::Result& result);
    void take(const CheckedResult& checked);
    void showFinding(int index);
    void showReport();
    void follow(DrawingTab* tab);
    void forget(const QString& why);

    Parts m_parts;
    CheckDock* m_dock;
    FileWatch m_watch;
    /// Of the last check that was asked for.
    std::shared_ptr<const CheckedProgram> m_program;
    QString m_heldAgainst;
    std::optional<double> m_mmPerUnit;
    QPointer<DrawingTab> m_tab;
    /// Why its result is not up to date by now.
    QString m_outdated;
    CheckedResult m_checked;
    QTimer m_progress;
    CheckWorker m_worker;
};
