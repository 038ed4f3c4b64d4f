// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <QString>

/// A program's file and its lines, as the check reads them.
class CheckedProgram {
public:
    static constexpr std::size_t kMaxBytes = std::size_t{512} << 20;

    /// False with a cause when it is no regular file, can't be read or is too large; the program
    /// before stays.
    bool load(const QString& file, QString* error);

    const QString& file() const { return m_file; }
    const std::string& text() const { return m_text; }
    std::size_t lineCount() const { return m_starts.size(); }
    /// The bytes of a line without its end; from 1, empty beyond the last.
    std::string_view line(std::size_t number) const;
    /// The lines around one, each behind its number, and which row of them it is.
    QString excerpt(std::size_t number, std::size_t around, int* row) const;

private:
    QString m_file;
    std::string m_text;
    std::vector<std::size_t> m_starts;
};
