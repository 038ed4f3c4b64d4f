// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "files/InputFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace kxfiles {

namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;

/// What stands in the way of reading a file of this kind; empty for a regular one.
std::string kindProblem(mode_t mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return {};
        case S_IFDIR:
            return "a directory";
        case S_IFIFO:
            return "a named pipe, not a regular file";
        case S_IFSOCK:
            return "a socket, not a regular file";
        default:
            return "a device, not a regular file";
    }
}

std::string openProblem(const std::string& path) {
    if (errno == ENOENT || errno == ENOTDIR) {
        return "no such file";
    }
    const std::string cause = lastCause();
    // A socket, or the device of nothing, can't be opened at all.
    struct stat status {};
    const bool isKnown = ::stat(path.c_str(), &status) == 0;
    const std::string kind = isKnown ? kindProblem(status.st_mode) : std::string();
    return kind.empty() ? "cannot be opened: " + cause : kind;
}

bool isTooLong(std::size_t size, std::size_t limit, std::string* cause) {
    if (size > limit) {
        *cause = "longer than " + std::to_string(limit) + " bytes";
    }
    return size > limit;
}

bool failToRead(std::string* cause) {
    *cause = "cannot be read: " + lastCause();
    return false;
}

/// Whether it is worth trying again after a failure.
bool mayReadOn(int handle) {
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
        pollfd waiting{handle, POLLIN, 0};
        return poll(&waiting, 1, -1) > 0 || errno == EINTR;
    }
    return errno == EINTR;
}

}  // namespace

FileDescriptor openInput(const std::string& path, std::string* cause) {
    // Without waiting: a pipe that nobody writes to would be waited for before it is seen as one.
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) {
        *cause = openProblem(path);
        return {};
    }
    struct stat status {};
    if (::fstat(file.handle(), &status) != 0) {
        *cause = "cannot be opened: " + lastCause();
        return {};
    }
    *cause = kindProblem(status.st_mode);
    return cause->empty() ? std::move(file) : FileDescriptor();
}

bool isReadable(const FileDescriptor& file, std::size_t limit, std::string* cause) {
    struct stat status {};
    char first = 0;
    if (::fstat(file.handle(), &status) != 0 || ::pread(file.handle(), &first, 1, 0) < 0) {
        return failToRead(cause);
    }
    return !isTooLong(static_cast<std::size_t>(status.st_size), limit, cause);
}

bool readInput(const std::string& path, std::size_t limit, std::string* content,
               std::string* cause) {
    const FileDescriptor file = openInput(path, cause);
    return file && readStream(file.handle(), limit, content, cause);
}

bool readStream(int handle, std::size_t limit, std::string* content, std::string* cause) {
    content->clear();
    for (;;) {
        const std::size_t size = content->size();
        content->resize(size + kChunk);
        const ssize_t count = ::read(handle, content->data() + size, kChunk);
        const bool failed = count < 0 && !mayReadOn(handle);
        content->resize(size + static_cast<std::size_t>(count > 0 ? count : 0));
        if (failed) {
            return failToRead(cause);
        }
        if (isTooLong(content->size(), limit, cause)) {
            return false;
        }
        if (count == 0) {
            return true;
        }
    }
}

}  // namespace kxfiles
