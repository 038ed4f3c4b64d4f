// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "drawing/DxfReader.h"
#include "drawing/Explode.h"

namespace kxdrawing {
namespace {

/// Drawings made by others, of a package that only tests install.
std::vector<std::string> realDrawings() {
    std::vector<std::string> paths;
    std::error_code error;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator("/usr/share/librecad", error)) {
        if (entry.path().extension() == ".dxf") {
            paths.push_back(entry.path().string());
        }
    }
    return paths;
}

TEST(RealDrawings, Each_is_read_and_exploded_in_time_or_refused_with_a_line) {
    const std::vector<std::string> paths = realDrawings();
    if (paths.empty()) {
        GTEST_SKIP() << "the package librecad-data is not installed";
    }
    std::size_t read = 0;
    for (const std::string& path : paths) {
        const auto start = std::chrono::steady_clock::now();
        const ReadResult result = readDxf(path);
        if (!result.drawing) {
            EXPECT_GT(result.error.line, 0) << result.error.toText();
            continue;
        }
        ++read;
        const ImportTotals totals = result.drawing->report.totals();
        EXPECT_EQ(totals.objects, static_cast<long>(result.drawing->objects.size())) << path;
        for (const kxObject_ptr& object : result.drawing->objects) {
            explodeObject(*object);
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << path;
    }
    RecordProperty("drawings", static_cast<int>(paths.size()));
    RecordProperty("refused", static_cast<int>(paths.size() - read));
    EXPECT_GE(read, paths.size() * 99 / 100);
}

}  // namespace
}  // namespace kxdrawing
