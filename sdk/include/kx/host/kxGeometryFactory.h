// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include <kx/host/kxVector3.h>
#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxEllipseArc.h>
#include <kx/kxExport.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>
#include <kx/kxPolyLine.h>
#include <kx/kxSimpleNote.h>
#include <kx/kxSpline.h>

// How a host makes the objects of its drawings. Coordinates are world coordinates in drawing
// units; numbers are taken as they are, so the host checks them before.

struct kxCircleArcData {
    kxVector3 center;
    double radius = 0;
    /// Radians; 2 pi is added to the end when it is not greater than the start.
    double startParameter = 0;
    double endParameter = 0;
    /// What the ends evaluate to, exactly, when the arc joins other geometry there.
    std::optional<kxVector3> exactStart = std::nullopt;
    std::optional<kxVector3> exactEnd = std::nullopt;
};

struct kxEllipseArcData {
    kxVector3 center;
    kxVector3 majorAxis;
    kxVector3 minorAxis;
    /// Radians; 2 pi is added to the end when it is not greater than the start.
    double startParameter = 0;
    double endParameter = 0;
};

struct kxPolyLineVertex {
    kxVector3 point;
    double bulge = 0;
};

struct kxPolyLineData {
    std::vector<kxPolyLineVertex> vertices;
    bool closed = false;
};

struct kxSplineData {
    int degree = 3;
    std::vector<double> knots;
    std::vector<kxVector3> controlPoints;
    /// As many as control points, or none: then all weights are 1.
    std::vector<double> weights;
};

struct kxSimpleNoteData {
    kxVector3 position;
    kxString text;
    double height = 0;
    double rotation = 0;
};

KX_EXPORT kxLine_ptr kxCreateLine(const kxString& layer, const kxVector3& first,
                                  const kxVector3& second);
KX_EXPORT kxPoint_ptr kxCreatePoint(const kxString& layer, const kxVector3& position);
KX_EXPORT kxCircle_ptr kxCreateCircle(const kxString& layer, const kxVector3& center,
                                      double radius);
KX_EXPORT kxCircleArc_ptr kxCreateCircleArc(const kxString& layer, const kxCircleArcData& data);
KX_EXPORT kxEllipseArc_ptr kxCreateEllipseArc(const kxString& layer, const kxEllipseArcData& data);
KX_EXPORT kxPolyLine_ptr kxCreatePolyLine(const kxString& layer, const kxPolyLineData& data);
/// Null unless degree >= 1, there are degree + 1 control points at least, the numbers of knots
/// and weights fit, weights are above 0, and the knots do not decrease and span an interval.
KX_EXPORT kxSpline_ptr kxCreateSpline(const kxString& layer, const kxSplineData& data);
KX_EXPORT kxSimpleNote_ptr kxCreateSimpleNote(const kxString& layer, const kxSimpleNoteData& data);
