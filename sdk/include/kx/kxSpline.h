// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// A rational B-spline curve, NURBS (`kxSplineType`), with n control points, degree p and
/// n + p + 1 knots that never decrease.
class KX_EXPORT kxSpline_c : public kxObject {
public:
    virtual int GetDegree() const = 0;
    virtual void GetControlPointCount(long* count) const = 0;
    /// Writes a control point and its weight, greater than 0. False when the index is out of range.
    virtual bool GetControlPoint(long index, double* point, double* weight) const = 0;
    virtual void GetKnotCount(long* count) const = 0;
    virtual bool GetKnot(long index, double* knot) const = 0;
    /// Writes the parameters of the ends, knots p and n.
    virtual void GetEndParams(double* start, double* end) const = 0;
    /// Writes the point at a parameter and, where the pointer is not null, the first derivative;
    /// each array takes three doubles. A parameter outside the ends is moved to the nearer one.
    virtual void EvaluateAtParameter(double parameter, double* point,
                                     double* firstDerivative) const = 0;

protected:
    ~kxSpline_c() override;
};
using kxSpline_ptr = kxInterfacePtr<kxSpline_c>;
