// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "FileFaults.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

bool writeLine(const char* path, const std::string& line) {
    std::ofstream file(path);
    file << line << std::flush;
    return file.good();
}

/// A namespace of its own gives its maker the right to mount, without making anybody root.
bool enterUserNamespace() {
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeLine("/proc/self/setgroups", "deny") &&
           writeLine("/proc/self/uid_map", user + " " + user + " 1") &&
           writeLine("/proc/self/gid_map", group + " " + group + " 1");
}

bool enterOwnMounts() {
    const bool entered = unshare(CLONE_NEWNS) == 0 || enterUserNamespace();
    // What is mounted here is not to be seen elsewhere.
    return entered && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Where it is half forbidden a process loses its user on the way, so another one tries it first.
bool mayEnterOwnMounts() {
    const pid_t child = fork();
    if (child == 0) {
        _exit(enterOwnMounts() ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

std::string tryOwnMounts() {
    return mayEnterOwnMounts() && enterOwnMounts()
               ? std::string()
               : "NOT TESTED: this user may not mount anything here";
}

/// Before any thread is started, which would forbid it.
const std::string g_whyNoMounts = tryOwnMounts();

constexpr int kPassing[] = {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH, CAP_FOWNER};

struct Capabilities {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2] = {};

    bool get() { return syscall(SYS_capget, &header, data) == 0; }
    bool set() { return syscall(SYS_capset, &header, data) == 0; }
};

}  // namespace

std::string whyNoMounts() {
    return g_whyNoMounts;
}

FaultFolder::FaultFolder() : m_path(std::filesystem::temp_directory_path() / "faults-XXXXXX") {
    if (mkdtemp(m_path.data()) == nullptr) {
        throw std::runtime_error(m_path + " can't be made");
    }
}

FaultFolder::~FaultFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string FaultFolder::place(const std::string& name) const {
    return name.empty() ? m_path : m_path + "/" + name;
}

SmallDisk::SmallDisk(const std::string& folder, std::size_t bytes) : m_folder(folder) {
    const std::string size = "size=" + std::to_string(bytes);
    m_isThere = g_whyNoMounts.empty() &&
                mount("tmpfs", folder.c_str(), "tmpfs", MS_NODEV | MS_NOSUID, size.c_str()) == 0;
}

SmallDisk::~SmallDisk() {
    if (m_isThere) {
        umount2(m_folder.c_str(), MNT_DETACH);
    }
}

void SmallDisk::fill(std::size_t leave) const {
    const std::string path = m_folder + "/filling";
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const std::string page(4096, 'x');
    off_t size = 0;
    while (write(file, page.data(), page.size()) == static_cast<ssize_t>(page.size())) {
        size += static_cast<off_t>(page.size());
    }
    if (ftruncate(file, size - static_cast<off_t>(leave)) != 0) {
        throw std::runtime_error("no room can be left on the small disk");
    }
    close(file);
}

bool SmallDisk::makeReadOnly() const {
    return mount("tmpfs", m_folder.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY | MS_NODEV | MS_NOSUID,
                 nullptr) == 0;
}

PinnedFile::PinnedFile(const std::string& path)
    : m_path(path),
      m_isThere(g_whyNoMounts.empty() &&
                mount(path.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0) {}

PinnedFile::~PinnedFile() {
    if (m_isThere) {
        umount2(m_path.c_str(), MNT_DETACH);
    }
}

PlainRights::PlainRights() {
    Capabilities mine;
    m_hold = mine.get();
    m_before[0] = mine.data[0].effective;
    m_before[1] = mine.data[1].effective;
    for (const int passing : kPassing) {
        // A program that root starts would have it again.
        m_hold = m_hold && (geteuid() != 0 || prctl(PR_CAPBSET_DROP, passing, 0, 0, 0) == 0);
        mine.data[0].effective &= ~(std::uint32_t{1} << passing);
    }
    m_hold = m_hold && mine.set();
}

PlainRights::~PlainRights() {
    Capabilities mine;
    if (mine.get()) {
        mine.data[0].effective = m_before[0];
        mine.data[1].effective = m_before[1];
        mine.set();
    }
}

ChangedRights::ChangedRights(const std::string& path, unsigned rights) : m_path(path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || chmod(path.c_str(), rights) != 0) {
        throw std::runtime_error(path + ": its permissions can't be changed");
    }
    m_before = status.st_mode & 07777U;
}

ChangedRights::~ChangedRights() {
    chmod(m_path.c_str(), m_before);
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
}

std::string makeFile(const std::string& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!(file << content << std::flush)) {
        throw std::runtime_error(path + " can't be made");
    }
    return path;
}
