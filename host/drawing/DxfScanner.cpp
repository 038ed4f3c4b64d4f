// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "drawing/DxfText.h"
#include "drawing/Numbers.h"
#include "files/PrintableText.h"

namespace kxdrawing {

namespace {

constexpr int kComment = 999;
constexpr int kFirstExtendedDataCode = 1000;

constexpr std::size_t kShownLength = 40;
constexpr long kGroupsPerQuestion = 1000;
/// In characters, as the format has it.
constexpr std::size_t kLongestName = 255;

/// A value as a message shows it: printable and short.
std::string shown(std::string_view text) {
    const bool isLong = text.size() > kShownLength;
    return kxfiles::printable(text.substr(0, kShownLength)) + (isLong ? "..." : "");
}

std::string quoted(std::string_view text) {
    return '"' + shown(text) + '"';
}

/// Whether a group names what is copied for each object that refers to it.
bool isName(const DxfRecord& record, int code) {
    return code == 8 || (code == 2 && (record.type == "INSERT" || record.type == "BLOCK" ||
                                       record.type == "LAYER"));
}

std::size_t lengthOf(std::string_view name) {
    // A character takes one byte at least, so few names must be looked at.
    return name.size() <= kLongestName ? name.size() : characterCount(decodeText(name));
}

std::optional<int> parseCode(std::string_view text) {
    text = trimmed(text);
    int code = 0;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), code);
    const bool whole =
        !text.empty() && result.ec == std::errc() && result.ptr == text.data() + text.size();
    return whole && code >= -5 && code <= 1071 ? std::optional<int>(code) : std::nullopt;
}

std::string lineText(long line) {
    return "line " + std::to_string(line);
}

}  // namespace

bool DxfScanner::fail(long line, std::string found, std::string expected) {
    if (!m_error) {
        m_error = DxfDiagnostic{m_path, line, std::move(found), std::move(expected)};
    }
    return false;
}

bool DxfScanner::hadSection(std::string_view name) const {
    return m_sectionsSeen.find(' ' + std::string(name) + ' ') != std::string::npos;
}

bool DxfScanner::open(const std::string& path) {
    m_path = path;
    DxfDiagnostic problem;
    if (!m_lines.open(path, &problem)) {
        m_error = problem;
        return false;
    }
    return readFirstGroup();
}

bool DxfScanner::readFirstGroup() {
    DxfGroup group;
    if (!readGroup(&group)) {
        const bool isBinary = m_codeLine.rfind("AutoCAD Binary DXF", 0) == 0;
        const bool isDwg = m_codeLine.rfind("AC10", 0) == 0;
        if (m_error->line == 1 && (isBinary || isDwg)) {
            m_error->found =
                std::string(isDwg ? "DWG" : "binary DXF") + " is not supported; save as ASCII DXF";
            m_error->expected.clear();
        }
        return false;
    }
    const bool begins = group.code == 0 && (group.value == "SECTION" || group.value == "EOF");
    if (!begins) {
        return fail(group.line, "not a DXF file: it begins with " + quoted(group.value),
                    "group 0 with SECTION");
    }
    m_head = std::move(group);
    return true;
}

bool DxfScanner::readLine(std::string* line, const char* expected) {
    switch (m_lines.next(line)) {
        case LineReader::Status::Line:
            return true;
        case LineReader::Status::ReadError:
            return fail(0, m_lines.problem(), "a DXF file");
        case LineReader::Status::ZeroByte:
            return fail(m_lines.lineNumber(), "not a DXF file: a zero byte", expected);
        case LineReader::Status::TooLong:
            return fail(m_lines.lineNumber(), "not a DXF file: an endless line", expected);
        case LineReader::Status::EndOfFile:
            break;
    }
    std::string found = "truncated: the file ends";
    if (!m_section.empty()) {
        found += " in section " + shown(m_section) + ", begun in " + lineText(m_sectionLine);
    }
    return fail(m_lines.lineNumber(), found, expected);
}

