// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <chrono>
#include <string>

#include "LiteralGCodeParser.h"
#include "PreviewTest.h"
#include "SamePath.h"

using testing::ElementsAre;

namespace {

constexpr std::size_t kHundredMegabytes = 100'000'000;

/// Far above what it takes, with sanitizers and on a slow machine too, far below never.
class Hostile : public testing::Test {
protected:
    ~Hostile() override {
        EXPECT_LT(std::chrono::steady_clock::now() - m_begin, std::chrono::seconds(60));
    }

private:
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
};

std::string repeated(const std::string& piece, std::size_t size) {
    std::string text;
    text.reserve(size + piece.size());
    while (text.size() < size) {
        text += piece;
    }
    return text;
}

}  // namespace

using HostilePrograms = Hostile;

TEST_F(HostilePrograms, ADepthOfTwoThousandMillionPecksStopsAtTheGreatestNumberOfPoints) {
    const PreviewPath path = interpretProgram("G0 Z1\nG83 X0 Y0 Z-2000000000 R0 Q1\nG1 X5");
    EXPECT_EQ(path.vertices.size(), 50'000'000);
    EXPECT_EQ(path.colors.size(), 50'000'000);
    ASSERT_TRUE(path.stop);
    EXPECT_EQ(path.stop->points, 50'000'000U);
    EXPECT_EQ(path.stop->lineNumber, 2U);
    EXPECT_EQ(path.extents.maxX, 0.0F);
    // The rapid, one across, two for the first peck, three for each one after it.
    const int pecks = 1 + (50'000'000 - 4) / 3;
    EXPECT_EQ(path.extents.minZ, static_cast<float>(-pecks));
}

TEST_F(HostilePrograms, APeckThatNoLongerChangesTheDepthEndsTheCycle) {
    const float high = 1e20F;
    EXPECT_THAT(verticesOf("G183 X0 Y0 Z0 R100000000000000000000 Q1"),
                ElementsAre(Point3d(0, 0, high), Point3d(0, 0, high)));
    EXPECT_THAT(verticesOf("G83 X5 Y0 Z0 R100000000000000000000 Q1\nG1 Z3"),
                ElementsAre(Point3d(0, 0, high), Point3d(5, 0, high), Point3d(5, 0, 3)));
}

TEST_F(HostilePrograms, AnInfiniteRetractLevelEndsTheCycle) {
    const std::string nines(50, '9');
    EXPECT_EQ(verticesOf("G83 Z0 Q1 R" + nines).size(), 2);
    EXPECT_EQ(verticesOf("G183 Z" + nines + " Q1 R" + nines).size(), 3);
    EXPECT_EQ(verticesOf("G81 Z-" + nines + " R" + nines).size(), 4);
}

TEST_F(HostilePrograms, AnInfiniteDepthStopsAtTheGreatestNumberOfPoints) {
    const PreviewPath path = interpretProgram("G83 Q1 R0 Z-" + std::string(50, '9'), 100'000);
    EXPECT_EQ(path.vertices.size(), 100'000);
    EXPECT_TRUE(path.stop);
}

TEST_F(HostilePrograms, DepthsThatAreNoNumbersEndTheCycle) {
    const std::string nines(50, '9');
    // Infinity and minus infinity add up to NaN.
    EXPECT_EQ(verticesOf("G91\nG1 Z" + nines + "\nG83 R1 Q1 Z-" + nines + "\nX1").size(), 7);
}

TEST_F(HostilePrograms, NumbersOfFiftyDigitsInEveryWord) {
    const std::string nines(50, '9');
    for (const std::string sign : {"", "-", "."}) {
        for (const std::string g : {"0", "1", "2", "3", "81", "82", "83", "183"}) {
            std::string line = "G" + g;
            for (const char letter : std::string("DFHIJKLMPQRSTXYZ")) {
                line += letter + sign + nines;
            }
            const std::string text = line + "\nX1 Y1 Z1 R0 Q1 I1 J1\n" + line;
            EXPECT_TRUE(samePath(interpretProgram(text, 10'000), text,
                                 literalPath(QString::fromStdString(text), 10'000)))
                << text;
        }
    }
}

TEST_F(HostilePrograms, ALineOfAHundredMegabytesOfWords) {
    const std::string text = "G1 " + repeated("X5Y7 ", kHundredMegabytes);
    EXPECT_THAT(verticesOf(text), ElementsAre(Point3d(5, 7, 0)));
}

TEST_F(HostilePrograms, ALineOfAHundredMegabytesOfDigits) {
    std::string text = "G1 X1." + std::string(kHundredMegabytes, '5');
    EXPECT_THAT(verticesOf(text), ElementsAre(Point3d(1.55555558F, 0, 0)));
    text += ".";
    EXPECT_THAT(verticesOf(text), ElementsAre(Point3d(0, 0, 0)));
}

TEST_F(HostilePrograms, ALineOfAHundredMegabytesOfLettersWithoutNumbers) {
    EXPECT_THAT(verticesOf(std::string(kHundredMegabytes, 'G')), ElementsAre(Point3d(0, 0, 0)));
}

TEST_F(HostilePrograms, AHundredMegabytesOfZeroBytesWithoutALineEnd) {
    EXPECT_THAT(verticesOf(std::string(kHundredMegabytes, '\0')), testing::IsEmpty());
}

TEST_F(HostilePrograms, AHundredMegabytesOfLineEnds) {
    EXPECT_THAT(verticesOf(repeated("\r\n", kHundredMegabytes)), testing::IsEmpty());
}

TEST_F(HostilePrograms, AHundredMegabytesOfArcsStopAtTheGreatestNumberOfPoints) {
    const PreviewPath path = interpretProgram(repeated("G2X1I1\n", kHundredMegabytes), 1'000'000);
    EXPECT_EQ(path.vertices.size(), 1'000'000);
    ASSERT_TRUE(path.stop);
    EXPECT_EQ(path.stop->lineNumber, 1'000'000U / 30 + 1);
}

TEST_F(HostilePrograms, AMillionBytesOfOneLineAreReadAsTheLiteralVersionReadsThem) {
    const std::string text = "G2 X.5.5 " + repeated("(X-) I3 J-0 G", 1'000'000) + "R5";
    EXPECT_TRUE(
        samePath(interpretProgram(text), text, literalPath(QString::fromStdString(text), 1000)));
}

TEST_F(HostilePrograms, EveryByteValueBetweenWords) {
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const std::string text =
            std::string("G1") + c + "X1" + c + "Y2" + c + c + "Z" + c + "3\nX4" + c;
        const QString latin1 = QString::fromLatin1(text.data(), static_cast<int>(text.size()));
        const QByteArray utf8 = latin1.toUtf8();
        const std::string_view bytes(utf8.constData(), static_cast<std::size_t>(utf8.size()));
        EXPECT_TRUE(samePath(interpretProgram(bytes), bytes, literalPath(latin1, 1000))) << byte;
        // A byte that is not UTF-8 by itself is no word either.
        EXPECT_EQ(verticesOf(text), verticesOf(bytes)) << byte;
    }
}
