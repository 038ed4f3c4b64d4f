// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The library's entry and exit points, and what lives as long as it is loaded.
#include <memory>

#include <kx/kxAddin.h>

#include "Logger.h"
#include "kxAddinConnection.h"

namespace {

/// Created, emptied and kept open while the library is loaded; for diagnostics.
Logger g_logger(QString::fromLatin1("GCodeAddin.log"));

/// The add-in, from connection to disconnection.
std::unique_ptr<DockWidgetApplication> g_application;

}  // namespace

bool connectToKestrix(kxApplication_c* application, const kxString& appID) {
    if (application == nullptr || g_application) {
        return false;
    }
    g_application = std::make_unique<DockWidgetApplication>(application, appID);
    if (!g_application->hasPanel()) {
        g_application.reset();
    }
    return g_application != nullptr;
}

bool disconnectFromKestrix() {
    const bool connected = g_application != nullptr;
    g_application.reset();
    return connected;
}
