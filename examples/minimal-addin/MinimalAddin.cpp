// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// A whole add-in: the command "_COUNT" prints how many objects of the active drawing are selected.
#include <kx/kxAddin.h>
#include <kx/kxApplication.h>

#include <memory>
#include <string>

namespace {

// A command's answer. The host calls plain functions with an "owner"; deriving from
// kxCommandEvents_c turns that back into a method call.
class CountCommand final : public kxCommandEvents_c {
public:
    CountCommand(kxApplication_c* application, const kxString& appID)
        : m_application(application), m_appID(appID) {}

    // Registers the command. The object must stay where it is afterwards: the host keeps `this`.
    bool Register() {
        kxCreateCommandError_e error = kxCreateCommandError_NoError;
        // The host owns the command. Our reference to it may go at the end of this function.
        const kxCommand_ptr command = m_application->CreateCommand(m_appID, "_COUNT", &error);
        if (!command) {
            return false;  // Another add-in has a command of this name: `error` says so.
        }
        return command->RegisterEvent(kxCommand_ExecuteNotify_id, this, &CountCommand::OnExecute) ==
               kxEventResult_Success;
    }

    // Removes all that was made under our identifier, the command with its listener included.
    void Remove() { m_application->RemoveUserInterface(m_appID); }

    bool ExecuteNotify() override {
        // Ask for the drawing each time: between two calls the user may close or change it.
        const kxDocument_ptr document = m_application->GetActiveDocument();
        Print(document ? CountSelected(*document) : "No drawing is open");
        return true;
    }

private:
    // What the host calls. `owner` is the pointer given at registration, so it is cast back to
    // exactly that type.
    static bool OnExecute(void* owner) {
        return static_cast<CountCommand*>(owner)->ExecuteNotify();
    }

    static kxString CountSelected(kxDocument_c& document) {
        // Results come through out-parameters.
        long count = 0;
        document.GetSelectionManager()->GetSelectedObjectCount(kxSelectionSetType_Current, &count);
        return std::to_string(count) + (count == 1 ? " object selected" : " objects selected");
    }

    void Print(const kxString& line) { m_application->GetCommandMessage()->PrintLine(line); }

    kxApplication_c* m_application;  // Outlives every add-in: a plain pointer will do.
    kxString m_appID;                // A copy: the reference is good during the call only.
};

// The add-in's state, from connecting to disconnecting.
std::unique_ptr<CountCommand> g_countCommand;

}  // namespace

// Called once, after the host has loaded this library. False: we could not start, unload us. The
// host does not call disconnectFromKestrix then, so what was made so far is removed here.
bool connectToKestrix(kxApplication_c* application, const kxString& appID) {
    g_countCommand = std::make_unique<CountCommand>(application, appID);
    if (!g_countCommand->Register()) {
        g_countCommand->Remove();
        g_countCommand.reset();
    }
    return g_countCommand != nullptr;
}

// Called once, before the host unloads this library. Nothing of ours may be called any more after
// this: first unregister, then destroy.
bool disconnectFromKestrix() {
    g_countCommand->Remove();
    g_countCommand.reset();
    return true;
}
