// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <atomic>
#include <memory>
#include <optional>

#include <QObject>
#include <QThreadPool>

#include "findings/Check.h"
#include "window/CheckedProgram.h"

/// What is checked: plain data, so that the drawing can go on to change. The progress of the
/// options is told in the thread that checks.
struct CheckTask {
    std::shared_ptr<const CheckedProgram> program;
    gcode_check::CheckOptions options;
    std::optional<gcode_check::Drawing> drawing;
};

/// Checks one program at a time in a thread of its own.
class CheckWorker : public QObject {
    Q_OBJECT

public:
    using Result = std::shared_ptr<const gcode_check::CheckResult>;

    explicit CheckWorker(QObject* parent = nullptr);
    /// Stops what runs and waits for it.
    ~CheckWorker() override;

    /// Begins, in place of what runs.
    void start(std::shared_ptr<const CheckTask> task);
    /// What runs is not wanted any more; nothing is said of it.
    void stop();
    bool isRunning() const { return m_run != nullptr; }
    /// Frees it in another thread: what is large takes a while.
    void discard(std::shared_ptr<const void> unwanted);
    /// How much of it is done, from 0 to 1.
    double part() const;

Q_SIGNALS:
    /// In the thread of this object; without a result when there was not enough memory.
    void finished(const CheckWorker::Result& result);

private:
    struct Run;

    void take(const std::shared_ptr<Run>& run);

    std::shared_ptr<Run> m_run;
    QThreadPool m_pool;
    QThreadPool m_bin;
};
