// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// A text in the drawing (`kxSimpleNoteType`).
class KX_EXPORT kxSimpleNote_c : public kxObject {
public:
    virtual void GetPosition(double* x, double* y, double* z) const = 0;
    virtual kxString GetText() const = 0;
    /// The height of a capital letter in drawing units.
    virtual double GetHeight() const = 0;
    /// The angle of the base line in radians, counter-clockwise.
    virtual double GetRotation() const = 0;

protected:
    ~kxSimpleNote_c() override;
};
using kxSimpleNote_ptr = kxInterfacePtr<kxSimpleNote_c>;
