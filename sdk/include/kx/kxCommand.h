// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxEvents.h>
#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>

/// How the creation of a command ended.
enum kxCreateCommandError_e {
    kxCreateCommandError_NoError = 0,
    kxCreateCommandError_EmptyName = 1,
    /// A command of this name exists, whatever its letters' case.
    kxCreateCommandError_NameInUse = 2
};

/// What an add-in derives from to answer its commands. The object belongs to the add-in.
class KX_EXPORT kxCommandEvents_c {
public:
    kxCommandEvents_c() = default;
    kxCommandEvents_c(const kxCommandEvents_c&) = delete;
    kxCommandEvents_c& operator=(const kxCommandEvents_c&) = delete;
    virtual ~kxCommandEvents_c();
    /// Called when the registered command runs, on the user-interface thread. Returns true when
    /// the command was done.
    virtual bool ExecuteNotify() = 0;
};

/// A command of the host's command line. Owned by the application until
/// `kxApplication_c::RemoveUserInterface` removes it.
class KX_EXPORT kxCommand_c : public kxRefCounted_c {
public:
    virtual kxString GetName() const = 0;
    /// Registers for `kxCommand_ExecuteNotify_id`. The owner stays the caller's and must
    /// unregister, or have the command removed, before it dies.
    virtual kxEventResult_e RegisterEvent(kxCommandEvent_e id, void* owner, kxNotifyHook hook) = 0;
    virtual kxEventResult_e UnRegisterEvent(kxCommandEvent_e id, void* owner) = 0;

protected:
    ~kxCommand_c() override;
};
using kxCommand_ptr = kxInterfacePtr<kxCommand_c>;
