// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "LiteralGCodeParser.h"
#include "SamePath.h"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> realPrograms() {
    std::vector<fs::path> files;
    if (!fs::is_directory(KX_REAL_PROGRAMS)) {
        return files;
    }
    for (const auto& entry : fs::recursive_directory_iterator(KX_REAL_PROGRAMS)) {
        const std::string extension = entry.path().extension().string();
        if (entry.is_regular_file() && (extension == ".ngc" || extension == ".nc")) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace

TEST(RealPrograms, GiveTheLiteralPathBitForBit) {
    const std::vector<fs::path> files = realPrograms();
    if (files.empty()) {
        GTEST_SKIP() << "no programs in " KX_REAL_PROGRAMS
                        ": tools/fetch-linuxcnc-programs fetches them";
    }
    constexpr std::size_t kMaxVertices = 1'000'000;
    EXPECT_GE(files.size(), 300U);
    std::size_t bytes = 0;
    qsizetype vertices = 0;
    int drawn = 0;
    for (const fs::path& file : files) {
        const QString text = QString::fromStdString(bytesOf(file));
        const std::string utf8 = text.toStdString();
        const PreviewPath path = interpretProgram(utf8, kMaxVertices);
        EXPECT_TRUE(samePath(path, utf8, literalPath(text, kMaxVertices))) << file;
        EXPECT_FALSE(path.stop) << file;
        bytes += utf8.size();
        vertices += path.vertices.size();
        drawn += path.vertices.empty() ? 0 : 1;
    }
    std::printf("%zu programs, %zu bytes; %d draw something, %lld points in all\n", files.size(),
                bytes, drawn, vertices);
    EXPECT_GT(drawn, 100);
}
