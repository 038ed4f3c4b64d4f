// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/FileStamp.h"

#include <sys/stat.h>

#include <QCryptographicHash>
#include <QFile>

#include "files/InputFile.h"

FileStamp FileStamp::of(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return {};
    }
    constexpr std::int64_t kNsPerSecond = 1000000000;
    return {true, status.st_size, status.st_mtim.tv_sec * kNsPerSecond + status.st_mtim.tv_nsec,
            status.st_ino};
}

FileContent FileContent::of(const QString& path) {
    FileContent content{FileStamp::of(path), {}};
    if (!content.stamp.exists || content.stamp.size >= kMaxDigested) {
        return content;
    }
    // Something else may have the name now, such as a pipe or a device that never ends.
    std::string cause;
    kxfiles::FileDescriptor input =
        kxfiles::openInput(QFile::encodeName(path).toStdString(), &cause);
    QFile file;
    if (input && file.open(input.handle(), QIODevice::ReadOnly)) {
        QCryptographicHash digest(QCryptographicHash::Sha1);
        if (digest.addData(&file)) {
            content.digest = digest.result();
        }
    }
    return content;
}

bool FileContent::sameAs(const FileContent& other) const {
    if (stamp == other.stamp && digest == other.digest) {
        return true;
    }
    return stamp.exists && other.stamp.exists && stamp.size == other.stamp.size &&
           !digest.isEmpty() && digest == other.digest;
}
