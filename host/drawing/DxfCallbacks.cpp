// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <cmath>
#include <utility>

#include "drawing/Affine.h"
#include "drawing/Angles.h"
#include "drawing/DxfModelBuilder.h"
#include "drawing/DxfText.h"
#include "drawing/Ellipse.h"
#include "drawing/ShapeTransform.h"
#include "drawing/SplineFit.h"

// What dxflib makes of single records, turned into shapes. Values that dxflib does not hand on are
// taken from the record itself.

namespace kxdrawing {

namespace {

constexpr unsigned kClosed = 1;
constexpr unsigned kSpacePolyline = 8;
constexpr unsigned kMesh = 16 | 64;

/// The same arc seen from above, for one in the system of a mirrored extrusion.
AngleSpan mirroredDeg(AngleSpan span) {
    const double start = std::fmod(180 - span.end, 360.0);
    const double sweep = withinOneTurn(span, 360).end - span.start;
    const double end = std::fmod(180 - span.start, 360.0);
    const AngleSpan image{start < 0 ? start + 360 : start, end < 0 ? end + 360 : end};
    return sweep == 360 ? AngleSpan{image.start, image.start + 360} : image;
}

}  // namespace

void DxfModelBuilder::setShape(Shape shape) {
    m_entity->content = std::move(shape);
}

void DxfModelBuilder::setPlaneShape(Shape shape) {
    if (!m_mirrored) {
        setShape(std::move(shape));
        return;
    }
    std::vector<Shape> image;
    transformShape(shape, Affine::mirroredExtrusion(), &image);
    setShape(std::move(image.front()));
}

void DxfModelBuilder::addLayer(const DL_LayerData& data) {
    constexpr unsigned kFrozen = 1;
    const bool off = m_record->integer(62, 7) < 0;
    const bool frozen = (static_cast<unsigned>(data.flags) & kFrozen) != 0;
    const std::string name = decodeText(m_record->text(2));
    m_model.layers[layerIndex(name)].visible = !off && !frozen;
    if (frozen) {
        m_model.frozenLayers.insert(nameKey(name));
    }
}

void DxfModelBuilder::addBlock(const DL_BlockData& data) {
    m_block = &m_model.blocks[nameKey(m_record->text(2))];
    *m_block = {{data.bpx, data.bpy, data.bpz}, {}};
}

void DxfModelBuilder::endBlock() {
    m_block = nullptr;
}

void DxfModelBuilder::addPoint(const DL_PointData& data) {
    setShape(PointShape{{data.x, data.y, data.z}});
}

void DxfModelBuilder::addLine(const DL_LineData& data) {
    setShape(LineShape{{data.x1, data.y1, data.z1}, {data.x2, data.y2, data.z2}});
}

void DxfModelBuilder::addCircle(const DL_CircleData& data) {
    setPlaneShape(CircleShape{{data.cx, data.cy, data.cz}, data.radius});
}

void DxfModelBuilder::addArc(const DL_ArcData& data) {
    kxVector3 center{data.cx, data.cy, data.cz};
    AngleSpan span{data.angle1, data.angle2};
    if (std::abs(span.end - span.start) > 360 || span.end - span.start == -360) {
        span = withinOneTurn(span, 360);
    }
    if (m_mirrored) {
        center = Affine::mirroredExtrusion().point(center);
        span = mirroredDeg(span);
    }
    const double start = span.start * kRadPerDeg;
    double end = span.end * kRadPerDeg;
    end += end > start ? 0 : kTwoPi;
    setShape(kxCircleArcData{center, data.radius, start, end, {}, {}});
}

void DxfModelBuilder::addEllipse(const DL_EllipseData& data) {
    if (std::abs(data.mz) > 1e-9 * std::hypot(data.mx, data.my)) {
        m_entity->content = LeftOut{"not parallel to the XY plane"};
        return;
    }
    const double ratio = m_mirrored ? -data.ratio : data.ratio;
    AngleSpan span = withinOneTurn({data.angle1, data.angle2}, kTwoPi);
    if (std::abs(span.start) > 4 * kTwoPi) {
        // So far out parameters lose the precision that the curve needs.
        const double start = std::remainder(span.start, kTwoPi);
        span = {start, start + (span.end - span.start)};
    }
    // Full ellipses are written with six digits too: a gap that small is none.
    if (std::abs(span.end - span.start - kTwoPi) < 1e-6) {
        span.end = span.start + kTwoPi;
    }
    setShape(principalForm({{data.cx, data.cy, data.cz},
                            {data.mx, data.my, 0},
                            {-ratio * data.my, ratio * data.mx, 0},
                            span.start,
                            span.end}));
}

void DxfModelBuilder::addPolyline(const DL_PolylineData& data) {
    const auto flags = static_cast<unsigned>(data.flags);
    m_polyline.emplace();
    m_polyline->data.closed = (flags & kClosed) != 0;
    const bool light = m_record->type == "LWPOLYLINE";
    m_polyline->space = !light && (flags & kSpacePolyline) != 0;
    m_polyline->elevation = m_record->real(light ? 38 : 30, 0);
    m_polyline->light = light;
    if (!light && (flags & kMesh) != 0) {
        m_polyline->problem = "mesh";
    }
}

void DxfModelBuilder::addVertex(const DL_VertexData& data) {
    if (!m_polyline) {
        return;
    }
    kxPolyLineVertex vertex{{data.x, data.y, data.z}, data.bulge};
    if (m_polyline->space) {
        vertex.bulge = 0;
    } else if (m_polyline->light || m_polyline->elevation != 0) {
        vertex.point.z = m_polyline->elevation;
    }
    m_polyline->data.vertices.push_back(vertex);
}

void DxfModelBuilder::finishPolyline() {
    if (!m_polyline) {
        return;
    }
    PendingPolyline polyline = std::move(*m_polyline);
    m_polyline.reset();
    if (!polyline.problem.empty()) {
        m_entity->content = LeftOut{polyline.problem};
    } else if (polyline.space) {
        setShape(std::move(polyline.data));
    } else {
        setPlaneShape(std::move(polyline.data));
    }
    if (polyline.controlPoints && polyline.problem.empty()) {
        m_entity->convertedInto = "polyline without its control points";
    }
    finishEntity();
}

void DxfModelBuilder::addSpline(const DL_SplineData& data) {
    m_spline.emplace();
    m_spline->data.degree = static_cast<int>(data.degree);
    m_spline->closed = (static_cast<unsigned>(data.flags) & kClosed) != 0;
}

void DxfModelBuilder::addControlPoint(const DL_ControlPointData& data) {
    m_spline->data.controlPoints.push_back({data.x, data.y, data.z});
    if (m_record->find(41) != nullptr) {
        m_spline->data.weights.push_back(data.w);
    }
}

void DxfModelBuilder::addFitPoint(const DL_FitPointData& data) {
    m_spline->fitPoints.push_back({data.x, data.y, data.z});
}

void DxfModelBuilder::addKnot(const DL_KnotData& data) {
    m_spline->data.knots.push_back(data.k);
}

void DxfModelBuilder::finishSpline() {
    if (!m_spline) {
        return;
    }
    const PendingSpline spline = std::move(*m_spline);
    m_spline.reset();
    if (!spline.data.controlPoints.empty()) {
        setShape(spline.data);
    } else if (const auto fitted = splineThrough(spline.fitPoints, spline.closed)) {
        setShape(*fitted);
        m_entity->convertedInto = "spline through its fit points";
    } else {
        m_entity->content = LeftOut{"fewer than two points"};
    }
}

void DxfModelBuilder::addInsert(const DL_InsertData& data) {
    InsertShape insert;
    insert.block = nameKey(m_record->text(2));
    insert.position = {data.ipx, data.ipy, data.ipz};
    insert.scale = {data.sx, data.sy, data.sz};
    insert.rotationDeg = data.angle;
    insert.columns = data.cols > 0 ? data.cols : 1;
    insert.rows = data.rows > 0 ? data.rows : 1;
    insert.columnSpacing = data.colSp;
    insert.rowSpacing = data.rowSp;
    insert.mirrored = m_mirrored;
    m_entity->content = insert;
}

void DxfModelBuilder::addNote(const DL_TextData& data) {
    const double rotation = m_record->real(50, 0) * kRadPerDeg;
    setPlaneShape(kxSimpleNoteData{{data.ipx, data.ipy, data.ipz},
                                   kxString(plainText(m_record->text(1))),
                                   data.height,
                                   rotation});
}

void DxfModelBuilder::addText(const DL_TextData& data) {
    addNote(data);
}

void DxfModelBuilder::addAttribute(const DL_AttributeData& data) {
    addNote(data);
    m_entity->convertedInto = "note";
}

void DxfModelBuilder::addMText(const DL_MTextData& data) {
    double rotation = m_record->real(50, 0) * kRadPerDeg;
    if (m_record->find(11) != nullptr) {
        rotation = std::atan2(m_record->real(21, 0), m_record->real(11, 1));
    }
    std::string text;
    for (const DxfGroup& group : m_record->groups) {
        // Long texts come in pieces (3), the last of which is group 1.
        text += group.code == 1 || group.code == 3 ? group.value : "";
    }
    setShape(kxSimpleNoteData{
        {data.ipx, data.ipy, data.ipz}, kxString(plainMultiLineText(text)), data.height, rotation});
}

}  // namespace kxdrawing
