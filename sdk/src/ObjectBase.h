// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/host/kxVector3.h>
#include <kx/kxObject.h>

/// What all drawing objects share: `Interface` is the object's class, `Type` its code.
template <class Interface, kxObjectType_e Type>
class ObjectBase : public Interface {
public:
    explicit ObjectBase(const kxString& layer) : m_layer(layer) {}
    kxObjectType_e GetType() const override { return Type; }
    kxString GetLayer() const override { return m_layer; }

private:
    kxString m_layer;
};

inline void writePoint(const kxVector3& point, double* x, double* y, double* z) {
    *x = point.x;
    *y = point.y;
    *z = point.z;
}

/// Writes a point into an array of three doubles; null is skipped.
inline void writeArray(const kxVector3& point, double* array) {
    if (array != nullptr) {
        writePoint(point, array, array + 1, array + 2);
    }
}
