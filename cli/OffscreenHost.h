// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QWidget>

#include <kx/host/kxAddinLoader.h>
#include <kx/host/kxHostApplication.h>

/// A host without a window of its own: it gives panes to add-ins as hidden widgets and keeps the
/// lines they print.
class OffscreenHost {
public:
    OffscreenHost();
    ~OffscreenHost();
    OffscreenHost(const OffscreenHost&) = delete;
    OffscreenHost& operator=(const OffscreenHost&) = delete;

    /// Loads and connects the add-in; false, with the cause in `error`, when that fails.
    bool loadAddin(const std::string& path, std::string* error);
    kxHostApplication_c& application() { return *m_application; }
    /// The pane of the add-in; null when it made none.
    QWidget* pane() const { return m_pane.get(); }
    const std::vector<std::string>& printedLines() const { return m_printedLines; }

private:
    kxHostCallbacks callbacks();

    std::vector<std::string> m_printedLines;
    std::unique_ptr<QWidget> m_pane;
    kxHostApplication_ptr m_application;
    kxLoadedAddin m_addin;
};
