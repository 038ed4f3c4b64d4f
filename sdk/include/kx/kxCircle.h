// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// A full circle parallel to the XY plane (`kxCircleType`).
class KX_EXPORT kxCircle_c : public kxObject {
public:
    virtual void GetCenter(double* x, double* y, double* z) const = 0;
    /// Writes the radius, greater than 0.
    virtual void get_Radius(double* radius) const = 0;
    /// Writes 0 and 2 pi: radians, counter-clockwise from the X axis.
    virtual void GetEndParams(double* start, double* end) const = 0;
    /// Writes the point at an angle in radians and, where the pointers are not null, the first
    /// and second derivative by the angle; each array takes three doubles. Both end parameters
    /// give the same point bit for bit: (centre.x + radius, centre.y, centre.z).
    virtual void EvaluateAtParameter(double parameter, double* point, double* firstDerivative,
                                     double* secondDerivative) const = 0;

protected:
    ~kxCircle_c() override;
};
using kxCircle_ptr = kxInterfacePtr<kxCircle_c>;
