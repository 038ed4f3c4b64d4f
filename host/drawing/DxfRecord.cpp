// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfRecord.h"

#include <algorithm>
#include <array>

#include "drawing/Numbers.h"

namespace kxdrawing {

namespace {

constexpr std::array<std::string_view, 16> kReadEntities = {
    "LINE",   "ARC",     "CIRCLE", "POINT", "LWPOLYLINE", "POLYLINE", "VERTEX", "SEQEND",
    "SPLINE", "ELLIPSE", "INSERT", "TEXT",  "MTEXT",      "ATTRIB",   "BLOCK",  "ENDBLK"};

struct CodeRange {
    int first;
    int last;
    GroupKind kind;
};

constexpr std::array<CodeRange, 13> kRanges = {{{10, 59, GroupKind::Real},
                                                {60, 79, GroupKind::Integer},
                                                {90, 99, GroupKind::Integer},
                                                {110, 149, GroupKind::Real},
                                                {160, 179, GroupKind::Integer},
                                                {210, 239, GroupKind::Real},
                                                {270, 289, GroupKind::Integer},
                                                {290, 299, GroupKind::Integer},
                                                {370, 389, GroupKind::Integer},
                                                {400, 409, GroupKind::Integer},
                                                {420, 429, GroupKind::Integer},
                                                {440, 459, GroupKind::Integer},
                                                {460, 469, GroupKind::Real}}};

}  // namespace

const DxfGroup* DxfRecord::find(int code) const {
    const auto found = std::find_if(groups.rbegin(), groups.rend(),
                                    [code](const DxfGroup& group) { return group.code == code; });
    return found == groups.rend() ? nullptr : &*found;
}

std::string_view DxfRecord::text(int code, std::string_view absent) const {
    const DxfGroup* const group = find(code);
    return group != nullptr ? std::string_view(group->value) : absent;
}

double DxfRecord::real(int code, double absent) const {
    const DxfGroup* const group = find(code);
    return group != nullptr ? parseReal(group->value).value_or(absent) : absent;
}

int DxfRecord::integer(int code, int absent) const {
    const DxfGroup* const group = find(code);
    return group != nullptr ? parseInt(group->value).value_or(absent) : absent;
}

bool isReadRecord(std::string_view section, std::string_view type) {
    if (section == "HEADER") {
        return type == "$INSUNITS" || type == "$MEASUREMENT";
    }
    if (section == "TABLES") {
        return type == "LAYER";
    }
    return (section == "ENTITIES" || section == "BLOCKS") &&
           std::find(kReadEntities.begin(), kReadEntities.end(), type) != kReadEntities.end();
}

GroupKind groupKind(int code) {
    for (const CodeRange& range : kRanges) {
        if (code >= range.first && code <= range.last) {
            return range.kind;
        }
    }
    return GroupKind::Text;
}

}  // namespace kxdrawing