bool DxfScanner::readPair(DxfGroup* group) {
    if (!readLine(&m_codeLine, "a group code (group 0 with EOF ends a file)")) {
        return false;
    }
    const std::optional<int> code = parseCode(m_codeLine);
    if (!code) {
        const std::string what = m_lines.lineNumber() == 1 ? "not a DXF file: " : "";
        return fail(m_lines.lineNumber(), what + quoted(m_codeLine), "a group code");
    }
    group->code = *code;
    if (!readLine(&group->value, "the value of a group")) {
        return false;
    }
    group->line = m_lines.lineNumber();
    if (group->code <= 9 && group->code != 1 && group->code != 3) {
        const std::string_view bare = trimmed(group->value);
        if (bare.size() != group->value.size()) {
            group->value = std::string(bare);
        }
    }
    return true;
}

bool DxfScanner::readGroup(DxfGroup* group) {
    do {
        if (!readPair(group)) {
            return false;
        }
    } while (group->code == kComment);
    return true;
}

bool DxfScanner::next(DxfRecord* record) {
    while (!m_error && !m_ended) {
        DxfGroup head;
        if (m_head) {
            head = std::move(*m_head);
            m_head.reset();
        } else if (!readGroup(&head)) {
            return false;
        }
        const Step step = takeHead(head);
        if (step == Step::Record) {
            record->type = head.value;
            record->section = m_section;
            record->line = head.line;
            return checkRecord(head) && readGroups(record);
        }
    }
    return false;
}

DxfScanner::Step DxfScanner::takeHead(const DxfGroup& head) {
    const auto structure = [](bool good) { return good ? Step::Structure : Step::Failed; };
    if (head.code == 0 && head.value == "SECTION") {
        return structure(beginSection(head));
    }
    if (head.code == 0 && head.value == "ENDSEC") {
        return structure(endSection(head));
    }
    if (head.code == 0 && head.value == "EOF") {
        return structure(endFile(head));
    }
    if (m_section.empty() && head.code == 9) {
        // Some writers end the header after its first variables, and once more after the last.
        m_section = "HEADER";
        m_sectionLine = head.line;
    }
    if (m_section.empty()) {
        fail(head.line, quoted(head.value) + " outside of a section", "SECTION or EOF");
        return Step::Failed;
    }
    const bool good = checkHead(head) && trackBlocks(head);
    return good ? Step::Record : Step::Failed;
}

bool DxfScanner::beginSection(const DxfGroup& head) {
    if (!m_section.empty()) {
        return fail(head.line,
                    "a new section, but section " + shown(m_section) + ", begun in " +
                        lineText(m_sectionLine) + ", has no ENDSEC",
                    "ENDSEC");
    }
    DxfGroup name;
    if (!readGroup(&name)) {
        return false;
    }
    if (name.code != 2 || name.value.empty()) {
        return fail(name.line, "a section without a name", "group 2 with the section's name");
    }
    if (!checkName(name)) {
        return false;
    }
    m_section = name.value;
    m_sectionLine = head.line;
    m_sectionsSeen += ' ' + name.value + ' ';
    return true;
}

bool DxfScanner::endSection(const DxfGroup& head) {
    if (m_section.empty()) {
        return fail(head.line, "ENDSEC outside of a section", "SECTION or EOF");
    }
    if (m_blockLine != 0) {
        return fail(head.line, "ENDSEC, but the block of " + lineText(m_blockLine) + " is open",
                    "ENDBLK");
    }
    m_section.clear();
    return true;
}

bool DxfScanner::endFile(const DxfGroup& head) {
    if (!m_section.empty()) {
        return fail(head.line,
                    "EOF, but section " + shown(m_section) + ", begun in " +
                        lineText(m_sectionLine) + ", has no ENDSEC",
                    "ENDSEC");
    }
    m_ended = true;
    return true;
}

/// In sections that are not read, such as that of a preview picture, groups may stand by
/// themselves.
bool DxfScanner::checkHead(const DxfGroup& head) {
    const int wanted = m_section == "HEADER" ? 9 : 0;
    const bool isRead = m_section == "HEADER" || m_section == "TABLES" || m_section == "BLOCKS" ||
                        m_section == "ENTITIES";
    if (!isRead || head.code == wanted) {
        return true;
    }
    return fail(head.line, quoted(head.value) + " (group " + std::to_string(head.code) + ")",
                "group " + std::to_string(wanted));
}

