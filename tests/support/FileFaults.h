// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Real faults of the file system, for tests. Where this process may, it has its mounts for itself
// from its start, as root or in a user namespace of its own; else what needs a mount says so.

/// Why no disk can be mounted here; empty when it can. A test skips with it.
std::string whyNoMounts();

/// A folder for a test, removed with all that is in it, whatever its name is.
class FaultFolder {
public:
    FaultFolder();
    ~FaultFolder();
    FaultFolder(const FaultFolder&) = delete;
    FaultFolder& operator=(const FaultFolder&) = delete;

    /// A place in the folder; the folder itself without a name.
    std::string place(const std::string& name = {}) const;

private:
    std::string m_path;
};

/// A disk of its own, mounted at an existing folder and gone with the object.
class SmallDisk {
public:
    explicit SmallDisk(const std::string& folder, std::size_t bytes = 65536);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isThere() const { return m_isThere; }
    /// Leaves so many bytes free, in pages of memory.
    void fill(std::size_t leave = 0) const;
    /// Takes all names as well: no file can be made any more.
    bool makeReadOnly() const;

private:
    std::string m_folder;
    bool m_isThere = false;
};

/// Lets a file be a mount of its own, which no other file can take the place of.
class PinnedFile {
public:
    explicit PinnedFile(const std::string& path);
    ~PinnedFile();
    PinnedFile(const PinnedFile&) = delete;
    PinnedFile& operator=(const PinnedFile&) = delete;

    bool isThere() const { return m_isThere; }

private:
    std::string m_path;
    bool m_isThere = false;
};

/// Permissions hold for this thread, and for the programs that it starts, for root too.
class PlainRights {
public:
    PlainRights();
    ~PlainRights();
    PlainRights(const PlainRights&) = delete;
    PlainRights& operator=(const PlainRights&) = delete;

    /// Whether they do.
    bool hold() const { return m_hold; }

private:
    std::uint32_t m_before[2] = {};
    bool m_hold = false;
};

/// Changes the permissions of a file or folder as long as the object lives.
class ChangedRights {
public:
    ChangedRights(const std::string& path, unsigned rights);
    ~ChangedRights();
    ChangedRights(const ChangedRights&) = delete;
    ChangedRights& operator=(const ChangedRights&) = delete;

private:
    std::string m_path;
    unsigned m_before = 0;
};

/// The content of a file; "(none)" without one.
std::string bytesOf(const std::string& path);

/// Makes a file, or replaces its content, and returns its path.
std::string makeFile(const std::string& path, const std::string& content);

#define SKIP_WITHOUT_MOUNTS()          \
    if (!whyNoMounts().empty()) {      \
        GTEST_SKIP() << whyNoMounts(); \
    }                                  \
    static_assert(true, "a semicolon follows")

#define SKIP_WITHOUT_RIGHTS(rights)                                              \
    if (!(rights).hold()) {                                                      \
        GTEST_SKIP() << "NOT TESTED: permissions don't hold for this root user"; \
    }                                                                            \
    static_assert(true, "a semicolon follows")
