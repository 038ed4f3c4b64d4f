// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfScanner.h"

#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "TestDxf.h"
#include "drawing/Explode.h"

namespace kxdrawing {
namespace {

DxfDiagnostic errorOf(const std::string& text) {
    const ReadResult result = readText(text);
    EXPECT_FALSE(result.drawing) << text.substr(0, 200);
    return result.error;
}

void expectError(const std::string& text, long lineNumber, const std::string& words) {
    const DxfDiagnostic error = errorOf(text);
    EXPECT_EQ(error.line, lineNumber) << error.toText();
    EXPECT_NE(error.toText().find(words), std::string::npos) << error.toText();
}

std::string smallDrawing() {
    TestDxf dxf;
    dxf.header = groups({{9, "$INSUNITS"}, {70, "4"}});
    dxf.tables = groups({{0, "TABLE"}, {2, "LAYER"}}) + layer("A", 0, 7) + groups({{0, "ENDTAB"}});
    dxf.blocks = block("B", line("0", "0", "1", "0"));
    dxf.entities = line("1", "2", "3", "4") + insert("B", "5", "6");
    return dxf.text();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

TEST(DxfScanner, A_small_drawing_is_read_whole) {
    EXPECT_EQ(readGood(smallDrawing()).objects.size(), 2U);
}

TEST(DxfScanner, A_file_cut_after_any_line_is_refused_at_its_last_line) {
    const std::vector<std::string> lines = linesOf(smallDrawing());
    std::string text;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        text += lines[i] + '\n';
        const DxfDiagnostic error = errorOf(text);
        EXPECT_NE(error.found.find("truncated"), std::string::npos) << error.toText();
        EXPECT_EQ(error.line, static_cast<long>(i + 1)) << error.toText();
    }
}

TEST(DxfScanner, A_file_cut_inside_of_any_line_is_refused_or_unchanged) {
    const std::string text = smallDrawing();
    for (std::size_t size = 1; size + 1 < text.size(); ++size) {
        const ReadResult result = readText(text.substr(0, size));
        EXPECT_FALSE(result.drawing) << size;
    }
    EXPECT_TRUE(readText(text.substr(0, text.size() - 1)).drawing);
}

TEST(DxfScanner, A_missing_line_anywhere_never_crashes) {
    const std::vector<std::string> lines = linesOf(smallDrawing());
    for (std::size_t missing = 0; missing < lines.size(); ++missing) {
        std::string text;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            text += i == missing ? "" : lines[i] + '\n';
        }
        EXPECT_FALSE(readText(text).drawing) << missing;
    }
}

TEST(DxfScanner, Random_bytes_are_refused) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string text(1 + random() % 3000, ' ');
        for (char& c : text) {
            c = static_cast<char>(random() & 0xFFU);
        }
        EXPECT_FALSE(readText(text).drawing);
    }
}

std::string splines() {
    return groups({{0, "SPLINE"},
                   {71, "2"},
                   {72, "6"},
                   {73, "3"},
                   {40, "0"},
                   {40, "0"},
                   {40, "0"},
                   {40, "1"},
                   {40, "1"},
                   {40, "1"},
                   {10, "0"},
                   {20, "0"},
                   {10, "1"},
                   {20, "2"},
                   {10, "2"},
                   {20, "0"}}) +
           groups({{0, "SPLINE"},
                   {74, "3"},
                   {11, "0"},
                   {21, "0"},
                   {11, "3"},
                   {21, "4"},
                   {11, "6"},
                   {21, "0"}});
}

std::string polylines() {
    return groups({{0, "LWPOLYLINE"},
                   {90, "3"},
                   {70, "1"},
                   {10, "0"},
                   {20, "0"},
                   {42, "1"},
                   {10, "4"},
                   {20, "0"},
                   {10, "4"},
                   {20, "3"},
                   {42, "-0.5"}}) +
           groups({{0, "POLYLINE"},
                   {70, "0"},
                   {0, "VERTEX"},
                   {10, "1"},
                   {20, "2"},
                   {42, "2"},
                   {0, "VERTEX"},
                   {10, "5"},
                   {20, "2"},
                   {0, "SEQEND"}});
}

/// All kinds of entities, also in a block.
std::string richDrawing() {
    const std::string all =
        splines() + polylines() +
        groups({{0, "ARC"}, {10, "1"}, {20, "2"}, {40, "3"}, {50, "350"}, {51, "40"}}) +
        groups({{0, "ELLIPSE"},
                {10, "1"},
                {20, "2"},
                {11, "4"},
                {21, "3"},
                {40, "0.5"},
                {41, "0.1"},
                {42, "6"}}) +
        groups({{0, "TEXT"}, {10, "1"}, {20, "2"}, {40, "3"}, {1, "text"}});
    TestDxf dxf;
    dxf.tables = groups({{0, "TABLE"}, {2, "LAYER"}}) + layer("A", 0, 7);
    dxf.blocks = block("B", all);
    dxf.entities = all + circle("1", "1", "2") +
                   insert("B", "5", "6", {{41, "-2"}, {42, "1"}, {50, "30"}, {70, "2"}, {44, "9"}});
    return dxf.text();
}

