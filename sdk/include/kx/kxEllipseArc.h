// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// An ellipse or a part of one, parallel to the XY plane (`kxEllipseArcType`). The point at the
/// parameter t is centre + cos(t) * major + sin(t) * minor.
class KX_EXPORT kxEllipseArc_c : public kxObject {
public:
    virtual void GetCenter(double* x, double* y, double* z) const = 0;
    /// Write the half axes as vectors from the centre.
    virtual void GetMajorAxis(double* x, double* y, double* z) const = 0;
    virtual void GetMinorAxis(double* x, double* y, double* z) const = 0;
    /// Writes the parameters of the ends in radians; the end is greater than the start. A full
    /// ellipse spans 2 pi.
    virtual void GetEndParams(double* start, double* end) const = 0;
    /// Writes the point at a parameter and, where the pointers are not null, the first and second
    /// derivative by the parameter; each array takes three doubles.
    virtual void EvaluateAtParameter(double parameter, double* point, double* firstDerivative,
                                     double* secondDerivative) const = 0;

protected:
    ~kxEllipseArc_c() override;
};
using kxEllipseArc_ptr = kxInterfacePtr<kxEllipseArc_c>;
