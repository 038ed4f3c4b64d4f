// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxAddinLoader.h>
#include <kx/host/kxHostApplication.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <regex>
#include <vector>

// The libraries' paths come from the build.

namespace {

class AddinLoaderTest : public testing::Test {
protected:
    static kxHostCallbacks printingTo(std::vector<std::string>& lines) {
        kxHostCallbacks callbacks;
        callbacks.printLine = [&lines](const kxString& line) { lines.push_back(line.toUtf8()); };
        return callbacks;
    }
    bool load(const std::string& path) {
        m_error.clear();
        return m_addin->Load(path, m_application.get(), &m_error);
    }
    void expectNotLoaded(const std::string& path, const char* cause) {
        EXPECT_FALSE(load(path));
        EXPECT_FALSE(m_addin->IsLoaded());
        EXPECT_NE(m_error.find(cause), std::string::npos) << m_error;
        m_addin->Unload();
    }

    std::vector<std::string> m_lines;
    kxHostApplication_ptr m_application = kxCreateHostApplication(printingTo(m_lines));
    std::optional<kxLoadedAddin> m_addin{std::in_place};
    std::string m_error;
};

TEST_F(AddinLoaderTest, connectsWithAGuidAndDisconnects) {
    ASSERT_TRUE(load(KX_RECORDING_ADDIN)) << m_error;
    EXPECT_TRUE(m_addin->IsLoaded());
    ASSERT_EQ(m_lines.size(), 1U);
    const std::regex guid(
        "connected "
        "[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}");
    EXPECT_TRUE(std::regex_match(m_lines[0], guid)) << m_lines[0];
    EXPECT_TRUE(m_application->RunCommand("_RECORD"));
    m_addin->Unload();
    EXPECT_FALSE(m_addin->IsLoaded());
    m_addin->Unload();
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_EQ(m_lines[1], "run");
    EXPECT_EQ(m_lines[2], "disconnected");
    EXPECT_FALSE(m_application->RunCommand("_RECORD"));
}

TEST_F(AddinLoaderTest, eachLoadGetsAFreshGuid) {
    ASSERT_TRUE(load(KX_RECORDING_ADDIN)) << m_error;
    ASSERT_TRUE(load(KX_RECORDING_ADDIN)) << m_error;
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_EQ(m_lines[1], "disconnected");
    EXPECT_NE(m_lines[0], m_lines[2]);
}

TEST_F(AddinLoaderTest, theDestructorDisconnects) {
    ASSERT_TRUE(load(KX_RECORDING_ADDIN)) << m_error;
    m_addin.reset();
    ASSERT_EQ(m_lines.size(), 2U);
    EXPECT_EQ(m_lines[1], "disconnected");
}

TEST_F(AddinLoaderTest, aMissingFileIsNamed) {
    expectNotLoaded("/nowhere/libMissing.so.1", "/nowhere/libMissing.so.1");
}

TEST_F(AddinLoaderTest, aBareNameIsAFileOfTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path library(KX_RECORDING_ADDIN);
    std::filesystem::current_path(library.parent_path());
    const bool loaded = load(library.filename().string());
    std::filesystem::current_path(before);
    EXPECT_TRUE(loaded) << m_error;
}

TEST_F(AddinLoaderTest, theFoldersOfTheSystemAreNotSearched) {
    expectNotLoaded("libc.so.6", "./libc.so.6: cannot open shared object file");
}

TEST_F(AddinLoaderTest, anEmptyPathIsNotTheProgramItself) {
    expectNotLoaded("", "./");
}

TEST_F(AddinLoaderTest, aNamedPipeIsNotWaitedFor) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("kxsdk_test_pipe" + std::to_string(getpid()) + ".so");
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    expectNotLoaded(path.string(), "not a regular file");
    std::filesystem::remove(path);
}

TEST_F(AddinLoaderTest, aFileThatIsNoLibraryIsNamed) {
    const auto path = std::filesystem::temp_directory_path() / "kxsdk_test_no_library.so";
    std::ofstream(path) << "text";
    expectNotLoaded(path.string(), "kxsdk_test_no_library.so");
    std::filesystem::remove(path);
}

TEST_F(AddinLoaderTest, aLibraryWithoutEntryPointsIsNoAddin) {
    expectNotLoaded(KX_ADDIN_WITHOUT_ENTRY_POINTS, "connectToKestrix");
}

TEST_F(AddinLoaderTest, aLibraryThatCannotBeDisconnectedIsNotConnected) {
    expectNotLoaded(KX_ADDIN_WITHOUT_EXIT_POINT, "disconnectFromKestrix");
    EXPECT_TRUE(m_lines.empty());
}

TEST_F(AddinLoaderTest, anAddinThatRefusesIsUnloadedWithoutDisconnecting) {
    expectNotLoaded(KX_REFUSING_ADDIN, "refused");
    EXPECT_EQ(m_lines, std::vector<std::string>{"refusing"});
}

TEST_F(AddinLoaderTest, aFailedLoadDisconnectsWhatWasLoadedBefore) {
    ASSERT_TRUE(load(KX_RECORDING_ADDIN)) << m_error;
    expectNotLoaded(KX_REFUSING_ADDIN, "refused");
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_EQ(m_lines[1], "disconnected");
}

}  // namespace