TEST(DxfScanner, Random_changes_of_lines_never_crash_and_reports_stay_true) {
    std::mt19937 random(11);
    const std::vector<std::string> good = linesOf(richDrawing());
    const std::vector<std::string> values = {"0",          "-1",   "1e308",  "nan",
                                             "2147483647", "",     "99",     "1e-308",
                                             "360",        "1e12", "SPLINE", "VERTEX"};
    ReadOptions options;
    options.limits.objects = 1000;
    long readable = 0;
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::string> lines = good;
        // Most changes hit values, so that some drawings stay readable.
        for (auto changes = 1 + random() % 3; changes > 0; --changes) {
            const std::size_t place = random() % lines.size();
            lines[place | (random() % 8 != 0 ? 1U : 0U)] =
                random() % 2 != 0 ? values[random() % values.size()] : good[random() % good.size()];
        }
        std::string text;
        for (const std::string& each : lines) {
            text += each + '\n';
        }
        const ReadResult result = readText(text, options);
        if (!result.drawing) {
            EXPECT_GT(result.error.line, 0) << result.error.toText();
            continue;
        }
        ++readable;
        EXPECT_EQ(result.drawing->report.totals().objects,
                  static_cast<long>(result.drawing->objects.size()));
        for (const kxObject_ptr& object : result.drawing->objects) {
            explodeObject(*object);
        }
    }
    EXPECT_GT(readable, 200);
    EXPECT_LT(readable, 1800);
}

TEST(DxfScanner, Binary_DXF_is_named) {
    expectError(std::string("AutoCAD Binary DXF\r\n\x1a\0\0\0SECTION", 30), 1,
                "binary DXF is not supported; save as ASCII DXF");
}

TEST(DxfScanner, A_zero_byte_is_refused_with_its_line) {
    std::string text = smallDrawing();
    text.replace(text.find("ENDTAB"), 1, 1, '\0');
    const DxfDiagnostic error = errorOf(text);
    EXPECT_GT(error.line, 10);
    EXPECT_NE(error.found.find("not a DXF file"), std::string::npos);
}

TEST(DxfScanner, Something_else_is_not_a_DXF_file) {
    expectError("<svg>\n</svg>\n", 1, "not a DXF file: \"<svg>\"");
    expectError("12\nhello\n", 2, "not a DXF file");
    expectError(std::string(3U << 20U, '1'), 1, "an endless line");
}

TEST(DxfScanner, A_missing_ENDSEC_is_named_with_both_lines) {
    const std::string text =
        groups({{0, "SECTION"}, {2, "ENTITIES"}}) + line("0", "0", "1", "1") + groups({{0, "EOF"}});
    expectError(text, 18, "section ENTITIES, begun in line 2, has no ENDSEC; expected ENDSEC");
    expectError(groups({{0, "SECTION"}, {2, "HEADER"}, {0, "SECTION"}, {2, "ENTITIES"}}), 6,
                "section HEADER, begun in line 2, has no ENDSEC");
}

TEST(DxfScanner, Misplaced_structure_is_refused) {
    expectError(groups({{0, "SECTION"}, {2, "ENTITIES"}, {0, "ENDSEC"}, {0, "ENDSEC"}}), 8,
                "ENDSEC outside of a section");
    expectError(groups({{0, "SECTION"}, {2, "ENTITIES"}, {0, "ENDSEC"}}) + line("0", "0", "1", "1"),
                8, "\"LINE\" outside of a section");
    expectError(groups({{0, "SECTION"}, {8, "ENTITIES"}}), 4, "a section without a name");
    const std::string open = groups({{0, "SECTION"}, {2, "BLOCKS"}, {0, "BLOCK"}, {2, "A"}});
    expectError(open + groups({{0, "BLOCK"}}), 10, "the block of line 6 is open; expected ENDBLK");
    expectError(open + groups({{0, "ENDSEC"}}), 10, "the block of line 6 is open; expected ENDBLK");
    expectError(groups({{0, "SECTION"}, {2, "BLOCKS"}, {0, "ENDBLK"}, {0, "X"}}), 6,
                "ENDBLK without a block");
}

TEST(DxfScanner, Numbers_that_are_none_are_refused_with_line_and_group) {
    const auto lineTo = [](const std::string& x) {
        TestDxf dxf;
        dxf.entities = line("0", "0", x, "0");
        return dxf.text();
    };
    for (const char* const bad : {"nan", "NaN", "inf", "-inf", "1e400", "-1e999"}) {
        expectError(lineTo(bad), 14, std::string("\"") + bad + "\" (group 11); expected a finite");
    }
    for (const char* const bad : {"", "abc", "1,5", "1.5mm", "0x10", "1 2", "+-1", "--1"}) {
        expectError(lineTo(bad), 14, std::string("\"") + bad + "\" (group 11); expected a number");
    }
    for (const char* const good : {" 1.5", "+1.5", "15e-1", "1.5 ", "\t1.5", ".15E+1"}) {
        const auto object = onlyObject<kxLine_c>(readGood(lineTo(good)));
        ASSERT_TRUE(object);
        EXPECT_EQ(secondPoint(*object).x, 1.5) << good;
    }
}

