// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <array>
#include <cmath>
#include <type_traits>

#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxEllipseArc.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>
#include <kx/kxPolyLine.h>
#include <kx/kxSimpleNote.h>
#include <kx/kxSpline.h>

#include "FuzzCheck.h"
#include "ObjectChecks.h"

namespace {

constexpr double kGreatestCoordinate = 1e12;

/// What is computed from numbers in range, such as a point of a curve.
void checkComputed(double value) {
    FUZZ_CHECK(std::abs(value) <= 8 * kGreatestCoordinate);
}

void checkGiven(double value) {
    FUZZ_CHECK(std::abs(value) <= kGreatestCoordinate);
}

template <class T>
void checkEnds(const T& curve) {
    double start = 0;
    double end = 0;
    curve.GetEndParams(&start, &end);
    FUZZ_CHECK(std::isfinite(start) && std::isfinite(end) && start < end);
    for (const double t : {start, 0.7 * start + 0.3 * end, end}) {
        double p[3] = {NAN, NAN, NAN};
        double d[3] = {NAN, NAN, NAN};
        if constexpr (std::is_base_of_v<kxSpline_c, T>) {
            curve.EvaluateAtParameter(t, p, d);
        } else {
            curve.EvaluateAtParameter(t, p, d, nullptr);
        }
        for (int i = 0; i < 3; ++i) {
            checkComputed(p[i]);
            FUZZ_CHECK(!std::isnan(d[i]));
        }
    }
}

template <class T>
void checkRound(const T& round) {
    double p[3];
    round.GetCenter(p, p + 1, p + 2);
    double radius = 0;
    round.get_Radius(&radius);
    // Of a piece of a curve they are computed.
    for (const double value : {p[0], p[1], p[2], radius}) {
        checkComputed(value);
    }
    FUZZ_CHECK(radius > 0);
    checkEnds(round);
}

void check(const kxCircle_c& circle) {
    checkRound(circle);
}

void check(const kxCircleArc_c& arc) {
    checkRound(arc);
}

std::array<double, 6> endsOf(const kxLine_c& line) {
    std::array<double, 6> p{};
    line.GetFirstPoint(&p[0], &p[1], &p[2]);
    line.GetSecondPoint(&p[3], &p[4], &p[5]);
    return p;
}

void check(const kxLine_c& line) {
    for (const double value : endsOf(line)) {
        checkGiven(value);
    }
}

void check(const kxPoint_c& point) {
    double p[3];
    point.GetPosition(p, p + 1, p + 2);
    for (const double value : p) {
        checkGiven(value);
    }
}

void check(const kxEllipseArc_c& ellipse) {
    double p[9];
    ellipse.GetCenter(p, p + 1, p + 2);
    ellipse.GetMajorAxis(p + 3, p + 4, p + 5);
    ellipse.GetMinorAxis(p + 6, p + 7, p + 8);
    for (const double value : p) {
        checkGiven(value);
    }
    FUZZ_CHECK(std::hypot(p[3], p[4]) > 0 && std::hypot(p[6], p[7]) > 0);
    checkEnds(ellipse);
}

void check(const kxPolyLine_c& polyline) {
    long count = 0;
    polyline.GetVerticesCount(&count);
    FUZZ_CHECK(count >= 2);
    for (long i = 0; i < count; ++i) {
        double p[4];
        FUZZ_CHECK(polyline.GetVertex(i, p, p + 1, p + 2) && polyline.GetBulge(i, p + 3));
        for (const double value : p) {
            checkGiven(value);
        }
    }
}

void check(const kxSpline_c& spline) {
    long count = 0;
    spline.GetControlPointCount(&count);
    FUZZ_CHECK(spline.GetDegree() >= 1 && count > spline.GetDegree());
    for (long i = 0; i < count; ++i) {
        double p[3];
        double weight = 0;
        FUZZ_CHECK(spline.GetControlPoint(i, p, &weight));
        for (const double value : p) {
            checkGiven(value);
        }
        FUZZ_CHECK(weight > 0 && std::isfinite(weight));
    }
    checkEnds(spline);
}

void check(const kxSimpleNote_c& note) {
    double p[3];
    note.GetPosition(p, p + 1, p + 2);
    for (const double value : {p[0], p[1], p[2], note.GetHeight(), note.GetRotation()}) {
        checkGiven(value);
    }
    const kxString text = note.GetText();
    for (std::size_t i = 0; i < text.length(); ++i) {
        FUZZ_CHECK(text.c_str()[i] >= L' ' && text.c_str()[i] != 0x7F);
    }
}

/// False for an object of another class.
template <class T>
bool checkAs(kxObject* object) {
    const auto narrowed = kxCast<T>(object);
    if (narrowed) {
        check(*narrowed);
    }
    return static_cast<bool>(narrowed);
}

}  // namespace

void checkNumbers(kxObject& object) {
    FUZZ_CHECK(checkAs<kxLine_c>(&object) || checkAs<kxPoint_c>(&object) ||
               checkAs<kxCircle_c>(&object) || checkAs<kxCircleArc_c>(&object) ||
               checkAs<kxEllipseArc_c>(&object) || checkAs<kxPolyLine_c>(&object) ||
               checkAs<kxSpline_c>(&object) || checkAs<kxSimpleNote_c>(&object));
}

void checkPieceNumbers(kxObject& piece) {
    const auto line = kxCast<kxLine_c>(&piece);
    if (!line) {
        checkNumbers(piece);
        return;
    }
    // Points of a curve: an ellipse may reach beyond what its center and axes may be.
    for (const double value : endsOf(*line)) {
        checkComputed(value);
    }
}
