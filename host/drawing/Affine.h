// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <kx/host/kxVector3.h>

namespace kxdrawing {

/// A map of space that keeps planes parallel to XY parallel to it:
/// x' = xx x + xy y + tx, y' = yx x + yy y + ty, z' = zz z + tz.
struct Affine {
    double xx = 1;
    double xy = 0;
    double yx = 0;
    double yy = 1;
    double zz = 1;
    kxVector3 shift;

    kxVector3 point(const kxVector3& p) const;
    /// Without the shift.
    kxVector3 vector(const kxVector3& v) const;
    double determinant() const { return xx * yy - xy * yx; }
    bool mirrors() const { return determinant() < 0; }
    /// Whether circles stay circles, within 1e-12 relative.
    bool isSimilarity() const;
    /// The factor of lengths in the plane: the root of the area's factor.
    double lengthFactor() const;
    /// The angle that the X axis is turned by, in radians.
    double rotation() const;

    static Affine translation(const kxVector3& shift);
    static Affine scaling(const kxVector3& factors);
    /// Counter-clockwise; multiples of 90 degrees are exact.
    static Affine rotationDeg(double degrees);
    /// The system of the extrusion (0, 0, -1): x and z change their sign.
    static Affine mirroredExtrusion();
};

/// First `inner`, then `outer`.
Affine operator*(const Affine& outer, const Affine& inner);

}  // namespace kxdrawing
