// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "TestHost.h"

namespace {

class Impostor final : public kxObject {
public:
    explicit Impostor(kxObjectType_e type) : m_type(type) {}
    kxObjectType_e GetType() const override { return m_type; }
    kxString GetLayer() const override { return "0"; }

private:
    kxObjectType_e m_type;
};

const char* const kLayer = "0";

}  // namespace

kxVector3 at(double x, double y, double z) {
    return {x, y, z};
}

kxObject_ptr lineObject(const kxVector3& first, const kxVector3& second) {
    return kxCreateLine(kLayer, first, second);
}

kxObject_ptr pointObject(const kxVector3& position) {
    return kxCreatePoint(kLayer, position);
}

kxObject_ptr circleObject(const kxVector3& centre, double radius) {
    return kxCreateCircle(kLayer, centre, radius);
}

kxObject_ptr arcObject(const kxVector3& centre, double radius, double start, double end) {
    return kxCreateCircleArc(kLayer, {centre, radius, start, end});
}

kxObject_ptr polyLineObject() {
    return kxCreatePolyLine(kLayer, {{{at(1, 1), 0}, {at(2, 1), 0.5}, {at(2, 2), 0}}, false});
}

kxObject_ptr noteObject() {
    return kxCreateSimpleNote(kLayer, {at(5, 5), "note", 2.5, 0});
}

kxObject_ptr ellipseArcObject() {
    return kxCreateEllipseArc(kLayer, {at(5, 5), at(3, 0), at(0, 1), 0, 1});
}

kxObject_ptr impostor(kxObjectType_e type) {
    return new Impostor(type);
}
