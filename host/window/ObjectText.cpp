// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ObjectText.h"

#include <array>

#include <QCoreApplication>
#include <QStringList>

#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxEllipseArc.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>
#include <kx/kxPolyLine.h>
#include <kx/kxSimpleNote.h>
#include <kx/kxSpline.h>

#include "KxText.h"

namespace {

struct TypeName {
    kxObjectType_e type;
    const char* keyword;
    const char* one;
    const char* many;
};

constexpr std::array<TypeName, 8> kTypeNames{{
    {kxLineType, "LINE", "line", "lines"},
    {kxCircleArcType, "ARC", "arc", "arcs"},
    {kxCircleType, "CIRCLE", "circle", "circles"},
    {kxPointType, "POINT", "point", "points"},
    {kxPolyLineType, "POLYLINE", "polyline", "polylines"},
    {kxEllipseArcType, "ELLIPSE", "ellipse", "ellipses"},
    {kxSplineType, "SPLINE", "spline", "splines"},
    {kxSimpleNoteType, "TEXT", "text", "texts"},
}};

constexpr double kDegreesPerRadian = 180.0 / 3.14159265358979323846;

const TypeName* nameOf(kxObjectType_e type) {
    for (const TypeName& name : kTypeNames) {
        if (name.type == type) {
            return &name;
        }
    }
    return nullptr;
}

QString tr(const char* text) {
    return QCoreApplication::translate("ObjectText", text);
}

QString pointText(const double* point) {
    const QString plane = numberText(point[0]) + ", " + numberText(point[1]);
    return "(" + (point[2] == 0 ? plane : plane + ", " + numberText(point[2])) + ")";
}

template <class Curve, class Getter>
QString placeOf(const Curve& curve, Getter getter) {
    double point[3] = {};
    (curve.*getter)(&point[0], &point[1], &point[2]);
    return pointText(point);
}

template <class Curve>
QString anglesOf(const Curve& curve) {
    double start = 0;
    double end = 0;
    curve.GetEndParams(&start, &end);
    return tr("from %1 to %2 degrees")
        .arg(numberText(start * kDegreesPerRadian), numberText(end * kDegreesPerRadian));
}

template <class Curve>
QString roundText(const Curve& curve) {
    double radius = 0;
    curve.get_Radius(&radius);
    return tr("centre %1, radius %2").arg(placeOf(curve, &Curve::GetCenter), numberText(radius));
}

QString polyLineText(const kxPolyLine_c& line) {
    long count = 0;
    line.GetVerticesCount(&count);
    return plural(count, tr("vertex"), tr("vertices")) + ", " +
           (line.IsClosed() ? tr("closed") : tr("open"));
}

QString splineText(const kxSpline_c& spline) {
    long count = 0;
    spline.GetControlPointCount(&count);
    return tr("degree %1, %2")
        .arg(spline.GetDegree())
        .arg(plural(count, tr("control point"), tr("control points")));
}

QString geometryText(kxObject& object) {
    if (const auto line = kxCast<kxLine_c>(&object)) {
        return tr("from %1 to %2")
            .arg(placeOf(*line, &kxLine_c::GetFirstPoint),
                 placeOf(*line, &kxLine_c::GetSecondPoint));
    }
    if (const auto arc = kxCast<kxCircleArc_c>(&object)) {
        return roundText(*arc) + ", " + anglesOf(*arc);
    }
    if (const auto circle = kxCast<kxCircle_c>(&object)) {
        return roundText(*circle);
    }
    if (const auto point = kxCast<kxPoint_c>(&object)) {
        return tr("at %1").arg(placeOf(*point, &kxPoint_c::GetPosition));
    }
    if (const auto line = kxCast<kxPolyLine_c>(&object)) {
        return polyLineText(*line);
    }
    if (const auto ellipse = kxCast<kxEllipseArc_c>(&object)) {
        return tr("centre %1, ").arg(placeOf(*ellipse, &kxEllipseArc_c::GetCenter)) +
               anglesOf(*ellipse);
    }
    if (const auto spline = kxCast<kxSpline_c>(&object)) {
        return splineText(*spline);
    }
    if (const auto note = kxCast<kxSimpleNote_c>(&object)) {
        return tr("at %1: \"%2\"")
            .arg(placeOf(*note, &kxSimpleNote_c::GetPosition), toQString(note->GetText()));
    }
    return {};
}

}  // namespace

TypeCounts countTypes(const std::vector<kxObject_ptr>& objects) {
    TypeCounts counts;
    for (const kxObject_ptr& object : objects) {
        ++counts[object->GetType()];
    }
    return counts;
}

QString typeKeyword(kxObjectType_e type) {
    const TypeName* name = nameOf(type);
    return name != nullptr ? QString::fromLatin1(name->keyword) : QString();
}

kxObjectType_e typeOfKeyword(const QString& word) {
    const QString wanted = word.toUpper();
    for (const TypeName& name : kTypeNames) {
        const QString keyword = QString::fromLatin1(name.keyword);
        if (wanted == keyword || wanted == keyword + "S") {
            return name.type;
        }
    }
    return kxUnknownType;
}

QString countText(kxObjectType_e type, long count) {
    const TypeName* name = nameOf(type);
    return name != nullptr ? plural(count, tr(name->one), tr(name->many))
                           : plural(count, tr("other object"), tr("other objects"));
}

QString countText(const TypeCounts& counts) {
    QStringList parts;
    for (const auto& [type, count] : counts) {
        if (count != 0) {
            parts.append(countText(type, count));
        }
    }
    if (parts.isEmpty()) {
        return tr("nothing");
    }
    const QString last = parts.takeLast();
    return parts.isEmpty() ? last : tr("%1 and %2").arg(parts.join(", "), last);
}

QString plural(long count, const QString& one, const QString& many) {
    return QString::number(count) + " " + (count == 1 ? one : many);
}

QString describeObject(kxObject& object) {
    const TypeName* name = nameOf(object.GetType());
    const QString kind = name != nullptr ? tr(name->one) : tr("object");
    return tr("%1 on layer %2: %3")
        .arg(kind.left(1).toUpper() + kind.mid(1), toQString(object.GetLayer()),
             geometryText(object));
}

QString numberText(double value) {
    // Rounding may leave the sign of a zero.
    const QString text = QString::number(value, 'g', 10);
    return text == "-0" ? QString::number(0) : text;
}
