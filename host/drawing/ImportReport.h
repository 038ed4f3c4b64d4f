// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace kxdrawing {

enum class ImportOutcome { Read, Converted, LeftOut };

/// What became of entities of one type and layer.
struct ImportRow {
    std::string type;
    std::string layer;
    ImportOutcome outcome = ImportOutcome::Read;
    /// What they became, or why they were left out.
    std::string detail;
    long count = 0;
    /// The number of objects they gave.
    long objects = 0;
};

struct ImportTotals {
    long read = 0;
    long converted = 0;
    long leftOut = 0;
    long objects = 0;

    long entities() const { return read + converted + leftOut; }
};

/// Counts per type and layer what a file's entities became. Each entity of the drawing itself is
/// counted once, so read + converted + left out are all of them. What happened inside of block
/// inserts is counted apart; blocks that no insert uses are not counted.
class ImportReport {
public:
    void add(const ImportRow& row) { addTo(&m_rows, row); }
    /// For an entity of a block, for each time the block is inserted.
    void addInBlock(const ImportRow& row) { addTo(&m_blockRows, row); }
    /// Adds what another report counted inside of blocks.
    void addInBlocks(const ImportReport& other);
    void addNote(const std::string& note) { m_notes.push_back(note); }

    /// Ordered by type, layer, outcome and detail.
    std::vector<ImportRow> rows() const { return rowsOf(m_rows); }
    std::vector<ImportRow> rowsInBlocks() const { return rowsOf(m_blockRows); }
    const std::vector<std::string>& notes() const { return m_notes; }
    ImportTotals totals() const;

    /// Aligned tables with totals and notes; lines end with LF.
    std::string toText() const;

private:
    using Key = std::tuple<std::string, std::string, ImportOutcome, std::string>;
    struct Counts {
        long count = 0;
        long objects = 0;
    };
    using Table = std::map<Key, Counts>;

    static void addTo(Table* table, const ImportRow& row);
    static std::vector<ImportRow> rowsOf(const Table& table);

    Table m_rows;
    Table m_blockRows;
    std::vector<std::string> m_notes;
};

}  // namespace kxdrawing
