// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// A circular arc parallel to the XY plane, counter-clockwise (`kxCircleArcType`).
class KX_EXPORT kxCircleArc_c : public kxObject {
public:
    virtual void GetCenter(double* x, double* y, double* z) const = 0;
    /// Writes the radius, greater than 0.
    virtual void get_Radius(double* radius) const = 0;
    /// Writes the angles of the ends in radians from the X axis, counter-clockwise; the end is
    /// greater than the start.
    virtual void GetEndParams(double* start, double* end) const = 0;
    /// Writes the point at an angle in radians and, where the pointers are not null, the first
    /// and second derivative by the angle; each array takes three doubles. An arc cut out of a
    /// polyline gives the polyline's vertices exactly at its end parameters.
    virtual void EvaluateAtParameter(double parameter, double* point, double* firstDerivative,
                                     double* secondDerivative) const = 0;

protected:
    ~kxCircleArc_c() override;
};
using kxCircleArc_ptr = kxInterfacePtr<kxCircleArc_c>;
