// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/HostSelection.h"

#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>
#include <kx/kxPolyLine.h>

namespace {

template <class Curve>
bool readCurve(kxObject* object, GCode::ArcGeometry* geometry) {
    const kxInterfacePtr<Curve> curve = kxCast<Curve>(object);
    if (!curve) {
        return false;
    }
    double start = 0;
    double end = 0;
    curve->GetEndParams(&start, &end);
    double from[3] = {};
    double to[3] = {};
    double firstDerivative[3] = {};
    double secondDerivative[3] = {};
    curve->EvaluateAtParameter(start, from, firstDerivative, secondDerivative);
    curve->EvaluateAtParameter(end, to, firstDerivative, secondDerivative);
    double x = 0;
    double y = 0;
    double z = 0;
    curve->GetCenter(&x, &y, &z);
    geometry->start.SetPoint(from[0], from[1], from[2]);
    geometry->end.SetPoint(to[0], to[1], to[2]);
    geometry->centre.SetPoint(x, y, z);
    curve->get_Radius(&geometry->radius);
    return true;
}

template <class Curve>
bool readCenter(kxObject* object, GCode::Point* center) {
    const kxInterfacePtr<Curve> curve = kxCast<Curve>(object);
    if (curve) {
        curve->GetCenter(&center->m_x, &center->m_y, &center->m_z);
    }
    return static_cast<bool>(curve);
}

void readLine(kxObject* object, GCode::Point* first, GCode::Point* second) {
    const kxLine_ptr line = kxCast<kxLine_c>(object);
    if (line) {
        line->GetFirstPoint(&first->m_x, &first->m_y, &first->m_z);
        line->GetSecondPoint(&second->m_x, &second->m_y, &second->m_z);
    }
}

/// Asks for the segments of a polyline. The answers are not used: a polyline has no place on the
/// path before it is taken apart.
void visitSegments(kxObject* object) {
    const kxPolyLine_ptr polyline = kxCast<kxPolyLine_c>(object);
    long count = 0;
    if (polyline) {
        polyline->GetVerticesCount(&count);
    }
    for (long index = 0; index < count; ++index) {
        kxPolyLineSegmentType_e type = kxPolyLineSegment_Line;
        polyline->GetSegmentType(index, &type);
    }
}

}  // namespace

kxSelectionManager_ptr activeSelectionManager(kxApplication_c* application) {
    const kxApplication_ptr host(application);
    const kxDocument_ptr drawing = host ? host->GetActiveDocument() : kxDocument_ptr();
    const kxModel_ptr model = drawing ? drawing->GetModel() : kxModel_ptr();
    const kxSketchManager_ptr sketches = model ? model->GetSketchManager() : kxSketchManager_ptr();
    return sketches ? drawing->GetSelectionManager() : kxSelectionManager_ptr();
}

long selectedObjectCount(const kxSelectionManager_ptr& manager, kxSelectionSetType_e set) {
    long count = 0;
    if (manager) {
        manager->GetSelectedObjectCount(set, &count);
    }
    return count;
}

GCode::Entity entityOf(kxObjectType_e type, kxObject* object) {
    GCode::Entity entity;
    entity.type = type;
    entity.object = object;
    switch (type) {
        case kxLineType:
            readLine(object, &entity.firstPoint, &entity.secondPoint);
            break;
        case kxCircleArcType:
            readCenter<kxCircleArc_c>(object, &entity.firstPoint);
            break;
        case kxCircleType:
            readCenter<kxCircle_c>(object, &entity.firstPoint);
            break;
        case kxPointType:
            readPoint(object, &entity.firstPoint);
            break;
        case kxPolyLineType:
            visitSegments(object);
            break;
        default:
            break;
    }
    return entity;
}

bool isLine(kxObject* object) {
    return static_cast<bool>(kxCast<kxLine_c>(object));
}

bool readPoint(kxObject* object, GCode::Point* position) {
    const kxPoint_ptr point = kxCast<kxPoint_c>(object);
    if (point) {
        point->GetPosition(&position->m_x, &position->m_y, &position->m_z);
    }
    return static_cast<bool>(point);
}

bool readArc(kxObject* object, GCode::ArcGeometry* geometry) {
    return readCurve<kxCircleArc_c>(object, geometry);
}

bool readCircle(kxObject* object, GCode::ArcGeometry* geometry) {
    return readCurve<kxCircle_c>(object, geometry);
}

std::vector<GCode::Point> drillPositions(const std::vector<GCode::Entity>& path) {
    std::vector<GCode::Point> positions;
    for (const GCode::Entity& entity : path) {
        GCode::Point position = entity.firstPoint;
        const bool read =
            positions.empty() ||
            (entity.type == kxPointType && readPoint(entity.object, &position)) ||
            (entity.type == kxCircleType && readCenter<kxCircle_c>(entity.object, &position));
        if (read) {
            positions.push_back(position);
        }
    }
    return positions;
}
