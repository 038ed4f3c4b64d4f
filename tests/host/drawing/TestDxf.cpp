// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "TestDxf.h"

#include <unistd.h>

#include <atomic>
#include <cmath>
#include <fstream>

namespace kxdrawing {

namespace {

std::string section(const std::string& name, const std::string& content) {
    return groups({{0, "SECTION"}, {2, name}}) + content + groups({{0, "ENDSEC"}});
}

}  // namespace

std::string groups(std::initializer_list<Group> list) {
    std::string text;
    for (const Group& group : list) {
        text += std::to_string(group.code) + '\n' + group.value + '\n';
    }
    return text;
}

std::string TestDxf::text() const {
    std::string result;
    result += header.empty() ? "" : section("HEADER", header);
    result += tables.empty() ? "" : section("TABLES", tables);
    result += blocks.empty() ? "" : section("BLOCKS", blocks);
    return result + section("ENTITIES", entities) + groups({{0, "EOF"}});
}

std::string block(const std::string& name, const std::string& entities, const std::string& x,
                  const std::string& y) {
    return groups({{0, "BLOCK"}, {8, "0"}, {2, name}, {70, "0"}, {10, x}, {20, y}}) + entities +
           groups({{0, "ENDBLK"}});
}

std::string line(const std::string& x1, const std::string& y1, const std::string& x2,
                 const std::string& y2, const std::string& layerName) {
    return groups({{0, "LINE"}, {8, layerName}, {10, x1}, {20, y1}, {11, x2}, {21, y2}});
}

std::string circle(const std::string& x, const std::string& y, const std::string& radius) {
    return groups({{0, "CIRCLE"}, {8, "0"}, {10, x}, {20, y}, {40, radius}});
}

std::string insert(const std::string& name, const std::string& x, const std::string& y,
                   std::initializer_list<Group> more, const std::string& layerName) {
    return groups({{0, "INSERT"}, {8, layerName}, {2, name}, {10, x}, {20, y}}) + groups(more);
}

std::string layer(const std::string& name, int flags, int color) {
    return groups({{0, "LAYER"},
                   {2, name},
                   {70, std::to_string(flags)},
                   {62, std::to_string(color)},
                   {6, "CONTINUOUS"}});
}

TestFile::TestFile(const std::string& content) {
    static std::atomic<int> count{0};
    m_path = testing::TempDir() + "kxdrawing-" + std::to_string(getpid()) + "-" +
             std::to_string(++count) + ".dxf";
    std::ofstream(m_path, std::ios::binary) << content;
}

ReadResult readText(const std::string& text, const ReadOptions& options) {
    const TestFile file(text);
    return readDxf(file.path(), options);
}

Drawing readGood(const std::string& text, const ReadOptions& options) {
    ReadResult result = readText(text, options);
    EXPECT_TRUE(result.drawing) << result.error.toText();
    return result.drawing ? *result.drawing : Drawing{};
}

Drawing readEntities(const std::string& entities) {
    TestDxf dxf;
    dxf.entities = entities;
    return readGood(dxf.text());
}

std::string onlyReason(const Drawing& drawing) {
    const std::vector<ImportRow> rows = drawing.report.rows();
    EXPECT_EQ(rows.size(), 1U) << drawing.report.toText();
    EXPECT_TRUE(drawing.objects.empty());
    if (rows.size() != 1 || rows.front().outcome != ImportOutcome::LeftOut) {
        return "NOT LEFT OUT";
    }
    return rows.front().detail;
}

kxVector3 firstPoint(const kxLine_c& line) {
    kxVector3 p;
    line.GetFirstPoint(&p.x, &p.y, &p.z);
    return p;
}

kxVector3 secondPoint(const kxLine_c& line) {
    kxVector3 p;
    line.GetSecondPoint(&p.x, &p.y, &p.z);
    return p;
}

std::pair<kxVector3, kxVector3> endsOf(kxObject& object) {
    if (const auto straight = kxCast<kxLine_c>(&object)) {
        return {firstPoint(*straight), secondPoint(*straight)};
    }
    const auto arc = kxCast<kxCircleArc_c>(&object);
    EXPECT_TRUE(arc);
    const auto [start, end] = endParams(*arc);
    return {pointAt(*arc, start), pointAt(*arc, end)};
}

void expectSame(const kxVector3& actual, const kxVector3& wanted) {
    EXPECT_EQ(actual.x, wanted.x);
    EXPECT_EQ(actual.y, wanted.y);
    EXPECT_EQ(actual.z, wanted.z);
}

void expectNear(const kxVector3& actual, const kxVector3& wanted, double bound) {
    EXPECT_NEAR(actual.x, wanted.x, bound);
    EXPECT_NEAR(actual.y, wanted.y, bound);
    EXPECT_NEAR(actual.z, wanted.z, bound);
}

double distance(const kxVector3& a, const kxVector3& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

}  // namespace kxdrawing
