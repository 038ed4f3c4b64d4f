// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/ImportReport.h"

#include <algorithm>
#include <array>

#include "files/PrintableText.h"

namespace kxdrawing {

namespace {

constexpr std::size_t kColumns = 6;
using Line = std::array<std::string, kColumns>;

std::string outcomeText(ImportOutcome outcome) {
    switch (outcome) {
        case ImportOutcome::Read:
            return "read";
        case ImportOutcome::Converted:
            return "converted";
        case ImportOutcome::LeftOut:
            break;
    }
    return "left out";
}

/// Characters on the screen: bytes that continue a UTF-8 sequence do not count.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

std::string padded(const std::string& text, std::size_t wanted, bool right) {
    const std::string blanks(wanted - std::min(wanted, width(text)), ' ');
    return right ? blanks + text : text + blanks;
}

std::string table(const std::vector<ImportRow>& rows) {
    std::vector<Line> lines = {{"Type", "Layer", "Outcome", "Count", "Objects", "Detail"}};
    for (const ImportRow& row : rows) {
        lines.push_back({kxfiles::printable(row.type), kxfiles::printable(row.layer),
                         outcomeText(row.outcome), std::to_string(row.count),
                         std::to_string(row.objects), kxfiles::printable(row.detail)});
    }
    std::array<std::size_t, kColumns> widths{};
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            widths[i] = std::max(widths[i], width(line[i]));
        }
    }
    std::string text;
    for (const Line& line : lines) {
        std::string out;
        for (std::size_t i = 0; i < kColumns; ++i) {
            out += padded(line[i], widths[i], i == 3 || i == 4) + "  ";
        }
        out.erase(out.find_last_not_of(' ') + 1);
        text += out + '\n';
    }
    return text;
}

}  // namespace

void ImportReport::addTo(Table* table, const ImportRow& row) {
    Counts& counts = (*table)[{row.type, row.layer, row.outcome, row.detail}];
    counts.count += row.count;
    counts.objects += row.objects;
}

void ImportReport::addInBlocks(const ImportReport& other) {
    for (const ImportRow& row : other.rowsInBlocks()) {
        addInBlock(row);
    }
}

std::vector<ImportRow> ImportReport::rowsOf(const Table& table) {
    std::vector<ImportRow> rows;
    for (const auto& [key, counts] : table) {
        const auto& [type, layer, outcome, detail] = key;
        rows.push_back({type, layer, outcome, detail, counts.count, counts.objects});
    }
    return rows;
}

ImportTotals ImportReport::totals() const {
    ImportTotals totals;
    for (const auto& [key, counts] : m_rows) {
        switch (std::get<ImportOutcome>(key)) {
            case ImportOutcome::Read:
                totals.read += counts.count;
                break;
            case ImportOutcome::Converted:
                totals.converted += counts.count;
                break;
            case ImportOutcome::LeftOut:
                totals.leftOut += counts.count;
                break;
        }
        totals.objects += counts.objects;
    }
    return totals;
}

std::string ImportReport::toText() const {
    const ImportTotals sum = totals();
    std::string text = m_rows.empty() ? "The drawing has no entities.\n" : table(rows());
    text += "Total: " + std::to_string(sum.entities()) + " entities: " + std::to_string(sum.read) +
            " read, " + std::to_string(sum.converted) + " converted, " +
            std::to_string(sum.leftOut) + " left out; " + std::to_string(sum.objects) +
            " objects\n";
    if (!m_blockRows.empty()) {
        text += "Inside of block inserts:\n" + table(rowsInBlocks());
    }
    for (const std::string& note : m_notes) {
        text += "Note: " + kxfiles::printable(note) + '\n';
    }
    return text;
}

}  // namespace kxdrawing
