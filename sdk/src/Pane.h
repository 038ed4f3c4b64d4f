// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/host/kxHostCallbacks.h>

/// A docked pane. Without a screen it has no window and just remembers whether it is shown.
class Pane final : public kxCustomPropertyControl_c {
public:
    Pane(kxWindowHandle window, const kxHostCallbacks& callbacks)
        : m_window(window), m_callbacks(callbacks) {}
    kxWindowHandle GetHWND() const override { return m_destroyed ? 0 : m_window; }
    bool get_Visible() const override;
    void put_Visible(bool visible) override;
    void Destroy() override;

private:
    kxWindowHandle m_window;
    kxHostCallbacks m_callbacks;
    bool m_visible = false;
    bool m_destroyed = false;
};
