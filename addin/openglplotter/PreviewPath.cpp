// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/PreviewPath.h"

namespace {

template <typename Unit>
bool isLineEnd(Unit unit) {
    return unit == '\r' || unit == '\n';
}

/// The first place from `at` on where no line ends, or the end of the text.
template <typename Unit>
const Unit* skipLineEnds(const Unit* at, const Unit* end) {
    while (at != end && isLineEnd(*at)) {
        ++at;
    }
    return at;
}

/// Counts the ends of lines; two different bytes next to each other are one.
template <typename Unit>
std::size_t countLineEnds(const Unit* at, const Unit* end) {
    std::size_t count = 0;
    for (; at != end; ++at) {
        if (!isLineEnd(*at)) {
            continue;
        }
        ++count;
        if (at + 1 != end && isLineEnd(at[1]) && at[1] != *at) {
            ++at;
        }
    }
    return count;
}

PathExtents extentsOf(const GCodeParserN& parser) {
    PathExtents box;
    parser.GetMinMaxValues(&box.minX, &box.minY, &box.minZ, &box.maxX, &box.maxY, &box.maxZ,
                           &box.min, &box.max);
    return box;
}

template <typename Unit>
PreviewPath interpretUnits(const Unit* text, const Unit* end, std::size_t maxVertices) {
    GCodeParserN parser(maxVertices);
    const Unit* stoppedIn = nullptr;
    // Without blank lines any run of line end bytes separates two lines.
    for (const Unit* line = skipLineEnds(text, end); line != end;) {
        const Unit* const lineEnd = parser.parseNext(line, end);
        parser.executeGCodes();
        if (parser.isCutShort()) {
            stoppedIn = line;
            break;
        }
        line = skipLineEnds(lineEnd, end);
    }
    PreviewPath path{parser.takeVertices(), parser.takeColors(), extentsOf(parser), std::nullopt};
    if (stoppedIn != nullptr) {
        path.stop = PathStop{static_cast<std::size_t>(path.vertices.size()),
                             countLineEnds(text, stoppedIn) + 1,
                             static_cast<std::size_t>(stoppedIn - text)};
    }
    return path;
}

}  // namespace

PreviewPath interpretProgram(std::string_view text, std::size_t maxVertices) {
    return interpretUnits(text.data(), text.data() + text.size(), maxVertices);
}

PreviewPath interpretProgram(QStringView text, std::size_t maxVertices) {
    return interpretUnits(text.utf16(), text.utf16() + text.size(), maxVertices);
}
