// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "OffscreenHost.h"

#include <utility>

OffscreenHost::OffscreenHost() : m_application(kxCreateHostApplication(callbacks())) {}

OffscreenHost::~OffscreenHost() {
    m_addin.Unload();
}

bool OffscreenHost::loadAddin(const std::string& path, std::string* error) {
    return m_addin.Load(path, m_application.get(), error);
}

kxHostCallbacks OffscreenHost::callbacks() {
    kxHostCallbacks calls;
    calls.createPane = [this](const kxPaneRequest&) -> kxWindowHandle {
        if (m_pane) {
            return 0;
        }
        m_pane = std::make_unique<QWidget>();
        return static_cast<kxWindowHandle>(m_pane->winId());
    };
    calls.destroyPane = [this](kxWindowHandle) { m_pane.reset(); };
    calls.printLine = [this](const kxString& line) { m_printedLines.push_back(line.toUtf8()); };
    return calls;
}
