// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxEvents.h>
#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxModel.h>
#include <kx/kxRefCounted.h>
#include <kx/kxSelectionManager.h>
#include <kx/kxString.h>

enum kxCommandOptionInt16_e {
    /// The drawing's unit: 0 inches, 1 millimetres.
    kxCommandOptionInt16_SetUntTyp = 121
};

enum kxGetCommandOptionResult_e {
    kxGetCommandOptionResult_Success = 1,
    /// The drawing does not say; nothing was written.
    kxGetCommandOptionResult_NotFound = 2
};

/// A drawing. Owned by the application until it closes; a reference keeps it readable after that.
class KX_EXPORT kxDocument_c : public kxRefCounted_c {
public:
    virtual kxString GetName() const = 0;
    virtual kxModel_ptr GetModel() = 0;
    virtual kxSelectionManager_ptr GetSelectionManager() = 0;
    virtual void GetCommandOptionInt16(kxCommandOptionInt16_e option, short* value,
                                       kxGetCommandOptionResult_e* result) const = 0;
    /// One registration per event and owner. A drawing that closes sends
    /// `kxDocument_DestroyNotify_id` before anything of it goes.
    virtual kxEventResult_e RegisterEvent(kxDocumentEvent_e id, void* owner, kxNotifyHook hook) = 0;
    virtual kxEventResult_e RegisterEvent(kxDocumentEvent_e id, void* owner,
                                          kxFileSavePreHook hook) = 0;
    virtual kxEventResult_e UnRegisterEvent(kxDocumentEvent_e id, void* owner) = 0;

protected:
    ~kxDocument_c() override;
};
using kxDocument_ptr = kxInterfacePtr<kxDocument_c>;
