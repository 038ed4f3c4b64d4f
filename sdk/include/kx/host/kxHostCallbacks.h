// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include <kx/kxCustomPropertyControl.h>
#include <kx/kxObject.h>
#include <kx/kxString.h>

class kxHostDocument_c;

struct kxPaneRequest {
    kxString title;
    kxCustomPropertyControlArea_e area = kxCustomPropertyControlArea_Right;
    long flags = 0;
};

struct kxSelectionRequest {
    bool single = false;
    kxString prompt;
    kxString keyword;
};

/// What a host with a screen hands to the object model, which has none. Each may be left empty:
/// panes then have no window and just remember whether they are shown, lines go nowhere, prompts
/// are cancelled, and help does nothing. Called on the user-interface thread.
struct kxHostCallbacks {
    /// Makes a docked pane, hidden, and returns its native window; 0 when it cannot.
    std::function<kxWindowHandle(const kxPaneRequest&)> createPane;
    std::function<void(kxWindowHandle, bool visible)> setPaneVisible;
    std::function<bool(kxWindowHandle)> isPaneVisible;
    std::function<void(kxWindowHandle)> destroyPane;
    std::function<void(const kxString& line)> printLine;
    /// Lets the user select; true with the chosen objects, false when cancelled. May run an event
    /// loop; the document may close in it.
    std::function<bool(kxHostDocument_c&, const kxSelectionRequest&, std::vector<kxObject_ptr>*)>
        promptForSelection;
    /// Menus, commands or user commands have changed.
    std::function<void()> userInterfaceChanged;
    std::function<void(const kxString& address)> openWebHelp;
    std::function<void(long topic, const kxString& path)> openLocalHelp;
};
