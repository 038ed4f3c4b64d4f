// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// A point (`kxPointType`).
class KX_EXPORT kxPoint_c : public kxObject {
public:
    /// Writes the position; no pointer may be null. Cannot fail.
    virtual void GetPosition(double* x, double* y, double* z) const = 0;

protected:
    ~kxPoint_c() override;
};
using kxPoint_ptr = kxInterfacePtr<kxPoint_c>;
