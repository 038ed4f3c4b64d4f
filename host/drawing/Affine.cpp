// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Affine.h"

#include <algorithm>
#include <cmath>

#include "drawing/Angles.h"

namespace kxdrawing {

kxVector3 Affine::vector(const kxVector3& v) const {
    return {xx * v.x + xy * v.y, yx * v.x + yy * v.y, zz * v.z};
}

kxVector3 Affine::point(const kxVector3& p) const {
    const kxVector3 v = vector(p);
    return {v.x + shift.x, v.y + shift.y, v.z + shift.z};
}

bool Affine::isSimilarity() const {
    const double first = xx * xx + yx * yx;
    const double second = xy * xy + yy * yy;
    const double mixed = xx * xy + yx * yy;
    const double bound = 1e-12 * std::max(first, second);
    return std::abs(first - second) <= bound && std::abs(mixed) <= bound;
}

double Affine::lengthFactor() const {
    // The common cases without rounding.
    if (xy == 0 && yx == 0 && std::abs(xx) == std::abs(yy)) {
        return std::abs(xx);
    }
    if (xx == 0 && yy == 0 && std::abs(xy) == std::abs(yx)) {
        return std::abs(xy);
    }
    return std::sqrt(std::abs(determinant()));
}

double Affine::rotation() const {
    // A negative zero would turn the half turn of a mirror round.
    return std::atan2(yx + 0.0, xx);
}

Affine Affine::translation(const kxVector3& shift) {
    Affine result;
    result.shift = shift;
    return result;
}

Affine Affine::scaling(const kxVector3& factors) {
    Affine result;
    result.xx = factors.x;
    result.yy = factors.y;
    result.zz = factors.z;
    return result;
}

Affine Affine::rotationDeg(double degrees) {
    const double quarters = std::fmod(degrees, 360.0) / 90.0;
    double cosine = std::cos(degrees * kRadPerDeg);
    double sine = std::sin(degrees * kRadPerDeg);
    if (quarters == std::trunc(quarters)) {
        cosine = std::round(cosine);
        sine = std::round(sine);
    }
    Affine result;
    result.xx = cosine;
    result.xy = -sine;
    result.yx = sine;
    result.yy = cosine;
    return result;
}

Affine Affine::mirroredExtrusion() {
    return scaling({-1, 1, -1});
}

Affine operator*(const Affine& outer, const Affine& inner) {
    Affine result;
    result.xx = outer.xx * inner.xx + outer.xy * inner.yx;
    result.xy = outer.xx * inner.xy + outer.xy * inner.yy;
    result.yx = outer.yx * inner.xx + outer.yy * inner.yx;
    result.yy = outer.yx * inner.xy + outer.yy * inner.yy;
    result.zz = outer.zz * inner.zz;
    result.shift = outer.point(inner.shift);
    return result;
}

}  // namespace kxdrawing
