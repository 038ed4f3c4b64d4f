// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxObject.h>
#include <kx/kxRefCounted.h>

/// The objects of a drawing, in drawing order. Owned by its model.
class KX_EXPORT kxSketchManager_c : public kxRefCounted_c {
public:
    virtual void GetObjectCount(long* count) const = 0;
    /// The object at an index; null when out of range.
    virtual kxObject_ptr GetObject(long index) const = 0;

protected:
    ~kxSketchManager_c() override;
};
using kxSketchManager_ptr = kxInterfacePtr<kxSketchManager_c>;

/// The model space of a drawing. Owned by its document.
class KX_EXPORT kxModel_c : public kxRefCounted_c {
public:
    virtual kxSketchManager_ptr GetSketchManager() = 0;

protected:
    ~kxModel_c() override;
};
using kxModel_ptr = kxInterfacePtr<kxModel_c>;