bool DxfScanner::trackBlocks(const DxfGroup& head) {
    if (m_section != "BLOCKS" || head.code != 0) {
        return true;
    }
    if (head.value == "BLOCK") {
        if (m_blockLine != 0) {
            return fail(head.line, "BLOCK, but the block of " + lineText(m_blockLine) + " is open",
                        "ENDBLK");
        }
        m_blockLine = head.line;
    } else if (head.value == "ENDBLK") {
        if (m_blockLine == 0) {
            return fail(head.line, "ENDBLK without a block", "BLOCK");
        }
        m_blockLine = 0;
    }
    return true;
}

bool DxfScanner::checkRecord(const DxfGroup& head) {
    const bool counts =
        m_section == "ENTITIES" || m_section == "BLOCKS" || isReadRecord(m_section, head.value);
    m_records += counts ? 1 : 0;
    if (m_records > m_limits.records) {
        return fail(head.line, "more than " + std::to_string(m_limits.records) + " entities", "");
    }
    return !counts || checkName(head);
}

bool DxfScanner::checkName(const DxfGroup& group) {
    const std::size_t length = lengthOf(group.value);
    return length <= kLongestName ||
           fail(group.line, "a name of " + std::to_string(length) + " characters",
                "a name of at most " + std::to_string(kLongestName));
}

bool DxfScanner::readGroups(DxfRecord* record) {
    record->groups.clear();
    m_keepsAll = isReadRecord(record->section, record->type);
    m_keepsPlace = record->section == "ENTITIES" || record->section == "BLOCKS";
    bool application = false;
    bool embedded = false;
    DxfGroup group;
    for (long count = 1; readGroup(&group); ++count) {
        if (group.code == 0 || (group.code == 9 && record->section == "HEADER")) {
            m_head = std::move(group);
            return true;
        }
        embedded = embedded || group.code == 101;
        if (group.code == 102) {
            application = trimmed(group.value).substr(0, 1) == "{";
        } else if (!application && !embedded && !takeGroup(&group, record)) {
            return false;
        }
        if (count % kGroupsPerQuestion == 0 && !goesOnAfter(count, *record)) {
            return false;
        }
    }
    return false;
}

/// Keeps a group that is read; false when it can't be right.
bool DxfScanner::takeGroup(DxfGroup* group, DxfRecord* record) {
    const bool isPlace = group->code == 8 || group->code == 67;
    const bool isKept = m_keepsAll || (m_keepsPlace && isPlace);
    if (group->code >= kFirstExtendedDataCode || !isKept) {
        return true;
    }
    if ((m_keepsAll && !checkValue(*group)) ||
        (isName(*record, group->code) && !checkName(*group))) {
        return false;
    }
    record->groups.push_back(std::move(*group));
    return true;
}

bool DxfScanner::goesOnAfter(long groups, const DxfRecord& record) {
    if (groups >= m_limits.groups && static_cast<long>(record.groups.size()) >= m_limits.groups) {
        return fail(m_lines.lineNumber(),
                    "a " + shown(record.type) + " of more than " + std::to_string(m_limits.groups) +
                        " groups, begun in " + lineText(record.line),
                    "");
    }
    return !m_goesOn || m_goesOn();
}

bool DxfScanner::checkValue(const DxfGroup& group) {
    const auto found = [&group] {
        return quoted(group.value) + " (group " + std::to_string(group.code) + ")";
    };
    switch (groupKind(group.code)) {
        case GroupKind::Text:
            return true;
        case GroupKind::Integer:
            return parseInt(group.value) ? true : fail(group.line, found(), "an integer");
        case GroupKind::Real:
            break;
    }
    const std::optional<double> value = parseReal(group.value);
    if (value && std::isfinite(*value)) {
        return true;
    }
    return fail(group.line, found(), value ? "a finite number" : "a number");
}

}  // namespace kxdrawing
