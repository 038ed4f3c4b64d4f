// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Names and kinds of files that a user may hand in.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <filesystem>

#include "FaultRun.h"
#include "FileFaults.h"

namespace fs = std::filesystem;

namespace {

constexpr int kUnreadable = 2;
constexpr int kUnwritable = 4;
constexpr std::size_t kLongestName = 255;

class FileKinds : public testing::Test {
protected:
    std::string place(const std::string& name = {}) const { return m_folder.place(name); }
    std::string drawing() const { return makeFile(place("part.dxf"), linesDrawing(3)); }
    /// A command for each way a file is read, with the file in the last place.
    std::vector<Words> readers() const {
        std::vector<Words> all{programOf(drawing()) + Words{"--preamble"},
                               programOf(drawing()) + Words{"--postscript"},
                               programOf(drawing()) + Words{"--config"}};
        if (std::getenv("DISPLAY") != nullptr) {
            all.push_back({"view", "--preview", place("a.png")});
        }
        const Words settings = programOf("");
        all.emplace_back(settings.begin() + 1, settings.end());
        return all;
    }
    void expectRefused(const std::string& file, const std::string& what) const {
        for (const Words& reader : readers()) {
            const ChildRun run = runWords(reader + Words{file});
            EXPECT_EQ(run.code, kUnreadable) << reader.front() << reader.back();
            EXPECT_EQ(run.output, "");
            EXPECT_TRUE(isOneLineWith(run.messages, {"kxgcode: " + file + ": " + what}))
                << run.messages;
        }
    }

    FaultFolder m_folder;
};

TEST_F(FileKinds, APipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(place("pipe").c_str(), 0600), 0);
    expectRefused(place("pipe"), "a named pipe, not a regular file");
}

TEST_F(FileKinds, AnEndlessDeviceIsNotRead) {
    expectRefused("/dev/zero", "a device, not a regular file");
}

TEST_F(FileKinds, AFolderIsSaid) {
    fs::create_directory(place("folder.dxf"));
    expectRefused(place("folder.dxf"), "a directory");
}

TEST_F(FileKinds, ASocketIsSaid) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    place("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    expectRefused(place("socket"), "a socket, not a regular file");
    close(socket);
}

TEST_F(FileKinds, AFileWhoseReadingFailsIsSaid) {
    expectRefused("/proc/self/mem", "cannot be read: Input/output error");
}

TEST_F(FileKinds, AMissingFileALinkToNothingAndALoopAreSaid) {
    fs::create_symlink("gone", place("to-nothing"));
    fs::create_symlink("b", place("a"));
    fs::create_symlink("a", place("b"));
    expectRefused(place("gone"), "no such file");
    expectRefused(place("to-nothing"), "no such file");
    expectRefused(place("a"), "cannot be opened: Too many levels of symbolic links");
}

TEST_F(FileKinds, AFileThatMayNotBeReadIsSaid) {
    const PlainRights plain;
    if (!plain.hold()) {
        GTEST_SKIP() << "NOT TESTED: permissions don't hold for this root user";
    }
    const std::string file = makeFile(place("secret.dxf"), linesDrawing(1));
    const ChangedRights none(file, 0);
    expectRefused(file, "cannot be opened: Permission denied");
}

TEST_F(FileKinds, AnAddinThatIsNoLibraryIsSaid) {
    ASSERT_EQ(mkfifo(place("pipe.so").c_str(), 0600), 0);
    makeFile(place("text.so"), "text");
    for (const std::string& addin : {place("pipe.so"), place("text.so"), place("gone.so")}) {
        const ChildRun run = runWords(programOf(drawing()) + Words{"--addin", addin});
        EXPECT_EQ(run.code, kUnreadable);
        EXPECT_TRUE(isOneLineWith(run.messages, {"the add-in can't be loaded: " + addin}))
            << run.messages;
    }
}

struct OddName {
    const char* what;
    std::string name;
    /// As messages show it.
    std::string shown;
};

void PrintTo(const OddName& name, std::ostream* out) {
    *out << name.what;
}

class OddNames : public FileKinds, public testing::WithParamInterface<OddName> {};

TEST_P(OddNames, AreReadWrittenAndShownOnOneLine) {
    const std::string folder = place(GetParam().name);
    fs::create_directory(folder);
    const std::string expected = runWords(programOf(drawing())).output;
    const std::string input = folder + "/" + GetParam().name;
    const std::string output = input + ".nc";
    fs::copy_file(drawing(), input);
    const std::string preamble = makeFile(place(GetParam().name + "p"), "; begin\n");
    for (const char* locale : {"LC_ALL=C", "LC_ALL=C.UTF-8"}) {
        ChildOptions options;
        options.environment = {locale};
        ASSERT_EQ(runWords(programOf(input) + Words{"-o", output}, options).code, 0) << locale;
        EXPECT_EQ(bytesOf(output), expected);
        const ChildRun begun =
            runWords(programOf(input) + Words{"--preamble", preamble, "-o", output}, options);
        EXPECT_EQ(begun.code, 0) << begun.messages;
        EXPECT_EQ(bytesOf(output).substr(0, 8), "; begin\n");
        fs::remove(output);
        const ChildRun missing = runWords(programOf(input + "x") + Words{"-o", output}, options);
        EXPECT_TRUE(isOneLineWith(missing.messages, {"/" + GetParam().shown + "x: no such file"}))
            << missing.messages;
    }
}

