// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxObjectType.h>
#include <kx/kxRefCounted.h>

/// The kinds of objects that the next selection accepts. Empty accepts all. Owned by its
/// selection manager.
class KX_EXPORT kxSelectionFilter_c : public kxRefCounted_c {
public:
    virtual void Clear() = 0;
    /// Adds a kind; adding it twice changes nothing.
    virtual void AddType(kxObjectType_e type) = 0;
    virtual bool Accepts(kxObjectType_e type) const = 0;

protected:
    ~kxSelectionFilter_c() override;
};
using kxSelectionFilter_ptr = kxInterfacePtr<kxSelectionFilter_c>;
