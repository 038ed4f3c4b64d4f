// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObject.h>

/// What joins a vertex of a polyline to the next one.
enum kxPolyLineSegmentType_e { kxPolyLineSegment_Line = 1, kxPolyLineSegment_Arc = 2 };

/// A chain of straight and circular segments (`kxPolyLineType`). A closed polyline has as many
/// segments as vertices, an open one has one less.
class KX_EXPORT kxPolyLine_c : public kxObject {
public:
    /// Writes the number of vertices, at least 1.
    virtual void GetVerticesCount(long* count) const = 0;
    /// Write what belongs to a vertex, or to the segment that begins there. False, with nothing
    /// written, when the index is out of range.
    virtual bool GetVertex(long index, double* x, double* y, double* z) const = 0;
    virtual bool GetSegmentType(long index, kxPolyLineSegmentType_e* type) const = 0;
    /// The tangent of a quarter of the segment's included angle: positive counter-clockwise,
    /// 0 straight, 1 a half circle.
    virtual bool GetBulge(long index, double* bulge) const = 0;
    virtual bool IsClosed() const = 0;

protected:
    ~kxPolyLine_c() override;
};
using kxPolyLine_ptr = kxInterfacePtr<kxPolyLine_c>;
