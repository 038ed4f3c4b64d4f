// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

/// Lets events happen until something is so; false when it is not so in time.
inline bool waitUntil(const std::function<bool()>& isSo, int limitMs = 20000) {
    QElapsedTimer timer;
    timer.start();
    while (!isSo()) {
        if (timer.elapsed() > limitMs) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(2);
    }
    return true;
}

/// Lets events happen for a time, to see that something does not happen.
inline void letPass(int timeMs) {
    waitUntil([] { return false; }, timeMs);
}
