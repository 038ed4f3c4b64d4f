// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdlib>
#include <string>

#include "ParserFields.h"
#include "RandomProgram.h"
#include "SamePath.h"

namespace {

constexpr std::uint64_t kBlocks = 4;

/// For longer runs and for one program again: KX_PREVIEW_PROGRAMS and KX_PREVIEW_SEED.
std::uint64_t setting(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text != nullptr ? std::strtoull(text, nullptr, 10) : otherwise;
}

std::uint64_t programsOfABlock() {
    return (setting("KX_PREVIEW_PROGRAMS", 20'000) + kBlocks - 1) / kBlocks;
}

std::uint64_t firstSeed(std::uint64_t block) {
    return setting("KX_PREVIEW_SEED", 3'000'000) + block * programsOfABlock();
}

std::string_view view(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

void compareLine(GCodeParserN* parser, LiteralGCodeParser* judge, const std::string& line) {
    parser->parse(line);
    judge->parse(line);
    for (const std::string& letter : ParserFields::codes()) {
        ASSERT_EQ(parser->hasCode(letter), judge->hasCode(letter)) << letter << " in " << line;
        ASSERT_EQ(parser->getCodeValue(letter), judge->getCodeValue(letter)) << letter << line;
    }
    parser->executeGCodes();
    judge->executeGCodes();
}

/// A text as the panel hands it on, and one that is not even UTF-8.
void compareProgram(std::uint64_t seed) {
    SCOPED_TRACE(testing::Message() << "KX_PREVIEW_SEED=" << seed << " KX_PREVIEW_PROGRAMS=1");
    RandomProgram random(seed);
    const std::size_t limit = random.maxVertices();
    const std::string bytes = random.text();
    const QString text = seed % 2 == 0
                             ? QString::fromStdString(bytes)
                             : QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size()));
    const QByteArray utf8 = text.toUtf8();
    const LiteralPath judge = literalPath(text, limit);
    ASSERT_TRUE(samePath(interpretProgram(view(utf8), limit), view(utf8), judge));
    ASSERT_TRUE(samePathInUtf16(interpretProgram(text, limit), text, judge));
}

void compareRawLines(std::uint64_t seed) {
    SCOPED_TRACE(testing::Message() << "KX_PREVIEW_SEED=" << seed << " KX_PREVIEW_PROGRAMS=1");
    RandomProgram random(seed);
    const std::size_t limit = random.maxVertices();
    GCodeParserN parser(limit);
    LiteralGCodeParser judge(limit);
    for (int i = 0; i < 8 && !testing::Test::HasFatalFailure(); ++i) {
        compareLine(&parser, &judge, random.line());
    }
    PreviewPath path;
    PathExtents& box = path.extents;
    parser.GetMinMaxValues(&box.minX, &box.minY, &box.minZ, &box.maxX, &box.maxY, &box.maxZ,
                           &box.min, &box.max);
    EXPECT_EQ(parser.isCutShort(), judge.isCutShort());
    path.vertices = parser.takeVertices();
    path.colors = parser.takeColors();
    ASSERT_TRUE(
        samePath(path, "", {judge.vertices(), judge.colors(), judge.extents(), std::nullopt}));
}

}  // namespace

class RandomPrograms : public testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomPrograms, GiveTheLiteralPathBitForBit) {
    const std::uint64_t first = firstSeed(GetParam());
    for (std::uint64_t seed = first; seed < first + programsOfABlock() && !HasFailure(); ++seed) {
        compareProgram(seed);
    }
}

INSTANTIATE_TEST_SUITE_P(Block, RandomPrograms, testing::Range(std::uint64_t{0}, kBlocks));

TEST(RandomLines, OfAnyBytesGiveTheLiteralWordsAndPath) {
    const std::uint64_t first = firstSeed(0);
    for (std::uint64_t seed = first; seed < first + programsOfABlock() && !HasFailure(); ++seed) {
        compareRawLines(seed);
    }
}

TEST(RandomProgramMaker, ProgramsAreNotMostlyEmptyOrCutShort) {
    int withArcs = 0;
    int cutShort = 0;
    qsizetype vertices = 0;
    for (std::uint64_t seed = 1; seed <= 500; ++seed) {
        RandomProgram random(seed);
        const std::size_t limit = random.maxVertices();
        const PreviewPath path = interpretProgram(random.text(), limit);
        withArcs += path.vertices.size() >= 30 ? 1 : 0;
        cutShort += path.stop ? 1 : 0;
        vertices += path.vertices.size();
    }
    RecordProperty("vertices", std::to_string(vertices));
    EXPECT_GT(vertices, 500 * 20);
    EXPECT_GT(withArcs, 100);
    EXPECT_GT(cutShort, 20);
    EXPECT_LT(cutShort, 200);
}
