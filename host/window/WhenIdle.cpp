// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/WhenIdle.h"

#include <utility>

#include <QTimer>

#include "commandline/SelectionPrompt.h"

WhenIdle::WhenIdle(SelectionPrompt* prompt, QObject* parent) : QObject(parent), m_prompt(prompt) {}

void WhenIdle::run(std::function<void()> action) {
    if (isIdle() && m_waiting.empty()) {
        action();
        return;
    }
    m_waiting.push_back(std::move(action));
    m_prompt->cancel();
}

void WhenIdle::leave() {
    --m_depth;
    if (isIdle() && !m_waiting.empty()) {
        // Those who waited are still below on the stack.
        QTimer::singleShot(0, this, &WhenIdle::runWaiting);
    }
}

void WhenIdle::runWaiting() {
    while (isIdle() && !m_waiting.empty()) {
        const std::function<void()> action = std::move(m_waiting.front());
        m_waiting.pop_front();
        action();
    }
}
