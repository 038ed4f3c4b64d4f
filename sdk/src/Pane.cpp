// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Pane.h"

bool Pane::get_Visible() const {
    if (m_destroyed) {
        return false;
    }
    // The user may have closed the pane, so the window itself is asked where there is one.
    return m_window != 0 && m_callbacks.isPaneVisible ? m_callbacks.isPaneVisible(m_window)
                                                      : m_visible;
}

void Pane::put_Visible(bool visible) {
    if (m_destroyed) {
        return;
    }
    m_visible = visible;
    if (m_window != 0 && m_callbacks.setPaneVisible) {
        m_callbacks.setPaneVisible(m_window, visible);
    }
}

void Pane::Destroy() {
    if (m_destroyed) {
        return;
    }
    m_destroyed = true;
    if (m_window != 0 && m_callbacks.destroyPane) {
        m_callbacks.destroyPane(m_window);
    }
}
