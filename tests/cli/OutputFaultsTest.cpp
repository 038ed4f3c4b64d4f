// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// What becomes of the program, and of what stood before, when writing fails.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "FaultRun.h"
#include "FileFaults.h"

namespace fs = std::filesystem;

namespace {

constexpr int kUnwritable = 4;

class OutputFaults : public testing::Test {
protected:
    void SetUp() override { fs::create_directory(place("disk")); }

    std::string place(const std::string& name = {}) const { return m_folder.place(name); }
    std::string drawing(int lines = 400) const {
        return makeFile(place("part.dxf"), linesDrawing(lines));
    }
    /// The program as it is when nothing fails.
    std::string program() const { return runWords(programOf(drawing())).output; }
    /// The names in a folder: what a failure leaves behind is seen.
    static Words namesIn(const std::string& folder) {
        Words names;
        for (const auto& entry : fs::directory_iterator(folder)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    ChildRun write(const std::string& output, const Words& more = {},
                   const ChildOptions& options = {}) const {
        return runWords(programOf(drawing()) + Words{"-o", output} + more, options);
    }

private:
    FaultFolder m_folder;
};

TEST_F(OutputFaults, AFullDiskIsSaidAndWhatStoodBeforeStands) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    ASSERT_TRUE(disk.isThere());
    const std::string file = makeFile(place("disk/a.nc"), "old\n");
    for (const std::size_t free : {std::size_t{0}, std::size_t{8192}}) {
        disk.fill(free);
        const ChildRun run = write(file);
        EXPECT_EQ(run.code, kUnwritable);
        EXPECT_TRUE(isOneLineWith(run.messages, {"kxgcode: ", file, "No space left on device"}))
            << run.messages;
        EXPECT_EQ(bytesOf(file), "old\n") << free << " bytes were free";
        EXPECT_EQ(namesIn(place("disk")), (Words{"a.nc", "filling"}));
    }
}

TEST_F(OutputFaults, APictureOnAFullDiskIsSaidAndTheProgramStays) {
    SKIP_WITHOUT_MOUNTS();
    if (std::getenv("DISPLAY") == nullptr) {
        GTEST_SKIP() << "NOT TESTED: there is no display";
    }
    const SmallDisk disk(place("disk"));
    const std::string picture = makeFile(place("disk/a.png"), "old\n");
    disk.fill();
    const ChildRun run = write(place("a.nc"), {"--preview", picture});
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {picture, "No space left on device"}));
    EXPECT_EQ(bytesOf(picture), "old\n");
    EXPECT_EQ(bytesOf(place("a.nc")), program());
}

TEST_F(OutputFaults, AFullTemporaryFolderNeverCutsAProgramShort) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    makeFile(place("a.nc"), "old\n");
    ChildOptions options;
    options.environment = {"TMPDIR=" + place("disk")};
    // Once nothing of it can be saved, once a part, once all but its line numbers.
    for (const std::size_t free : {std::size_t{0}, std::size_t{8192}, std::size_t{16384}}) {
        disk.fill(free);
        for (const Words& saved : {Words{"--comment", "c"}, Words{"--line-numbers"}}) {
            const ChildRun run = write(place("a.nc"), saved, options);
            EXPECT_EQ(run.code, kUnwritable) << free << " bytes were free";
            EXPECT_TRUE(isOneLineWith(run.messages, {place("disk"), "TMPDIR"})) << run.messages;
            EXPECT_EQ(bytesOf(place("a.nc")), "old\n");
        }
    }
}

TEST_F(OutputFaults, ALimitOfFileSizeIsSaidAndWhatStoodBeforeStands) {
    const std::string file = makeFile(place("a.nc"), "old\n");
    const std::string source = drawing();
    ChildOptions options;
    options.prepare = [] {
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, SIG_DFL);
    };
    const ChildRun run = runWords(programOf(source) + Words{"-o", file}, options);
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {file, "File too large"})) << run.messages;
    EXPECT_EQ(bytesOf(file), "old\n");
    EXPECT_EQ(namesIn(place()), (Words{"a.nc", "disk", "part.dxf"}));
}

TEST_F(OutputFaults, AProgramThatTakesMoreMemoryThanThereIsIsSaidByTheCheck) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "NOT TESTED: the sanitizer needs memory without a limit";
#endif
    std::string program = "G21 G90\nM3 S9\nG0 X0 Y0\nG0 Z5\nF9\n";
    while (program.size() < 12'000'000) {
        program += "X1\nX2\n";
    }
    const std::string file = makeFile(place("long.nc"), program);
    ChildOptions options;
    options.prepare = [] {
        const rlimit limit{400'000'000, 400'000'000};
        setrlimit(RLIMIT_AS, &limit);
    };
    const ChildRun run = runWords({"check", file}, options);
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(isOneLineWith(run.messages, {file, "not enough memory"})) << run.messages;
    EXPECT_EQ(run.output, "");
}

TEST_F(OutputFaults, AFullDeviceBehindStandardOutputIsSaid) {
    ChildOptions options;
    options.outputTo = "/dev/full";
    const ChildRun run = runWords(programOf(drawing()), options);
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {"standard output: No space left on device"}))
        << run.messages;
    for (const char* question : {"--help", "--version"}) {
        const ChildRun asked = runWords({question}, options);
        EXPECT_EQ(asked.code, kUnwritable) << question;
        EXPECT_TRUE(isOneLineWith(asked.messages, {"standard output"})) << asked.messages;
    }
}

