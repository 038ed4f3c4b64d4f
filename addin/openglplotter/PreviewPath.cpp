// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/PreviewPath.h"

namespace {

bool isLineEnd(char byte) {
    return byte == '\r' || byte == '\n';
}

/// The first place from `at` on where a line ends, or where none ends, or the end of the text.
std::size_t findLineEnd(std::string_view text, std::size_t at, bool wanted) {
    while (at < text.size() && isLineEnd(text[at]) != wanted) {
        ++at;
    }
    return at;
}

/// Counts the ends of lines; two different bytes next to each other are one.
std::size_t countLineEnds(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isLineEnd(text[i])) {
            continue;
        }
        ++count;
        if (i + 1 < text.size() && isLineEnd(text[i + 1]) && text[i + 1] != text[i]) {
            ++i;
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

}  // namespace

PreviewPath interpretProgram(std::string_view text, std::size_t maxVertices) {
    GCodeParserN parser(maxVertices);
    PreviewPath path;
    // Without blank lines any run of line end bytes separates two lines.
    for (std::size_t begin = findLineEnd(text, 0, false); begin < text.size();) {
        const std::size_t end = findLineEnd(text, begin, true);
        parser.parse(text.substr(begin, end - begin));
        parser.executeGCodes();
        if (parser.isCutShort()) {
            const std::size_t line = countLineEnds(text.substr(0, begin)) + 1;
            path.stop = PathStop{static_cast<std::size_t>(parser.GetVector().size()), line, begin};
            break;
        }
        begin = findLineEnd(text, end, false);
    }
    path.vertices = parser.GetVector();
    path.colors = parser.GetColorVector();
    path.extents = extentsOf(parser);
    return path;
}
