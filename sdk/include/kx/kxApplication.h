// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <kx/kxCommand.h>
#include <kx/kxCommandMessage.h>
#include <kx/kxCustomPropertyControl.h>
#include <kx/kxDocument.h>
#include <kx/kxEvents.h>
#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxMenuItem.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>
#include <kx/kxSystemFiles.h>
#include <kx/kxUserCommand.h>

/// How a pane may be moved by the user; the values add up.
enum kxCustomPropertyControlFlags_e {
    kxCustomPropertyControl_MayClose = 1,
    kxCustomPropertyControl_MayFloat = 2
};

/// The host application. It outlives every add-in. All calls and all hooks are on the
/// user-interface thread. What an add-in makes here is marked with its identifier `appID` and
/// removed by `RemoveUserInterface`.
class KX_EXPORT kxApplication_c : public kxRefCounted_c {
public:
    /// Registers a hook; one per event and owner. A hook may register and unregister hooks.
    virtual kxEventResult_e RegisterEvent(kxApplicationEvent_e id, void* owner,
                                          kxNotifyHook hook) = 0;
    virtual kxEventResult_e UnRegisterEvent(kxApplicationEvent_e id, void* owner) = 0;

    /// The drawing in front; null when none is open.
    virtual kxDocument_ptr GetActiveDocument() = 0;
    virtual kxCommandMessage_ptr GetCommandMessage() = 0;

    /// Makes a docked pane, hidden at first. `flags` adds up `kxCustomPropertyControlFlags_e`.
    /// `control` becomes null when the host cannot make one.
    virtual void CreateCustomPropertyControl2(const kxString& title,
                                              kxCustomPropertyControlArea_e area, long flags,
                                              kxCustomPropertyControl_ptr* control) = 0;
    /// Makes a command of the command line; null, with the reason in `error`, when that fails.
    virtual kxCommand_ptr CreateCommand(const kxString& appID, const kxString& name,
                                        kxCreateCommandError_e* error) = 0;
    virtual kxUserCommand_ptr CreateUserCommand(const kxString& appID,
                                                const kxUserCommandData& data) = 0;
    /// The menus of a state, in order.
    virtual std::vector<kxMenuItem_ptr> GetMenuItems(kxUIState_e state) = 0;
    /// Removes the commands, user commands and menu items of an add-in. False when it had none.
    virtual bool RemoveUserInterface(const kxString& appID) = 0;

    /// Help: on the web when that is enabled, otherwise from a local file.
    virtual bool IsWebHelpEnabled() const = 0;
    virtual kxString GetWebLink() const = 0;
    /// The number of the user interface's language: 1 German, 2 English, and so on.
    virtual long GetLanguage() const = 0;
    virtual void OpenWebHelp(const kxString& address) = 0;
    /// Null when the host has no files of its own.
    virtual kxSystemFiles_ptr GetSystemFiles() = 0;
    virtual void OpenChmHelp(long topic, const kxString& path) = 0;

protected:
    ~kxApplication_c() override;
};
using kxApplication_ptr = kxInterfacePtr<kxApplication_c>;
