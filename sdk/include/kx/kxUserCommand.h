// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>

/// The states of the user interface, each with menus of its own.
enum kxUIState_e { kxUIState_Zero = 1, kxUIState_Document = 2 };

/// What a user command is made of.
struct kxUserCommandData {
    kxUIState_e state = kxUIState_Document;
    /// What is typed on the command line for it; "^C" cancels what runs.
    kxString macro;
    kxString description;
    /// Resource or file names of the pictures; may be empty.
    kxString smallIcon;
    kxString largeIcon;
};

/// A command as menus show it: a macro with a description and icons. Owned by the application.
class KX_EXPORT kxUserCommand_c : public kxRefCounted_c {
public:
    /// The identifier by which menu items refer to it; never empty.
    virtual kxString GetID() const = 0;
    virtual kxUserCommandData GetData() const = 0;

protected:
    ~kxUserCommand_c() override;
};
using kxUserCommand_ptr = kxInterfacePtr<kxUserCommand_c>;
