// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ReadWithProgress.h"

#include <atomic>
#include <thread>

#include <QEvent>
#include <QEventLoop>
#include <QFile>
#include <QPointer>
#include <QTimer>

#include "window/OpenProgressDialog.h"

namespace {

constexpr int kQuietMs = 500;
constexpr int kUpdateMs = 50;

/// A reading in a thread of its own, which is over when the object is gone.
class Reading {
public:
    Reading(const QString& path, QEventLoop* waiting)
        : m_thread([this, file = QFile::encodeName(path).toStdString(), waiting] {
              kxdrawing::ReadOptions options;
              options.progress = [this](double fraction) {
                  m_fraction = fraction;
                  return !m_cancelled;
              };
              m_result = kxdrawing::readDxf(file, options);
              m_ended = true;
              QMetaObject::invokeMethod(waiting, &QEventLoop::quit, Qt::QueuedConnection);
          }) {}
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading() {
        cancel();
        join();
    }

    void cancel() { m_cancelled = true; }
    bool hasEnded() const { return m_ended; }
    double fraction() const { return m_fraction; }

    /// What was read, once the thread is over: its objects must not be touched by two. Nothing
    /// when it was cancelled, also when that came too late to save time.
    std::optional<kxdrawing::ReadResult> take() {
        join();
        return m_cancelled ? std::nullopt : std::optional(std::move(m_result));
    }

private:
    void join() {
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }

    std::atomic<double> m_fraction = 0;
    std::atomic<bool> m_cancelled = false;
    std::atomic<bool> m_ended = false;
    kxdrawing::ReadResult m_result;
    std::thread m_thread;
};

/// Cancels a reading when the window that it is for is closed.
class CloseWatch : public QObject {
public:
    CloseWatch(QWidget* window, Reading* reading, QEventLoop* waiting)
        : m_reading(reading), m_waiting(waiting) {
        if (window != nullptr) {
            window->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Close) {
            m_reading->cancel();
            m_waiting->quit();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    Reading* m_reading;
    QEventLoop* m_waiting;
};

/// Waits a moment without a dialog; true when that was not enough. Clicks and keys wait as well:
/// the drawing may be there at once.
bool waitQuietly(QEventLoop* waiting) {
    bool wasTooShort = false;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, waiting, [&] {
        wasTooShort = true;
        waiting->quit();
    });
    timer.start(kQuietMs);
    waiting->exec(QEventLoop::ExcludeUserInputEvents);
    return wasTooShort;
}

void waitWithDialog(const QString& path, QWidget* parent, Reading* reading, QEventLoop* waiting) {
    // The parent may go, and the dialog with it.
    const QPointer<OpenProgressDialog> dialog = new OpenProgressDialog(path, parent);
    QObject::connect(dialog, &QDialog::rejected, waiting, [=] {
        reading->cancel();
        waiting->quit();
    });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, dialog,
                     [=] { dialog->setFraction(reading->fraction()); });
    timer.start(kUpdateMs);
    dialog->setFraction(reading->fraction());
    dialog->show();
    waiting->exec();
    delete dialog;
}

}  // namespace

std::optional<kxdrawing::ReadResult> readWithProgress(const QString& path, QWidget* parent) {
    QEventLoop waiting;
    Reading reading(path, &waiting);
    QWidget* const window = parent != nullptr ? parent->window() : nullptr;
    const CloseWatch closeWatch(window, &reading, &waiting);
    if (waitQuietly(&waiting) && !reading.hasEnded()) {
        waitWithDialog(path, window, &reading, &waiting);
    }
    if (!reading.hasEnded()) {
        // Whatever else ended the waiting, such as the end of the program, ends the reading.
        reading.cancel();
    }
    return reading.take();
}
