// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/ReadProgress.h"

#include <algorithm>

#include "TestDxf.h"

namespace kxdrawing {
namespace {

std::string manyLines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += line(std::to_string(i), "0", std::to_string(i), "1");
    }
    return text;
}

/// Reads with a report that notes the fractions and stops at the first one of `stopAt` or more.
struct Watched {
    explicit Watched(const TestDxf& dxf, double stopAt = 2) {
        const TestFile file(dxf.text());
        ReadOptions options;
        options.progress = [&](double fraction) {
            fractions.push_back(fraction);
            return fraction < stopAt;
        };
        result = readDxf(file.path(), options);
    }

    std::vector<double> fractions;
    ReadResult result;
};

TEST(ReadProgress, Grows_from_the_start_of_the_file_to_one) {
    const Watched watched({manyLines(20000), "", "", ""});
    ASSERT_TRUE(watched.result.drawing);
    EXPECT_FALSE(watched.result.cancelled);
    EXPECT_EQ(watched.result.drawing->objects.size(), 20000U);
    ASSERT_GE(watched.fractions.size(), 30U);
    EXPECT_TRUE(std::is_sorted(watched.fractions.begin(), watched.fractions.end()));
    EXPECT_LT(watched.fractions.front(), 0.15);
    EXPECT_EQ(watched.fractions.back(), 1);
}

TEST(ReadProgress, Is_told_at_most_once_per_thousand_records_and_objects) {
    const Watched watched({manyLines(20000), "", "", ""});
    EXPECT_LE(watched.fractions.size(), 42U);
}

TEST(ReadProgress, A_small_file_only_tells_its_end) {
    const Watched watched({manyLines(3), "", "", ""});
    EXPECT_EQ(watched.fractions, std::vector<double>{1});
}

TEST(ReadProgress, A_stop_while_the_file_is_read_gives_neither_drawing_nor_error) {
    const Watched watched({manyLines(20000), "", "", ""}, 0.4);
    EXPECT_TRUE(watched.result.cancelled);
    EXPECT_FALSE(watched.result.drawing);
    EXPECT_TRUE(watched.result.error.found.empty());
    EXPECT_LT(watched.fractions.back(), 0.5) << "it went on";
}

TEST(ReadProgress, A_stop_while_objects_are_made_gives_no_drawing) {
    const Watched watched({manyLines(20000), "", "", ""}, 0.9);
    EXPECT_TRUE(watched.result.cancelled);
    EXPECT_FALSE(watched.result.drawing);
    EXPECT_LT(watched.fractions.back(), 0.95) << "it went on";
}

TEST(ReadProgress, A_stop_within_one_large_insert_does_not_wait_for_its_end) {
    const std::string array =
        insert("B", "0", "0", {{70, "1000"}, {71, "1000"}, {44, "1"}, {45, "1"}});
    const TestDxf dxf{array, block("B", line("0", "0", "1", "1")), "", ""};
    const Watched watched(dxf, 0.5);
    EXPECT_TRUE(watched.result.cancelled);
    EXPECT_EQ(watched.fractions.size(), 1U) << "a million objects were made after the stop";
}

TEST(ReadProgress, A_stop_at_the_very_end_counts) {
    const Watched watched({manyLines(3), "", "", ""}, 1);
    EXPECT_TRUE(watched.result.cancelled);
    EXPECT_FALSE(watched.result.drawing);
}

TEST(ReadProgress, An_error_of_the_file_is_no_stop) {
    TestDxf dxf{manyLines(2000) + "0\nLINE\n10\nabc\n", "", "", ""};
    const Watched watched(dxf);
    EXPECT_FALSE(watched.result.cancelled);
    EXPECT_FALSE(watched.result.drawing);
    EXPECT_NE(watched.result.error.found.find("abc"), std::string::npos);
}

TEST(ReadProgress, The_drawing_is_the_same_with_and_without_a_report) {
    const TestDxf dxf{manyLines(1500), "", "", ""};
    const Watched watched(dxf);
    const TestFile file(dxf.text());
    const ReadResult plain = readDxf(file.path());
    ASSERT_TRUE(watched.result.drawing && plain.drawing);
    EXPECT_EQ(watched.result.drawing->objects.size(), plain.drawing->objects.size());
    EXPECT_FALSE(plain.cancelled);
}

}  // namespace
}  // namespace kxdrawing
