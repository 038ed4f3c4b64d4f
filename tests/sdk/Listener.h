// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// An owner of event hooks: counts the calls, does what the test asks in them, and answers.
struct Listener {
    int calls = 0;
    std::function<void()> action;
    bool answer = true;

    static bool hook(void* owner) {
        auto* listener = static_cast<Listener*>(owner);
        ++listener->calls;
        if (listener->action) {
            listener->action();
        }
        return listener->answer;
    }
};
