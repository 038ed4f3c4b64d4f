// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// A straight segment (`kxLineType`).
class KX_EXPORT kxLine_c : public kxObject {
public:
    /// Writes the coordinates of an end; no pointer may be null. Cannot fail.
    virtual void GetFirstPoint(double* x, double* y, double* z) const = 0;
    virtual void GetSecondPoint(double* x, double* y, double* z) const = 0;

protected:
    ~kxLine_c() override;
};
using kxLine_ptr = kxInterfacePtr<kxLine_c>;
