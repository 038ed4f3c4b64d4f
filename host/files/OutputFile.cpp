// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "files/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <optional>
#include <random>

#include "files/FileDescriptor.h"

namespace kxfiles {

namespace {

constexpr int kMaxLinks = 40;
constexpr int kMaxNames = 100;
constexpr mode_t kRights = 07777;
constexpr mode_t kPlainRights = 0777;
constexpr mode_t kOwnRights = 0600;
constexpr mode_t kNewRights = 0666;

bool fail(std::string* cause) {
    *cause = lastCause();
    return false;
}

/// A file by its name in a folder that is held open: so the names beside it may be longer than a
/// path may be, and the folder may be renamed meanwhile.
class Target {
public:
    /// Goes through links to where the file is, or is to be. False, with `errno` set.
    bool find(const std::string& path) {
        m_folder = FileDescriptor();
        std::string next = path;
        for (int links = 0; links <= kMaxLinks; ++links) {
            if (!enter(next)) {
                return false;
            }
            const std::optional<std::string> link = linkTarget();
            if (!link) {
                return true;
            }
            next = *link;
        }
        errno = ELOOP;
        return false;
    }

    /// What has the name now; nothing when it is free.
    std::optional<struct stat> status() const {
        struct stat status {};
        const bool exists =
            ::fstatat(m_folder.handle(), m_name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
        return exists ? std::optional(status) : std::nullopt;
    }

    bool isWritable() const {
        return ::faccessat(m_folder.handle(), m_name.c_str(), W_OK, AT_EACCESS) == 0;
    }

    FileDescriptor openInPlace() const {
        return FileDescriptor(
            ::openat(m_folder.handle(), m_name.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
    }

    int folder() const { return m_folder.handle(); }
    const std::string& name() const { return m_name; }

private:
    /// Opens the folder of a path that is seen from the folder before.
    bool enter(const std::string& path) {
        if (path.size() >= PATH_MAX) {
            // It could be made, but nobody could open it by its name.
            errno = ENAMETOOLONG;
            return false;
        }
        const std::size_t slash = path.rfind('/');
        const std::string folder =
            slash == std::string::npos ? "." : path.substr(0, slash == 0 ? 1 : slash);
        m_name = slash == std::string::npos ? path : path.substr(slash + 1);
        if (m_name.empty() || m_name == "." || m_name == "..") {
            errno = path.empty() ? ENOENT : EISDIR;
            return false;
        }
        const int from = m_folder ? m_folder.handle() : AT_FDCWD;
        m_folder = FileDescriptor(::openat(from, folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        return static_cast<bool>(m_folder);
    }

    std::optional<std::string> linkTarget() const {
        std::array<char, PATH_MAX> target{};
        const ssize_t size =
            ::readlinkat(m_folder.handle(), m_name.c_str(), target.data(), target.size());
        return size < 0 ? std::nullopt
                        : std::optional(std::string(target.data(), static_cast<std::size_t>(size)));
    }

    FileDescriptor m_folder;
    std::string m_name;
};

/// The new file beside the one that it is to replace; gone with the object unless it did. All
/// steps are false with `errno` set.
class Replacement {
public:
    explicit Replacement(const Target& target) : m_target(target) {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (m_isThere) {
            ::unlinkat(m_target.folder(), m_name.c_str(), 0);
        }
    }

    bool create(mode_t rights) {
        std::random_device random;
        for (int i = 0; i < kMaxNames; ++i) {
            m_name = ".kx-" + std::to_string(random()) + "-" + std::to_string(random());
            m_file = FileDescriptor(::openat(m_target.folder(), m_name.c_str(),
                                             O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights));
            if (m_file || errno != EEXIST) {
                break;
            }
        }
        m_isThere = static_cast<bool>(m_file);
        return m_isThere;
    }

    bool takeRightsOf(const struct stat& before) const {
        // The owner first, which takes rights away. Only root may give files to others; then the
        // file belongs to who writes it, as after a copy.
        const int handle = m_file.handle();
        const bool isGiven = ::fchown(handle, before.st_uid, before.st_gid) == 0;
        return ::fchmod(handle, before.st_mode & (isGiven ? kRights : kPlainRights)) == 0;
    }

    bool write(std::string_view content) {
        if (!writeAll(m_file.handle(), content)) {
            return false;
        }
        // Some systems find out only when it goes to the disk that there is no room.
        const bool isKept = ::fsync(m_file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
        return isKept && m_file.close();
    }

    bool takeTheName() {
        const int folder = m_target.folder();
        const bool isTaken =
            ::renameat(folder, m_name.c_str(), folder, m_target.name().c_str()) == 0;
        m_isThere = !isTaken;
        return isTaken;
    }

private:
    const Target& m_target;
    std::string m_name;
    FileDescriptor m_file;
    bool m_isThere = false;
};

bool replace(const Target& target, const std::optional<struct stat>& before,
             std::string_view content, std::string* cause) {
    Replacement replacement(target);
    // Not readable for others before it has the rights of the file before.
    if (!replacement.create(before ? kOwnRights : kNewRights)) {
        *cause = "no file can be made in its folder: " + lastCause();
        return false;
    }
    const bool written = (!before || replacement.takeRightsOf(*before)) &&
                         replacement.write(content) && replacement.takeTheName();
    return written || fail(cause);
}

bool writeInPlace(const Target& target, std::string_view content, std::string* cause) {
    FileDescriptor file = target.openInPlace();
    const bool written = file && writeAll(file.handle(), content) && file.close();
    return written || fail(cause);
}

}  // namespace

bool replaceFile(const std::string& path, std::string_view content, std::string* cause) {
    Target target;
    if (!target.find(path)) {
        return fail(cause);
    }
    const std::optional<struct stat> before = target.status();
    if (before && S_ISDIR(before->st_mode)) {
        errno = EISDIR;
        return fail(cause);
    }
    if (before && !S_ISREG(before->st_mode)) {
        return writeInPlace(target, content, cause);
    }
    // Replacing asks for rights in the folder only; a file that is protected is to stay.
    if (before && !target.isWritable()) {
        return fail(cause);
    }
    return replace(target, before, content, cause);
}

}  // namespace kxfiles
