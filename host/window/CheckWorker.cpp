// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CheckWorker.h"

#include <new>
#include <utility>

#include <QRunnable>

/// What the two threads share of a check.
struct CheckWorker::Run {
    std::atomic<bool> isStopped = false;
    std::atomic<double> part = 0;
    /// Written by the one before it is done, read by the other afterwards.
    Result result;
    std::atomic<bool> isDone = false;
};

namespace {

using gcode_check::CheckResult;

/// No result when the memory is not enough. All else of a check throws nothing.
std::shared_ptr<const CheckResult> resultOf(const CheckTask& task,
                                            const gcode_check::CheckOptions& options) {
    try {
        return std::make_shared<const CheckResult>(gcode_check::check(
            task.program->text(), options, task.drawing ? &*task.drawing : nullptr));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace

CheckWorker::CheckWorker(QObject* parent) : QObject(parent) {
    // A new check begins when the one before has heard that it is to stop: never two in memory.
    m_pool.setMaxThreadCount(1);
    m_bin.setMaxThreadCount(1);
}

CheckWorker::~CheckWorker() {
    stop();
    m_pool.waitForDone();
}

void CheckWorker::start(std::shared_ptr<const CheckTask> task) {
    stop();
    const auto run = std::make_shared<Run>();
    m_run = run;
    m_pool.start([this, run, task = std::move(task)]() mutable {
        if (!run->isStopped) {
            gcode_check::CheckOptions options = task->options;
            options.progress = [&run, &own = task->options.progress](double part) {
                run->part = part;
                return !run->isStopped && (own == nullptr || own(part));
            };
            run->result = resultOf(*task, options);
        }
        // What is not needed any more is freed here, where nobody waits for it.
        task.reset();
        if (run->isStopped) {
            run->result.reset();
        }
        run->isDone = true;
        // This object outlives the thread, and what is asked of it is forgotten when it goes.
        QMetaObject::invokeMethod(
            this, [this, run] { take(run); }, Qt::QueuedConnection);
    });
}

void CheckWorker::stop() {
    if (m_run != nullptr) {
        m_run->isStopped = true;
        m_run.reset();
    }
}

void CheckWorker::discard(std::shared_ptr<const void> unwanted) {
    m_bin.start([unwanted = std::move(unwanted)]() mutable { unwanted.reset(); });
}

double CheckWorker::part() const {
    return m_run != nullptr ? m_run->part.load() : 0;
}

void CheckWorker::take(const std::shared_ptr<Run>& run) {
    if (run == m_run && run->isDone) {
        m_run.reset();
        Q_EMIT finished(run->result);
    }
}