TEST_F(OutputFaults, AFileThatCantBeReplacedStands) {
    SKIP_WITHOUT_MOUNTS();
    const std::string file = makeFile(place("disk/a.nc"), "old\n");
    const PinnedFile pinned(file);
    ASSERT_TRUE(pinned.isThere());
    const ChildRun run = write(file);
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {file, "Device or resource busy"})) << run.messages;
    EXPECT_EQ(bytesOf(file), "old\n");
    EXPECT_EQ(namesIn(place("disk")), Words{"a.nc"});
}

TEST_F(OutputFaults, AReadOnlyDiskIsSaid) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    const std::string file = makeFile(place("disk/a.nc"), "old\n");
    ASSERT_TRUE(disk.makeReadOnly());
    for (const std::string& output : {file, place("disk/new.nc")}) {
        const ChildRun run = write(output);
        EXPECT_EQ(run.code, kUnwritable);
        EXPECT_TRUE(isOneLineWith(run.messages, {output, "Read-only file system"})) << run.messages;
    }
    EXPECT_EQ(namesIn(place("disk")), Words{"a.nc"});
}

TEST_F(OutputFaults, AReadOnlyFolderAndAReadOnlyFileAreSaidAndStand) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    const std::string file = makeFile(place("disk/a.nc"), "old\n");
    {
        const ChangedRights readOnly(file, 0444);
        const ChildRun run = write(file);
        EXPECT_EQ(run.code, kUnwritable);
        EXPECT_TRUE(isOneLineWith(run.messages, {file, "Permission denied"})) << run.messages;
    }
    const ChangedRights readOnly(place("disk"), 0555);
    for (const std::string& output : {file, place("disk/new.nc")}) {
        const ChildRun run = write(output);
        EXPECT_EQ(run.code, kUnwritable);
        EXPECT_TRUE(isOneLineWith(run.messages, {output, "in its folder: Permission denied"}))
            << run.messages;
    }
    EXPECT_EQ(bytesOf(file), "old\n");
    EXPECT_EQ(namesIn(place("disk")), Words{"a.nc"});
}

TEST_F(OutputFaults, TheRightsOfAReplacedFileStay) {
    const std::string file = makeFile(place("a.nc"), "old\n");
    const ChangedRights few(file, 0640);
    ASSERT_EQ(write(file).code, 0);
    struct stat status {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(OutputFaults, ALinkStaysAndTheFileBehindItIsWritten) {
    makeFile(place("disk/a.nc"), "old\n");
    fs::create_symlink("disk/a.nc", place("one.nc"));
    fs::create_symlink(place("one.nc"), place("two.nc"));
    fs::create_symlink("disk/later.nc", place("to-nothing.nc"));
    const std::string expected = program();
    ASSERT_EQ(write(place("two.nc")).code, 0);
    ASSERT_EQ(write(place("to-nothing.nc")).code, 0);
    EXPECT_EQ(bytesOf(place("disk/a.nc")), expected);
    EXPECT_EQ(bytesOf(place("disk/later.nc")), expected);
    for (const char* link : {"one.nc", "two.nc", "to-nothing.nc"}) {
        EXPECT_TRUE(fs::is_symlink(place(link))) << link;
    }
    EXPECT_EQ(namesIn(place("disk")), (Words{"a.nc", "later.nc"}));
}

TEST_F(OutputFaults, ALoopOfLinksIsSaidAndStays) {
    fs::create_symlink("b.nc", place("a.nc"));
    fs::create_symlink("a.nc", place("b.nc"));
    const ChildRun run = write(place("a.nc"));
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {"a.nc: Too many levels of symbolic links"}))
        << run.messages;
    EXPECT_TRUE(fs::is_symlink(place("a.nc")) && fs::is_symlink(place("b.nc")));
    // Nor is an output in one loop taken for an input in another.
    const ChildRun both = runWords(programOf(place("b.nc")) + Words{"-o", place("a.nc")});
    EXPECT_EQ(both.code, 2) << both.messages;
}

TEST_F(OutputFaults, ALinkIntoAFolderThatCantBeWrittenStaysAsTheFileBehindIt) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    makeFile(place("disk/a.nc"), "old\n");
    fs::create_symlink("disk/a.nc", place("link.nc"));
    const ChangedRights readOnly(place("disk"), 0555);
    const ChildRun run = write(place("link.nc"));
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {"link.nc: ", "Permission denied"})) << run.messages;
    EXPECT_TRUE(fs::is_symlink(place("link.nc")));
    EXPECT_EQ(bytesOf(place("disk/a.nc")), "old\n");
}

TEST_F(OutputFaults, AFolderInThePlaceOfTheFileOrAMissingOneIsSaid) {
    for (const std::string& output : {place("disk"), place("disk/"), place("disk/."),
                                      place("gone/a.nc"), place("part.dxf/a.nc")}) {
        const ChildRun run = write(output);
        EXPECT_EQ(run.code, kUnwritable) << output;
        EXPECT_TRUE(isOneLineWith(run.messages, {"kxgcode: " + output + ": "})) << run.messages;
    }
    EXPECT_TRUE(namesIn(place("disk")).empty());
}

TEST_F(OutputFaults, APipeThatIsReadTakesTheProgram) {
    ASSERT_EQ(mkfifo(place("pipe").c_str(), 0600), 0);
    const std::string expected = program();
    const ChildRun run =
        runChild(Words{"/bin/sh", "-c", "cat pipe & exec \"$@\"", "sh", KX_PROGRAM} +
                     programOf(place("part.dxf")) + Words{"-o", "pipe"},
                 {{}, place(), {}, {}, 20});
    EXPECT_EQ(run.code, 0) << run.messages;
    EXPECT_TRUE(fs::is_fifo(place("pipe")));
}

}  // namespace
