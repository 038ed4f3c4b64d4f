// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/host/kxGeometryFactory.h>

#include "ObjectBase.h"

namespace {

class Line final : public ObjectBase<kxLine_c, kxLineType> {
public:
    Line(const kxString& layer, const kxVector3& first, const kxVector3& second)
        : ObjectBase(layer), m_first(first), m_second(second) {}
    void GetFirstPoint(double* x, double* y, double* z) const override {
        writePoint(m_first, x, y, z);
    }
    void GetSecondPoint(double* x, double* y, double* z) const override {
        writePoint(m_second, x, y, z);
    }

private:
    kxVector3 m_first;
    kxVector3 m_second;
};

class Point final : public ObjectBase<kxPoint_c, kxPointType> {
public:
    Point(const kxString& layer, const kxVector3& position)
        : ObjectBase(layer), m_position(position) {}
    void GetPosition(double* x, double* y, double* z) const override {
        writePoint(m_position, x, y, z);
    }

private:
    kxVector3 m_position;
};

class SimpleNote final : public ObjectBase<kxSimpleNote_c, kxSimpleNoteType> {
public:
    SimpleNote(const kxString& layer, const kxSimpleNoteData& data)
        : ObjectBase(layer), m_data(data) {}
    void GetPosition(double* x, double* y, double* z) const override {
        writePoint(m_data.position, x, y, z);
    }
    kxString GetText() const override { return m_data.text; }
    double GetHeight() const override { return m_data.height; }
    double GetRotation() const override { return m_data.rotation; }

private:
    kxSimpleNoteData m_data;
};

class PolyLine final : public ObjectBase<kxPolyLine_c, kxPolyLineType> {
public:
    PolyLine(const kxString& layer, const kxPolyLineData& data) : ObjectBase(layer), m_data(data) {}
    void GetVerticesCount(long* count) const override {
        *count = static_cast<long>(m_data.vertices.size());
    }
    bool GetVertex(long index, double* x, double* y, double* z) const override {
        const kxPolyLineVertex* vertex = at(index);
        if (vertex != nullptr) {
            writePoint(vertex->point, x, y, z);
        }
        return vertex != nullptr;
    }
    bool GetSegmentType(long index, kxPolyLineSegmentType_e* type) const override {
        const kxPolyLineVertex* vertex = at(index);
        if (vertex != nullptr) {
            *type = vertex->bulge == 0 ? kxPolyLineSegment_Line : kxPolyLineSegment_Arc;
        }
        return vertex != nullptr;
    }
    bool GetBulge(long index, double* bulge) const override {
        const kxPolyLineVertex* vertex = at(index);
        if (vertex != nullptr) {
            *bulge = vertex->bulge;
        }
        return vertex != nullptr;
    }
    bool IsClosed() const override { return m_data.closed; }

private:
    const kxPolyLineVertex* at(long index) const {
        const bool inRange = index >= 0 && index < static_cast<long>(m_data.vertices.size());
        return inRange ? &m_data.vertices[static_cast<std::size_t>(index)] : nullptr;
    }

    kxPolyLineData m_data;
};

}  // namespace

kxLine_ptr kxCreateLine(const kxString& layer, const kxVector3& first, const kxVector3& second) {
    return new Line(layer, first, second);
}

kxPoint_ptr kxCreatePoint(const kxString& layer, const kxVector3& position) {
    return new Point(layer, position);
}

kxPolyLine_ptr kxCreatePolyLine(const kxString& layer, const kxPolyLineData& data) {
    return new PolyLine(layer, data);
}

kxSimpleNote_ptr kxCreateSimpleNote(const kxString& layer, const kxSimpleNoteData& data) {
    return new SimpleNote(layer, data);
}
