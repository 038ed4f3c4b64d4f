// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "SamePrograms.h"

#include <QByteArray>
#include <QRegExp>
#include <QString>
#include <ctime>
#include <utility>

#include "FuzzCheck.h"
#include "LiteralGCodeParser.h"
#include "SamePath.h"
#include "openglplotter/PreviewPath.h"
#include "openglplotter/WordScan.h"

namespace {

std::string_view view(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// Far above what any program takes that a fuzzer makes up, sanitizers included.
constexpr double kMostSeconds = 5;

template <typename Program>
PreviewPath interpretInTime(const Program& program, std::size_t maxVertices) {
    const std::clock_t begin = std::clock();
    PreviewPath path = interpretProgram(program, maxVertices);
    FUZZ_CHECK(static_cast<double>(std::clock() - begin) < kMostSeconds * CLOCKS_PER_SEC);
    // A list grows by a quarter, or by 256.
    const std::size_t mostRoom = maxVertices + maxVertices / 4 + 256;
    FUZZ_CHECK(static_cast<std::size_t>(path.vertices.size()) <= maxVertices);
    FUZZ_CHECK(static_cast<std::size_t>(path.vertices.capacity()) <= mostRoom);
    FUZZ_CHECK(static_cast<std::size_t>(path.colors.capacity()) <= mostRoom);
    return path;
}

bool holds(const testing::AssertionResult& result) {
    if (!result) {
        std::fprintf(stderr, "%s\n", result.message());
    }
    return result;
}

void checkWords(const GCodeParserN& parser, LiteralGCodeParser* judge) {
    for (const char letter : kWordLetters) {
        const std::string code(1, letter);
        FUZZ_CHECK(parser.hasCode(code) == judge->hasCode(code));
        FUZZ_CHECK(parser.getCodeValue(code) == judge->getCodeValue(code));
    }
}

/// What the literal interpreter makes of the text, checked against the interface of single lines.
LiteralPath checkedLines(const QString& text, std::size_t maxVertices) {
    LiteralGCodeParser judge(maxVertices);
    GCodeParserN parser(maxVertices);
    LiteralPath result;
    for (const QString& line : literalLines(text)) {
        const std::string bytes = line.toUtf8().toStdString();
        judge.parse(bytes);
        parser.parse(bytes);
        checkWords(parser, &judge);
        judge.executeGCodes();
        parser.executeGCodes();
        FUZZ_CHECK(parser.isCutShort() == judge.isCutShort());
        if (judge.isCutShort()) {
            result.stoppedIn = bytes;
            break;
        }
    }
    result.vertices = judge.vertices();
    result.colors = judge.colors();
    result.extents = judge.extents();
    return result;
}

/// The number of the line in which a path was cut short, blank ones counted.
void checkLineNumber(const PreviewPath& path, const QString& text) {
    if (path.stop) {
        const QString before = text.left(static_cast<int>(path.stop->offset));
        const int lines = before.split(QRegExp("(\r\n)|(\n\r)|\r|\n")).size();
        FUZZ_CHECK(path.stop->lineNumber == static_cast<std::size_t>(lines));
    }
}

void checkText(const QString& text, std::size_t maxVertices) {
    const LiteralPath judge = checkedLines(text, maxVertices);
    const QByteArray utf8 = text.toUtf8();
    FUZZ_CHECK(holds(samePath(interpretInTime(view(utf8), maxVertices), view(utf8), judge)));
    PreviewPath path = interpretInTime(QStringView(text), maxVertices);
    checkLineNumber(path, text);
    FUZZ_CHECK(holds(samePathInUtf16(std::move(path), text, judge)));
}

/// Bytes that are no text hold no words, so that the path is that of the text made of the others.
void checkBytes(std::string_view program, const QByteArray& utf8, std::size_t maxVertices) {
    const PreviewPath path = interpretInTime(program, maxVertices);
    const PreviewPath judge = interpretInTime(view(utf8), maxVertices);
    FUZZ_CHECK(path.stop.has_value() == judge.stop.has_value());
    if (path.stop) {
        FUZZ_CHECK(path.stop->points == judge.stop->points);
        FUZZ_CHECK(path.stop->lineNumber == judge.stop->lineNumber);
    }
    LiteralPath plain;
    plain.vertices.assign(judge.vertices.begin(), judge.vertices.end());
    plain.colors.assign(judge.colors.begin(), judge.colors.end());
    const PathExtents& box = judge.extents;
    plain.extents = {box.minX, box.minY, box.minZ, box.maxX, box.maxY, box.maxZ, box.min, box.max};
    if (judge.stop) {
        plain.stoppedIn = std::string();
    }
    FUZZ_CHECK(holds(samePath(path, program, plain)));
}

/// The bytes two by two, surrogates without a partner included.
QString pairsOf(std::string_view program) {
    QString text;
    for (std::size_t i = 0; i + 1 < program.size(); i += 2) {
        const auto low = static_cast<unsigned char>(program[i]);
        const auto high = static_cast<unsigned char>(program[i + 1]);
        text += QChar(low, high);
    }
    return text;
}

}  // namespace

void checkProgram(std::string_view program, std::size_t maxVertices) {
    const QString text = QString::fromUtf8(program.data(), static_cast<int>(program.size()));
    checkText(text, maxVertices);
    const QByteArray utf8 = text.toUtf8();
    if (view(utf8) == program) {
        return;
    }
    checkBytes(program, utf8, maxVertices);
    checkText(pairsOf(program), maxVertices);
}
