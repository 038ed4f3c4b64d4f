// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxObjectType.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>

/// An object of a drawing. Owned by its document; a reference keeps it readable after the
/// document has closed. Coordinates are in drawing units, in the world system.
class KX_EXPORT kxObject : public kxRefCounted_c {
public:
    /// The object's kind; it names the class that the object can be narrowed to.
    virtual kxObjectType_e GetType() const = 0;
    /// The name of the layer the object lies on.
    virtual kxString GetLayer() const = 0;

protected:
    ~kxObject() override;
};
using kxObject_ptr = kxInterfacePtr<kxObject>;

/// Narrows an object to a concrete class; null when it is null or of another class.
template <class T>
kxInterfacePtr<T> kxCast(kxObject* object) {
    return kxInterfacePtr<T>(dynamic_cast<T*>(object));
}