TEST_P(OddNames, ArePicturesAndProgramsToView) {
    if (std::getenv("DISPLAY") == nullptr) {
        GTEST_SKIP() << "NOT TESTED: there is no display";
    }
    const std::string program = makeFile(place(GetParam().name), "G1 X10 Y5 F100\n");
    makeFile(place("plain.nc"), "G1 X10 Y5 F100\n");
    ASSERT_EQ(runWords({"view", place("plain.nc"), "--preview", place("plain.png")}).code, 0);
    const ChildRun run = runWords({"view", program, "--preview", program + ".png"});
    EXPECT_EQ(run.code, 0) << run.messages;
    EXPECT_EQ(bytesOf(program + ".png"), bytesOf(place("plain.png")));
    EXPECT_TRUE(isOneLineWith(run.messages, {"/" + GetParam().shown + ".png"})) << run.messages;
}

INSTANTIATE_TEST_SUITE_P(
    FileNames, OddNames,
    testing::Values(OddName{"blanks", " a  b ", " a  b "}, OddName{"quotes", "a\"b'c`", "a\"b'c`"},
                    OddName{"lineFeeds", "a\nb\r\tc", "a\\nb\\r\\tc"},
                    OddName{"escapes", "a\x1b[31mb\x7f", "a\\x1b[31mb\\x7f"},
                    OddName{"backslashes", "a\\b\\n", "a\\b\\n"},
                    OddName{"leadingDash", "-o", "-o"},
                    OddName{"dollarsAndStars", "$HOME*?[a]%1;&|", "$HOME*?[a]%1;&|"},
                    OddName{"nonLatinLetters", "\xD0\xB4\xE6\x9D\xBF\xF0\x9F\x94\xA9",
                            "\xD0\xB4\xE6\x9D\xBF\xF0\x9F\x94\xA9"},
                    OddName{"invalidUtf8", "a\xFF\xC3(\xED\xA0\x80",
                            "a\\xff\\xc3(\\xed\\xa0\\x80"}),
    [](const auto& named) { return std::string(named.param.what); });

TEST_F(FileKinds, ALeadingDashIsNoOptionAfterTwoDashes) {
    fs::copy_file(drawing(), place("-part.dxf"));
    ChildOptions options;
    options.workFolder = place();
    const Words settings = programOf("");
    const ChildRun run = runWords(
        Words(settings.begin() + 1, settings.end()) + Words{"-o=-out.nc", "--", "-part.dxf"},
        options);
    EXPECT_EQ(run.code, 0) << run.messages;
}

TEST_F(FileKinds, TheLongestNameIsWrittenAndALongerOneIsSaid) {
    const std::string longest = place(std::string(kLongestName, 'n'));
    const std::string expected = runWords(programOf(drawing())).output;
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(runWords(programOf(drawing()) + Words{"-o", longest}).code, 0);
        EXPECT_EQ(bytesOf(longest), expected);
    }
    const ChildRun run = runWords(programOf(drawing()) + Words{"-o", longest + "n"});
    EXPECT_EQ(run.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(run.messages, {"File name too long"})) << run.messages;
    expectRefused(longest + "n", "cannot be opened: File name too long");
}

/// A path below a folder of just so many bytes, and its folders. The last name has one byte.
std::string longPath(const std::string& folder, std::size_t bytes) {
    std::string path = folder;
    while (path.size() + 2 < bytes) {
        // One byte is left for the last name and one for the stroke before it.
        const std::size_t left = bytes - path.size() - 2;
        const std::size_t length = std::min(left - 1, left > 202 ? std::size_t{200} : left - 1);
        path += "/" + std::string(length, 'd');
        fs::create_directory(path);
    }
    return path + "/a";
}

TEST_F(FileKinds, APathAsLongAsTheSystemTakesIsReadAndWrittenAndALongerOneIsSaid) {
    const std::string path = longPath(place(), PATH_MAX - 1);
    ASSERT_EQ(path.size(), std::size_t{PATH_MAX - 1});
    const std::string expected = runWords(programOf(drawing())).output;
    fs::copy_file(drawing(), path);
    EXPECT_EQ(runWords(programOf(path)).output, expected);
    // Over what stands there, with a longer name beside it meanwhile.
    ASSERT_EQ(runWords(programOf(drawing()) + Words{"-o", path}).code, 0);
    EXPECT_EQ(bytesOf(path), expected);
    const ChildRun longer = runWords(programOf(drawing()) + Words{"-o", path + "b"});
    EXPECT_EQ(longer.code, kUnwritable);
    EXPECT_TRUE(isOneLineWith(longer.messages, {"File name too long"})) << longer.messages;
    expectRefused(path + "b", "cannot be opened: File name too long");
}

TEST(DeadDisplay, IsSaidWhateverNamesIt) {
    for (const char* display : {":77", "localhost:77", "unix:77", "nonsense"}) {
        ChildOptions options;
        options.environment = {std::string("DISPLAY=") + display, "QT_QPA_PLATFORM",
                               "WAYLAND_DISPLAY"};
        const ChildRun run =
            runWords({"view", KX_EXAMPLES "/flange.nc", "--preview", "a.png"}, options);
        EXPECT_EQ(run.code, kUnwritable) << display;
        EXPECT_TRUE(isOneLineWith(run.messages, {"there is none at", display, "xvfb-run"}))
            << run.messages;
    }
}

}  // namespace
