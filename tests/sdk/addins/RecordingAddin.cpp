// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Says on the command line what the host does with it.
#include <kx/kxAddin.h>
#include <kx/kxApplication.h>

namespace {

kxApplication_c* g_application = nullptr;
kxString g_appID;

bool run(void* owner) {
    static_cast<kxApplication_c*>(owner)->GetCommandMessage()->PrintLine("run");
    return true;
}

}  // namespace

bool connectToKestrix(kxApplication_c* application, const kxString& appID) {
    g_application = application;
    g_appID = appID;
    application->GetCommandMessage()->PrintLine("connected " + appID);
    kxCreateCommandError_e error = kxCreateCommandError_NoError;
    const kxCommand_ptr command = application->CreateCommand(appID, "_RECORD", &error);
    return command && command->RegisterEvent(kxCommand_ExecuteNotify_id, application, run) ==
                          kxEventResult_Success;
}

bool disconnectFromKestrix() {
    g_application->GetCommandMessage()->PrintLine("disconnected");
    return g_application->RemoveUserInterface(g_appID);
}
