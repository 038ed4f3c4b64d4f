// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>

#include <QByteArray>
#include <QString>

/// What a file's folder tells about it: enough to see that it was touched.
struct FileStamp {
    bool exists = false;
    std::int64_t size = 0;
    std::int64_t modifiedNs = 0;
    std::uint64_t inode = 0;

    static FileStamp of(const QString& path);
    friend bool operator==(const FileStamp& a, const FileStamp& b) {
        return a.exists == b.exists && a.size == b.size && a.modifiedNs == b.modifiedNs &&
               a.inode == b.inode;
    }
    friend bool operator!=(const FileStamp& a, const FileStamp& b) { return !(a == b); }
};

/// A file's content, to be compared: by a digest below `kMaxDigested` bytes, else by the stamp.
struct FileContent {
    static constexpr std::int64_t kMaxDigested = std::int64_t{16} << 20;

    FileStamp stamp;
    QByteArray digest;

    static FileContent of(const QString& path);
    bool sameAs(const FileContent& other) const;
};
