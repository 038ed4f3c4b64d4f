// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "FileOpens.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QFile>
#include <array>
#include <cstring>

FileOpens::FileOpens(const QString& folder) : m_handle(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (inotify_add_watch(m_handle, QFile::encodeName(folder).constData(), IN_OPEN) < 0) {
        qFatal("can't watch %s", qUtf8Printable(folder));
    }
}

FileOpens::~FileOpens() {
    close(m_handle);
}

QStringList FileOpens::take() const {
    QStringList names;
    std::array<char, 65536> buffer{};
    for (ssize_t size = 0; (size = read(m_handle, buffer.data(), buffer.size())) > 0;) {
        inotify_event event{};
        for (std::size_t at = 0; at + sizeof event <= static_cast<std::size_t>(size);
             at += sizeof event + event.len) {
            std::memcpy(&event, buffer.data() + at, sizeof event);
            names << (event.len == 0 ? QString(".")
                                     : QFile::decodeName(buffer.data() + at + sizeof event));
        }
    }
    names.removeDuplicates();
    names.sort();
    return names;
}
