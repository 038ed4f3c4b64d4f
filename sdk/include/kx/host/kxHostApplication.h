// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <kx/host/kxHostCallbacks.h>
#include <kx/host/kxHostDocument.h>
#include <kx/kxApplication.h>
#include <kx/kxExport.h>

/// What the application knows about help.
struct kxHelpSettings {
    bool webHelp = false;
    kxString webLink;
    long language = 2;
    kxString helpFile;
};

/// The application as its host sees it: the interface of add-ins, and what drives it.
class KX_EXPORT kxHostApplication_c : public kxApplication_c {
public:
    /// Adds an empty drawing and sends the file-new or, with `fromFile`, the file-opened event.
    /// The active drawing stays.
    virtual kxHostDocument_ptr AddDocument(const kxString& name, bool fromFile) = 0;
    /// Makes a drawing of this application the active one and sends the active-document-changed
    /// event when it was not. False for a drawing that is not open here.
    virtual bool SetActiveDocument(kxHostDocument_c* document) = 0;
    /// Sends the drawing's destroy event, then closes it; when it was the active one, its
    /// neighbour (the next, else the one before) becomes active, and the event is sent for that,
    /// also when none is left. False for a drawing that is not open here or is closing already.
    virtual bool CloseDocument(kxHostDocument_c* document) = 0;
    virtual const std::vector<kxHostDocument_ptr>& GetDocuments() const = 0;
    virtual kxHostDocument_ptr GetActiveHostDocument() const = 0;
    /// Sends the active-document-changed event once more, after a unit was switched.
    virtual void NotifyActiveDocumentChanged() = 0;

    /// Runs a command by name, in any case; leading "^C" are dropped. False when there is none.
    virtual bool RunCommand(const kxString& macro) = 0;
    /// The names of all commands, in the order they were made.
    virtual std::vector<kxString> GetCommandNames() const = 0;
    /// The user command of an ID; null when there is none.
    virtual kxUserCommand_ptr FindUserCommand(const kxString& id) const = 0;
    /// Appends a menu of the host's own to a state.
    virtual kxMenuItem_ptr AddMenu(kxUIState_e state, const kxString& id, const kxString& name) = 0;

    virtual void SetHelp(const kxHelpSettings& settings) = 0;

protected:
    ~kxHostApplication_c() override;
};
using kxHostApplication_ptr = kxInterfacePtr<kxHostApplication_c>;

/// Makes the application's object model. The callbacks are used as long as it lives.
KX_EXPORT kxHostApplication_ptr kxCreateHostApplication(kxHostCallbacks callbacks);
