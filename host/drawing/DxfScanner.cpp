// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "drawing/Numbers.h"

namespace kxdrawing {

namespace {

constexpr int kComment = 999;
constexpr int kFirstExtendedDataCode = 1000;

/// A value as a message shows it: printable and short.
std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text.substr(0, 40)) {
        const bool printable = static_cast<unsigned char>(c) >= 0x20 && c != 0x7f;
        result += printable ? c : '?';
    }
    return result + (text.size() > 40 ? "...\"" : "\"");
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
        if (m_codeLine.rfind("AutoCAD Binary DXF", 0) == 0) {
            m_error->found = "binary DXF is not supported; save as ASCII DXF";
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
        found += " in section " + m_section + ", begun in " + lineText(m_sectionLine);
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
        group->value = std::string(trimmed(group->value));
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
            return readGroups(record);
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
    return trackBlocks(head) ? Step::Record : Step::Failed;
}

bool DxfScanner::beginSection(const DxfGroup& head) {
    if (!m_section.empty()) {
        return fail(head.line,
                    "a new section, but section " + m_section + ", begun in " +
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
                    "EOF, but section " + m_section + ", begun in " + lineText(m_sectionLine) +
                        ", has no ENDSEC",
                    "ENDSEC");
    }
    m_ended = true;
    return true;
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

bool DxfScanner::readGroups(DxfRecord* record) {
    record->groups.clear();
    const bool keep = isReadRecord(record->section, record->type);
    const bool layerOnly = record->section == "ENTITIES" || record->section == "BLOCKS";
    bool application = false;
    bool embedded = false;
    DxfGroup group;
    while (readGroup(&group)) {
        if (group.code == 0 || (group.code == 9 && record->section == "HEADER")) {
            m_head = std::move(group);
            return true;
        }
        embedded = embedded || group.code == 101;
        if (group.code == 102) {
            application = trimmed(group.value).substr(0, 1) == "{";
        } else if (!application && !embedded && group.code < kFirstExtendedDataCode &&
                   (keep || (layerOnly && (group.code == 8 || group.code == 67)))) {
            if (keep && !checkValue(group)) {
                return false;
            }
            record->groups.push_back(std::move(group));
        }
    }
    return false;
}

bool DxfScanner::checkValue(const DxfGroup& group) {
    const std::string code = " (group " + std::to_string(group.code) + ")";
    switch (groupKind(group.code)) {
        case GroupKind::Text:
            return true;
        case GroupKind::Integer:
            return parseInt(group.value)
                       ? true
                       : fail(group.line, quoted(group.value) + code, "an integer");
        case GroupKind::Real:
            break;
    }
    const std::optional<double> value = parseReal(group.value);
    if (value && std::isfinite(*value)) {
        return true;
    }
    return fail(group.line, quoted(group.value) + code, value ? "a finite number" : "a number");
}

}  // namespace kxdrawing