TEST(DxfScanner, Integers_that_are_none_are_refused) {
    const auto flags = [](const std::string& value) {
        TestDxf dxf;
        dxf.entities =
            groups({{0, "LWPOLYLINE"}, {70, value}, {10, "0"}, {20, "0"}, {10, "1"}, {20, "0"}});
        return dxf.text();
    };
    expectError(flags("one"), 8, "\"one\" (group 70); expected an integer");
    expectError(flags("99999999999"), 8, "expected an integer");
    EXPECT_TRUE(onlyObject<kxPolyLine_c>(readGood(flags("1.0")))->IsClosed());
}

TEST(DxfScanner, Numbers_of_entities_that_are_not_read_do_not_matter) {
    TestDxf dxf;
    dxf.entities = groups({{0, "HATCH"}, {8, "0"}, {10, "nonsense"}}) + line("0", "0", "1", "1");
    EXPECT_EQ(readGood(dxf.text()).objects.size(), 1U);
}

TEST(DxfScanner, Windows_line_ends_a_byte_order_mark_comments_and_blanks_are_accepted) {
    std::string text = "\xEF\xBB\xBF";
    for (const std::string& each : linesOf(smallDrawing())) {
        text += each + "\r\n";
    }
    EXPECT_EQ(readGood(text).objects.size(), 2U);

    TestDxf dxf;
    dxf.entities = "999\nfirst\n  0\nLINE\n999\nsecond\n 10\n   1\n 20\n2\n\t11\n3\n 21\n4\n";
    const auto object = onlyObject<kxLine_c>(readGood("999\nhead\n" + dxf.text()));
    ASSERT_TRUE(object);
    expectSame(firstPoint(*object), {1, 2, 0});
    expectSame(secondPoint(*object), {3, 4, 0});
}

TEST(DxfScanner, What_follows_EOF_is_not_read) {
    EXPECT_TRUE(readText(smallDrawing() + "\x1a\ngarbage").drawing);
}

TEST(DxfScanner, Header_variables_after_the_header_are_accepted) {
    const std::string text = groups(
        {{0, "SECTION"}, {2, "HEADER"}, {0, "ENDSEC"}, {9, "$INSUNITS"}, {70, "1"}, {0, "ENDSEC"}});
    TestDxf dxf;
    dxf.entities = line("0", "0", "1", "1");
    EXPECT_EQ(readGood(text + dxf.text()).unit, 0);
}

TEST(DxfScanner, Extended_data_and_application_groups_do_not_disturb) {
    TestDxf dxf;
    dxf.entities =
        line("1", "2", "3", "4") +
        groups({{102, "{APP"}, {10, "99"}, {102, "}"}, {1001, "APP"}, {1010, "x"}, {1040, "y"}});
    expectSame(firstPoint(*onlyObject<kxLine_c>(readGood(dxf.text()))), {1, 2, 0});
}

TEST(DxfScanner, An_empty_drawing_is_a_drawing) {
    const Drawing drawing = readEntities("");
    EXPECT_TRUE(drawing.objects.empty());
    EXPECT_NE(drawing.report.toText().find("The drawing has no entities."), std::string::npos);
    EXPECT_NE(readGood(groups({{0, "EOF"}})).report.toText().find("no section ENTITIES"),
              std::string::npos);
}

TEST(DxfScanner, Files_that_cannot_be_opened_are_named_with_the_cause) {
    EXPECT_EQ(readDxf("/nowhere/at/all.dxf").error.toText(),
              "/nowhere/at/all.dxf: no such file; expected a DXF file");
    EXPECT_NE(readDxf(testing::TempDir()).error.toText().find("a directory"), std::string::npos);
    EXPECT_NE(errorOf("").toText().find("an empty file"), std::string::npos);
    EXPECT_NE(readDxf("").error.toText().find("no such file"), std::string::npos);
}

TEST(DxfScanner, A_pipe_or_device_is_refused_without_waiting) {
    const TestFile place("x");
    std::remove(place.path().c_str());
    ASSERT_EQ(mkfifo(place.path().c_str(), 0600), 0);
    EXPECT_NE(readDxf(place.path()).error.toText().find("not a regular file"), std::string::npos);
    EXPECT_NE(readDxf("/dev/zero").error.toText().find("not a regular file"), std::string::npos);
}

TEST(DxfScanner, A_file_that_fails_on_reading_is_refused) {
    // Regular to the eye, but reading its first page fails for anybody.
    EXPECT_NE(readDxf("/proc/self/mem").error.toText().find("cannot be read"), std::string::npos);
}

TEST(DxfScanner, A_file_without_read_permission_is_refused) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "root may read every file";
    }
    const TestFile file(smallDrawing());
    ASSERT_EQ(chmod(file.path().c_str(), 0), 0);
    EXPECT_NE(readDxf(file.path()).error.toText().find("cannot be opened"), std::string::npos);
}

}  // namespace
}  // namespace kxdrawing
