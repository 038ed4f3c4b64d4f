// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Could be connected, but never disconnected.
#include <kx/kxAddin.h>
#include <kx/kxApplication.h>

bool connectToKestrix(kxApplication_c* application, const kxString&) {
    application->GetCommandMessage()->PrintLine("connected");
    return true;
}
