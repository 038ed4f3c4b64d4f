// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Hears from the kernel which files of a folder are opened, by whomever and in whatever way, from
/// the time it is made. Linux only.
class FileOpens {
public:
    explicit FileOpens(const QString& folder);
    ~FileOpens();
    FileOpens(const FileOpens&) = delete;
    FileOpens& operator=(const FileOpens&) = delete;

    /// The names of the files that were opened since the last call, each once, sorted.
    QStringList take() const;

private:
    int m_handle = -1;
};
