// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/PreviewPath.h"

#include <algorithm>

namespace {

bool isLineEnd(char byte) {
    return byte == '\r' || byte == '\n';
}

/// The first place from `at` on where no line ends, or the end of the text.
std::size_t skipLineEnds(std::string_view text, std::size_t at) {
    while (at < text.size() && isLineEnd(text[at])) {
        ++at;
    }
    return at;
}

/// The ends of a text's lines, from first to last.
class LineEnds {
public:
    explicit LineEnds(std::string_view text) : m_text(text) {}

    /// The first place from `at` on where a line ends, or the end of the text.
    std::size_t next(std::size_t at) {
        // Each byte is looked for once: the library's search is faster than any loop over lines.
        if (m_lineFeed < at || !m_hasLooked) {
            m_lineFeed = std::min(m_text.find('\n', at), m_text.size());
        }
        if (m_return < at || !m_hasLooked) {
            m_return = std::min(m_text.find('\r', at), m_text.size());
        }
        m_hasLooked = true;
        return std::min(m_lineFeed, m_return);
    }

private:
    std::string_view m_text;
    std::size_t m_lineFeed = 0;
    std::size_t m_return = 0;
    bool m_hasLooked = false;
};

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
    LineEnds ends(text);
    for (std::size_t begin = skipLineEnds(text, 0); begin < text.size();) {
        const std::size_t end = ends.next(begin);
        parser.parse(text.substr(begin, end - begin));
        parser.executeGCodes();
        if (parser.isCutShort()) {
            const std::size_t line = countLineEnds(text.substr(0, begin)) + 1;
            path.stop = PathStop{static_cast<std::size_t>(parser.GetVector().size()), line, begin};
            break;
        }
        begin = skipLineEnds(text, end);
    }
    path.vertices = parser.GetVector();
    path.colors = parser.GetColorVector();
    path.extents = extentsOf(parser);
    return path;
}
