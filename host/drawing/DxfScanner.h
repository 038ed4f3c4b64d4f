// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "drawing/DxfDiagnostic.h"
#include "drawing/DxfRecord.h"
#include "drawing/LineReader.h"

namespace kxdrawing {

/// What one file may hold, so that none takes all of the memory.
struct ScanLimits {
    /// Entities, layers and header variables that are read.
    long records = 10000000;
    /// Groups of one record, such as the vertices of a polyline.
    long groups = 10000000;
};

/// Reads an ASCII DXF file record by record in one pass and checks it on the way: group codes,
/// the nesting of sections and blocks, the numbers of all records that are read, and the end.
/// Nothing that comes out of it can mislead a lenient parser.
class DxfScanner {
public:
    /// False, with `error` set, when the file cannot be opened or is no ASCII DXF file.
    bool open(const std::string& path);
    void setLimits(const ScanLimits& limits) { m_limits = limits; }
    /// Is asked now and then within a long record; when it says false, `next` does so too.
    void setGoesOn(std::function<bool()> goesOn) { m_goesOn = std::move(goesOn); }
    /// The next record of any section. False at the end of the file and at the first error.
    bool next(DxfRecord* record);
    const std::optional<DxfDiagnostic>& error() const { return m_error; }
    bool hadSection(std::string_view name) const;
    /// What part of the file is read, 0 to 1.
    double fraction() const { return m_lines.fraction(); }

private:
    enum class Step { Record, Structure, Failed };

    bool readFirstGroup();
    bool readGroup(DxfGroup* group);
    bool readPair(DxfGroup* group);
    bool readLine(std::string* line, const char* expected);
    Step takeHead(const DxfGroup& head);
    bool beginSection(const DxfGroup& head);
    bool endSection(const DxfGroup& head);
    bool endFile(const DxfGroup& head);
    bool checkHead(const DxfGroup& head);
    bool trackBlocks(const DxfGroup& head);
    bool readGroups(DxfRecord* record);
    bool takeGroup(DxfGroup* group, DxfRecord* record);
    bool goesOnAfter(long groups, const DxfRecord& record);
    bool checkRecord(const DxfGroup& head);
    bool checkValue(const DxfGroup& group);
    bool checkName(const DxfGroup& group);
    bool fail(long line, std::string found, std::string expected);

    ScanLimits m_limits;
    std::function<bool()> m_goesOn;
    long m_records = 0;
    /// Whether the groups of the record at hand are kept, or those that place it at least.
    bool m_keepsAll = false;
    bool m_keepsPlace = false;
    LineReader m_lines;
    std::string m_path;
    std::string m_codeLine;
    std::optional<DxfDiagnostic> m_error;
    /// The group 0 or 9 that ended the record before.
    std::optional<DxfGroup> m_head;
    std::string m_section;
    long m_sectionLine = 0;
    long m_blockLine = 0;
    std::string m_sectionsSeen;
    bool m_ended = false;
};

}  // namespace kxdrawing
