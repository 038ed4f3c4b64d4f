// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxEvents.h>
#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxObject.h>
#include <kx/kxRefCounted.h>
#include <kx/kxSelectionFilter.h>

enum kxSelectionSetType_e {
    /// What is selected now.
    kxSelectionSetType_Current = 1,
    /// What was selected last before the current set became empty, or chosen at a prompt.
    kxSelectionSetType_Previous = 2
};

/// The selection of one drawing. Owned by its document.
class KX_EXPORT kxSelectionManager_c : public kxRefCounted_c {
public:
    /// Writes the number of objects in a set; 0 for a set that does not exist.
    virtual void GetSelectedObjectCount(kxSelectionSetType_e set, long* count) const = 0;
    /// Writes the kind and the object at an index, in the order of selection. The object stays the
    /// document's. Out of range: `kxUnknownType` and null.
    virtual void GetSelectedObject(kxSelectionSetType_e set, long index, kxObjectType_e* type,
                                   kxObject** object) const = 0;
    virtual kxSelectionFilter_ptr GetSelectionFilter() = 0;
    virtual kxEventResult_e RegisterEvent(kxSelectionManagerEvent_e id, void* owner,
                                          kxNotifyHook hook) = 0;
    virtual kxEventResult_e UnRegisterEvent(kxSelectionManagerEvent_e id, void* owner) = 0;

protected:
    ~kxSelectionManager_c() override;
};
using kxSelectionManager_ptr = kxInterfacePtr<kxSelectionManager_c>;
