// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Refuses to start.
#include <kx/kxAddin.h>
#include <kx/kxApplication.h>

namespace {
kxApplication_c* g_application = nullptr;
}

bool connectToKestrix(kxApplication_c* application, const kxString&) {
    g_application = application;
    application->GetCommandMessage()->PrintLine("refusing");
    return false;
}

bool disconnectFromKestrix() {
    g_application->GetCommandMessage()->PrintLine("disconnected");
    return true;
}
