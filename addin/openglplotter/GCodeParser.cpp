// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/GCodeParser.h"

#include <QRegExp>
#include <QString>
#include <algorithm>

#include "openglplotter/WordNumber.h"

namespace {

constexpr const char* vinit[] = {"D", "F", "G", "H", "I", "J", "K", "L", "M",
                                 "P", "Q", "R", "S", "T", "X", "Y", "Z"};

constexpr std::size_t kG = wordIndex('G');
constexpr WordSet kCoordinates =
    wordBit(wordIndex('X')) | wordBit(wordIndex('Y')) | wordBit(wordIndex('Z'));

std::size_t indexOf(std::string_view code) {
    return code.size() == 1 ? wordIndex(code.front()) : kWordCount;
}

std::unique_ptr<QRegExp> pattern(const char* text) {
    return std::make_unique<QRegExp>(QLatin1String(text), Qt::CaseSensitive, QRegExp::RegExp);
}

}  // namespace

const std::vector<std::string> GCodeParserN::codes(std::begin(vinit), std::end(vinit));

GCodeParserN::GCodeParserN(std::size_t maxVertices)
    : parenPattern(pattern("\\((.*)\\)")),
      semiPattern(pattern(";(.*)")),
      deleteBlockPattern(pattern("^(\\.*)")),
      m_maxVertices(maxVertices) {}

GCodeParserN::~GCodeParserN() = default;

bool GCodeParserN::parse(std::string_view cmd) {
    cleanup();
    command.assign(cmd);
    seenCodes = scanWords(command, &codeValues);
    repeatModalCode();
    return true;
}

template <typename Unit>
const Unit* GCodeParserN::readNext(const Unit* at, const Unit* end) {
    keepModalCode();
    command.clear();
    const Unit* const behind = scanLine(at, end, &codeValues, &seenCodes);
    repeatModalCode();
    return behind;
}

const char* GCodeParserN::parseNext(const char* at, const char* end) {
    return readNext(at, end);
}

const char16_t* GCodeParserN::parseNext(const char16_t* at, const char16_t* end) {
    return readNext(at, end);
}

void GCodeParserN::repeatModalCode() {
    if (!hasWord(kG) && (seenCodes & kCoordinates) != 0) {
        seenCodes |= wordBit(kG);
        codeValues[kG] = static_cast<float>(lastGCode);
    }
}

void GCodeParserN::cleanup() {
    keepModalCode();
    codeValues.fill(0);
    seenCodes = 0;
}

void GCodeParserN::keepModalCode() {
    // Any G number becomes the modal one, also that of a mode or a dwell.
    if (hasWord(kG)) {
        lastGCode = truncateToInt(wordValue(kG));
    }
    m_otherSeenCodes.clear();
    comment.clear();
}

bool GCodeParserN::findCode(std::string_view code) const {
    return command.find(code) != std::string::npos;
}

float GCodeParserN::parseCode(std::string_view code) {
    if (!findCode(code)) {
        return 0;
    }
    const std::size_t index = indexOf(code);
    if (index < kWordCount) {
        seenCodes |= wordBit(index);
    } else {
        m_otherSeenCodes.emplace_back(code);
    }
    return numberBehind(command, code);
}

bool GCodeParserN::hasCode(std::string_view code) const {
    const std::size_t index = indexOf(code);
    return index < kWordCount ? hasWord(index)
                              : std::find(m_otherSeenCodes.begin(), m_otherSeenCodes.end(), code) !=
                                    m_otherSeenCodes.end();
}

float GCodeParserN::getCodeValue(std::string_view code) const {
    const std::size_t index = indexOf(code);
    return index < kWordCount ? wordValue(index) : 0;
}

float GCodeParserN::convertToMM(float value, int unitMode) const {
    constexpr double kMmPerInch = 25.4;
    return unitMode == UNITS_INCHES ? static_cast<float>(static_cast<double>(value) * kMmPerInch)
                                    : value;
}

void GCodeParserN::parseComments() {
    const QString line = QString::fromStdString(command);
    QString text = line;
    for (const QRegExp* searched : {parenPattern.get(), semiPattern.get()}) {
        if (searched->indexIn(line) > 0) {
            text = searched->cap(1);
        }
    }
    comment = text.trimmed().replace('|', '\n').toStdString();
}

void GCodeParserN::stripComments() {}

void GCodeParserN::setScreenSize(float width, float height) {
    m_width = width;
    m_height = height;
}
