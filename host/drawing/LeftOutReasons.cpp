// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/LeftOutReasons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace kxdrawing {

namespace {

struct TypeReason {
    std::string_view type;
    std::string_view reason;
};

constexpr std::array<TypeReason, 14> kReasons = {{
    {"DIMENSION", "dimension"},
    {"ARC_DIMENSION", "dimension"},
    {"LARGE_RADIAL_DIMENSION", "dimension"},
    {"LEADER", "leader"},
    {"MULTILEADER", "leader"},
    {"HATCH", "filled area"},
    {"SOLID", "filled area"},
    {"TRACE", "filled area"},
    {"3DFACE", "surface"},
    {"IMAGE", "image"},
    {"XLINE", "infinite line"},
    {"RAY", "infinite line"},
    {"ATTDEF", "attribute definition"},
    {"VIEWPORT", "view"},
}};

/// What makes no sense without being given.
std::vector<int> neededCodes(std::string_view type) {
    if (type == "LINE") {
        return {10, 20, 11, 21};
    }
    if (type == "ARC" || type == "CIRCLE") {
        return {10, 20, 40};
    }
    if (type == "ELLIPSE") {
        return {10, 20, 11, 21, 40};
    }
    if (type == "INSERT") {
        return {2, 10, 20};
    }
    if (type == "POINT" || type == "VERTEX" || type == "LWPOLYLINE" || type == "TEXT" ||
        type == "MTEXT" || type == "ATTRIB") {
        return {10, 20};
    }
    return {};
}

bool needsPlane(const DxfRecord& record) {
    constexpr std::array<std::string_view, 5> kFree = {"LINE", "POINT", "SPLINE", "MTEXT",
                                                       "VERTEX"};
    if (record.type == "POLYLINE") {
        return (static_cast<unsigned>(record.integer(70, 0)) & 8U) == 0;
    }
    return std::find(kFree.begin(), kFree.end(), record.type) == kFree.end();
}

std::string typeReason(const DxfRecord& record) {
    const auto known = std::find_if(kReasons.begin(), kReasons.end(),
                                    [&](const TypeReason& r) { return r.type == record.type; });
    if (known != kReasons.end()) {
        return std::string(known->reason);
    }
    return isReadRecord(record.section, record.type) ? "" : "type not supported";
}

}  // namespace

Orientation orientationOf(const DxfRecord& record) {
    const double x = record.real(210, 0);
    const double y = record.real(220, 0);
    const double z = record.real(230, 1);
    if (x == 0 && y == 0 && z == 0) {
        return Orientation::Upright;
    }
    if (std::hypot(x, y) > 1e-9 * std::abs(z)) {
        return Orientation::Oblique;
    }
    return z > 0 ? Orientation::Upright : Orientation::Mirrored;
}

std::string reasonToLeaveOut(const DxfRecord& record) {
    if (record.type == "VERTEX") {
        return "vertex without a polyline";
    }
    if (record.type == "BLOCK" || record.type == "ENDBLK") {
        return "not in the section of blocks";
    }
    const std::string reason = record.integer(67, 0) == 1 ? "paper space" : typeReason(record);
    if (!reason.empty()) {
        return reason;
    }
    if (record.integer(60, 0) == 1) {
        return "invisible";
    }
    for (const int code : neededCodes(record.type)) {
        if (record.find(code) == nullptr) {
            return "incomplete: group " + std::to_string(code) + " is missing";
        }
    }
    const bool oblique = needsPlane(record) && orientationOf(record) == Orientation::Oblique;
    return oblique ? "not parallel to the XY plane" : "";
}

}  // namespace kxdrawing
