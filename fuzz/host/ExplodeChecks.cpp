// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <cmath>
#include <vector>

#include <kx/host/kxVector3.h>
#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxEllipseArc.h>
#include <kx/kxLine.h>
#include <kx/kxPolyLine.h>
#include <kx/kxSpline.h>

#include "FuzzCheck.h"
#include "ObjectChecks.h"
#include "drawing/Explode.h"

namespace {

using Objects = std::vector<kxObject_ptr>;

constexpr double kTwoPi = 6.283185307179586;
constexpr std::size_t kGreatestChain = 50000;
/// Halves of halves that are still to be done when there are as many, and quarters of an ellipse.
constexpr std::size_t kOpenSpans = 32;
/// To hold each point of a curve against each piece takes time.
constexpr std::size_t kMeasuredPieces = 400;

double distance(const kxVector3& a, const kxVector3& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

double sizeOf(const kxVector3& p) {
    return std::max({std::abs(p.x), std::abs(p.y), std::abs(p.z)});
}

bool same(const kxVector3& a, const kxVector3& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

template <class T>
kxVector3 pointAt(const T& curve, double parameter) {
    double p[3];
    if constexpr (std::is_base_of_v<kxSpline_c, T>) {
        curve.EvaluateAtParameter(parameter, p, nullptr);
    } else {
        curve.EvaluateAtParameter(parameter, p, nullptr, nullptr);
    }
    return {p[0], p[1], p[2]};
}

/// A line or an arc as plain numbers.
struct Piece {
    kxVector3 first;
    kxVector3 second;
    bool isArc = false;
    kxVector3 center;
    double radius = 0;
    double start = 0;
    double sweep = 0;
};

Piece arcPiece(const kxCircleArc_c& arc) {
    Piece piece;
    double end = 0;
    arc.GetEndParams(&piece.start, &end);
    piece.first = pointAt(arc, piece.start);
    piece.second = pointAt(arc, end);
    piece.isArc = true;
    arc.GetCenter(&piece.center.x, &piece.center.y, &piece.center.z);
    arc.get_Radius(&piece.radius);
    piece.sweep = end - piece.start;
    return piece;
}

Piece pieceOf(kxObject& object) {
    if (const auto line = kxCast<kxLine_c>(&object)) {
        Piece piece;
        line->GetFirstPoint(&piece.first.x, &piece.first.y, &piece.first.z);
        line->GetSecondPoint(&piece.second.x, &piece.second.y, &piece.second.z);
        return piece;
    }
    if (const auto circle = kxCast<kxCircle_c>(&object)) {
        Piece piece{pointAt(*circle, 0), pointAt(*circle, kTwoPi), true, {}, 0, 0, kTwoPi};
        circle->GetCenter(&piece.center.x, &piece.center.y, &piece.center.z);
        circle->get_Radius(&piece.radius);
        return piece;
    }
    const auto arc = kxCast<kxCircleArc_c>(&object);
    FUZZ_CHECK(arc);
    return arcPiece(*arc);
}

double distanceTo(const Piece& piece, const kxVector3& p) {
    if (piece.isArc) {
        double turn =
            std::fmod(std::atan2(p.y - piece.center.y, p.x - piece.center.x) - piece.start, kTwoPi);
        turn += turn < 0 ? kTwoPi : 0;
        return turn <= piece.sweep ? std::abs(distance(p, piece.center) - piece.radius)
                                   : std::min(distance(p, piece.first), distance(p, piece.second));
    }
    const kxVector3 v{piece.second.x - piece.first.x, piece.second.y - piece.first.y,
                      piece.second.z - piece.first.z};
    const double length2 = v.x * v.x + v.y * v.y + v.z * v.z;
    const double along =
        (p.x - piece.first.x) * v.x + (p.y - piece.first.y) * v.y + (p.z - piece.first.z) * v.z;
    const double s = length2 > 0 ? std::clamp(along / length2, 0.0, 1.0) : 0;
    return distance(p, {piece.first.x + s * v.x, piece.first.y + s * v.y, piece.first.z + s * v.z});
}

std::vector<Piece> checkedPieces(const kxObject& object, const Objects& objects) {
    std::vector<Piece> pieces;
    for (const kxObject_ptr& each : objects) {
        checkPieceNumbers(*each);
        pieces.push_back(pieceOf(*each));
    }
    FUZZ_CHECK(objects.front()->GetLayer() == object.GetLayer());
    FUZZ_CHECK(objects.back()->GetLayer() == object.GetLayer());
    return pieces;
}

/// Whether the pieces form a chain from `at` on. Arcs run counter-clockwise, so some are walked
/// from their second end.
bool isChain(const std::vector<Piece>& pieces, kxVector3 at) {
    for (const Piece& piece : pieces) {
        if (!same(piece.first, at) && !same(piece.second, at)) {
            return false;
        }
        at = same(piece.first, at) ? piece.second : piece.first;
    }
    return true;
}

void checkChain(const std::vector<Piece>& pieces) {
    FUZZ_CHECK(isChain(pieces, pieces.front().first) || isChain(pieces, pieces.front().second));
}

template <class T>
void checkDistances(const T& curve, const std::vector<Piece>& pieces, int samples) {
    double start = 0;
    double end = 0;
    curve.GetEndParams(&start, &end);
    double farthest = 0;
    for (const Piece& piece : pieces) {
        farthest = std::max({farthest, sizeOf(piece.first), sizeOf(piece.second)});
    }
    const double bound = std::max(kxdrawing::kDefaultTolerance, 4e-9 * farthest);
    for (int i = 0; i <= samples; ++i) {
        const kxVector3 p = pointAt(curve, start + (end - start) * i / samples);
        double nearest = HUGE_VAL;
        for (const Piece& piece : pieces) {
            nearest = std::min(nearest, distanceTo(piece, p));
        }
        FUZZ_CHECK(nearest <= bound);
    }
}

/// Where the segment that begins at a vertex is farthest from its chord.
kxVector3 apex(const kxVector3& a, const kxVector3& b, double bulge) {
    return {(a.x + b.x + bulge * (b.y - a.y)) / 2, (a.y + b.y - bulge * (b.x - a.x)) / 2,
            (a.z + b.z) / 2};
}

void checkSegment(const Piece& piece, const kxVector3& a, const kxVector3& b, double bulge) {
    FUZZ_CHECK((same(piece.first, a) && same(piece.second, b)) ||
               (same(piece.first, b) && same(piece.second, a)));
    kxVector3 top = apex(a, b, bulge);
    if (piece.isArc) {
        // It lies in one plane, whatever heights the vertices have.
        top.z = piece.center.z;
    }
    const double size = std::max({sizeOf(a), sizeOf(b), sizeOf(top), piece.radius});
    FUZZ_CHECK(!(distanceTo(piece, top) > std::max(1e-3, 1e-8 * size)));
}

void checkPolyline(const kxPolyLine_c& polyline, const std::vector<Piece>& pieces) {
    long count = 0;
    polyline.GetVerticesCount(&count);
    const long segments = polyline.IsClosed() ? count : count - 1;
    std::size_t next = 0;
    for (long i = 0; i < segments; ++i) {
        kxVector3 a;
        kxVector3 b;
        double bulge = 0;
        polyline.GetVertex(i, &a.x, &a.y, &a.z);
        polyline.GetVertex((i + 1) % count, &b.x, &b.y, &b.z);
        polyline.GetBulge(i, &bulge);
        if (!same(a, b)) {
            FUZZ_CHECK(next < pieces.size());
            checkSegment(pieces[next++], a, b, bulge);
        }
    }
    FUZZ_CHECK(next == pieces.size());
}

void checkEllipse(const kxEllipseArc_c& ellipse, const std::vector<Piece>& pieces) {
    FUZZ_CHECK(pieces.size() <= kGreatestChain + kOpenSpans);
    checkChain(pieces);
    if (pieces.size() <= kMeasuredPieces) {
        checkDistances(ellipse, pieces, 37);
    }
}

/// Sampling can't find what happens in a tiny part of a span: weights and knots must not differ
/// much.
bool isEven(const kxSpline_c& spline) {
    long knots = 0;
    spline.GetKnotCount(&knots);
    double shortest = HUGE_VAL;
    double longest = 0;
    double before = 0;
    spline.GetKnot(0, &before);
    for (long i = 1; i < knots; ++i) {
        double knot = 0;
        spline.GetKnot(i, &knot);
        if (knot > before) {
            shortest = std::min(shortest, knot - before);
            longest = std::max(longest, knot - before);
        }
        before = knot;
    }
    long count = 0;
    spline.GetControlPointCount(&count);
    double lightest = HUGE_VAL;
    double heaviest = 0;
    for (long i = 0; i < count; ++i) {
        double p[3];
        double weight = 0;
        spline.GetControlPoint(i, p, &weight);
        lightest = std::min(lightest, weight);
        heaviest = std::max(heaviest, weight);
    }
    return heaviest <= 10 * lightest && longest <= 1e3 * shortest && spline.GetDegree() <= 5;
}

void checkSpline(const kxSpline_c& spline, const std::vector<Piece>& pieces) {
    long knots = 0;
    spline.GetKnotCount(&knots);
    FUZZ_CHECK(pieces.size() <= kGreatestChain + kOpenSpans + static_cast<std::size_t>(knots));
    checkChain(pieces);
    if (pieces.size() <= kMeasuredPieces && isEven(spline)) {
        checkDistances(spline, pieces, 53);
    }
}

}  // namespace

void checkExplode(kxObject& object) {
    const auto exploded = kxdrawing::explodeObject(object);
    if (!exploded) {
        return;
    }
    FUZZ_CHECK(!exploded->empty());
    const std::vector<Piece> pieces = checkedPieces(object, *exploded);
    if (const auto polyline = kxCast<kxPolyLine_c>(&object)) {
        checkPolyline(*polyline, pieces);
    } else if (const auto ellipse = kxCast<kxEllipseArc_c>(&object)) {
        checkEllipse(*ellipse, pieces);
    } else {
        const auto spline = kxCast<kxSpline_c>(&object);
        FUZZ_CHECK(spline);
        checkSpline(*spline, pieces);
    }
}
