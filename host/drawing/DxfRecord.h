// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kxdrawing {

/// A group of a DXF file: a code and a value, with the line of the value.
struct DxfGroup {
    int code = 0;
    std::string value;
    long line = 0;
};

/// What stands between one group 0 (in the header: 9) and the next.
struct DxfRecord {
    /// The value of the group that begins the record: "LINE", "$INSUNITS".
    std::string type;
    std::string section;
    long line = 0;
    /// The groups that belong to the record itself: without comments, application groups
    /// (102), embedded objects (from 101 on) and extended data (1000 and above).
    std::vector<DxfGroup> groups;

    /// The last group of a code; null when there is none.
    const DxfGroup* find(int code) const;
    std::string_view text(int code, std::string_view absent = {}) const;
    double real(int code, double absent) const;
    int integer(int code, int absent) const;
};

/// Whether the importer reads records of this type, so that their values are checked.
bool isReadRecord(std::string_view section, std::string_view type);

enum class GroupKind { Text, Real, Integer };
/// What the value of a group code must be.
GroupKind groupKind(int code);

}  // namespace kxdrawing
