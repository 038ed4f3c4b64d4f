// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <list>

#include <QObject>

class SelectionPrompt;

/// Puts off what may not happen in the midst of a waiting prompt or of reading a drawing, such as
/// closing a drawing, until the code that waits has returned.
class WhenIdle : public QObject {
    Q_OBJECT

public:
    explicit WhenIdle(SelectionPrompt* prompt, QObject* parent = nullptr);

    /// Not idle while one of these lives.
    class Busy {
    public:
        explicit Busy(WhenIdle* idle) : m_idle(idle) { ++m_idle->m_depth; }
        ~Busy() { m_idle->leave(); }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;

    private:
        WhenIdle* m_idle;
    };

    bool isIdle() const { return m_depth == 0; }
    /// At once when idle; otherwise cancels a waiting prompt and runs it later.
    void run(std::function<void()> action);

private:
    void leave();
    void runWaiting();

    SelectionPrompt* m_prompt;
    int m_depth = 0;
    std::list<std::function<void()>> m_waiting;
};
