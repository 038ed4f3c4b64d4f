// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "files/FileDescriptor.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kxfiles {

namespace {

/// Whether it is worth trying again after a failure.
bool mayGoOn(int handle) {
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
        pollfd waiting{handle, POLLOUT, 0};
        return poll(&waiting, 1, -1) > 0 || errno == EINTR;
    }
    return errno == EINTR;
}

}  // namespace

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        close();
        m_handle = other.release();
    }
    return *this;
}

bool FileDescriptor::close() {
    const int handle = release();
    return handle < 0 || ::close(handle) == 0;
}

bool writeAll(int handle, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(handle, text.data(), text.size());
        if (count > 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || !mayGoOn(handle)) {
            return false;
        }
    }
    return true;
}

std::string lastCause() {
    return std::generic_category().message(errno);
}

}  // namespace kxfiles
