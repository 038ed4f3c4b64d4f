// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "openglplotter/Color.h"
#include "openglplotter/PathList.h"
#include "openglplotter/Point3d.h"
#include "openglplotter/WordScan.h"

class QRegExp;

/// Reads G-code line by line and gathers the tool's path as one line strip, with a colour per
/// vertex, and the path's extents. For each line in order: `parse`, then `executeGCodes`.
class GCodeParserN {
public:
    static constexpr std::size_t kMaxVertices = 50'000'000;

    /// The path keeps at most `maxVertices` vertices; see `isCutShort`.
    explicit GCodeParserN(std::size_t maxVertices = kMaxVertices);
    ~GCodeParserN();
    GCodeParserN(const GCodeParserN&) = delete;
    GCodeParserN& operator=(const GCodeParserN&) = delete;

    /// Reads one line into the word table; accepts every content, and is always true. Comments are
    /// not removed: their capital letters are words. A line without G but with X, Y or Z repeats
    /// the last G number of any kind.
    bool parse(std::string_view cmd);
    /// `parse` for the line that starts at `at`, in UTF-8 or UTF-16; gives the place where it ends.
    /// Keeps no text, so that none of the line is found by `findCode` and `parseCode`.
    const char* parseNext(const char* at, const char* end);
    const char16_t* parseNext(const char16_t* at, const char16_t* end);
    /// Ends the line: keeps its G number for the lines to come and empties the word table.
    void cleanup();
    /// Whether the line contains `code`.
    bool findCode(std::string_view code) const;
    /// The number right behind `code`, a plain text, where the line first has one, else 0. Marks
    /// the code as present when the line contains it.
    float parseCode(std::string_view code);
    bool hasCode(std::string_view code) const;
    /// The value of a word of the line, 0 when it has none; never negative zero.
    float getCodeValue(std::string_view code) const;
    /// `value` times 25.4 when `unitMode` is `UNITS_INCHES`, else unchanged.
    float convertToMM(float value, int unitMode) const;
    /// Takes the line's comment: of a semicolon, else of parentheses, else the whole line, trimmed
    /// and with "|" as line feed. A comment that starts the line does not count as one.
    void parseComments();
    /// Changes nothing: the stripped copy of the line is dropped.
    void stripComments();
    void setScreenSize(float width, float height);

    /// Executes the line that was read last.
    void executeGCodes();
    /// Appends one vertex in the colour of the line's G word, and widens the extents.
    void setTarget(Point3d p);
    /// 30 vertices at increasing angles for either direction, or a full circle when the end is the
    /// start. The path stops one segment short of the end.
    void drawArc(Point3d startPoint, Point3d center, Point3d endpoint, bool clockwise);
    /// Angles in degrees; the end angle is never emitted.
    void DrawArc(float cx, float cy, float zDepth, float r, float start_angle, float end_angle,
                 int num_segments);
    /// `num_segments` + 1 vertices at Z 0, from the +X side round to it again.
    void DrawCircle(float cx, float cy, float r, int num_segments);
    /// One canned cycle at the stored hole; `speedPeck` stays down between the pecks.
    void drillingCycle(bool speedPeck);

    /// The distance in the XY plane.
    double GetDistance(const Point3d& a, const Point3d& b) const;
    void CalculateMinMax(Point3d p);
    void ClearMinMaxValue();
    /// The extents of the path and of the origin, and the least and greatest of them.
    void GetMinMaxValues(float* minX, float* minY, float* minZ, float* maxX, float* maxY,
                         float* maxZ, float* min, float* max) const;
    /// A copy of the vertices, in order.
    QVector<Point3d> GetVector() const { return m_pointVector.toVector(); }
    /// One colour per vertex, in the same order.
    QVector<Color> GetColorVector() const { return m_ColorVector.toVector(); }
    /// The same lists themselves; the parser is left without any.
    PathList<Point3d> takeVertices() { return std::move(m_pointVector); }
    PathList<Color> takeColors() { return std::move(m_ColorVector); }

    /// Whether a vertex beyond the greatest number was dropped. From then on lines draw nothing.
    bool isCutShort() const { return m_cutShort; }

private:
    friend struct ParserFields;

    bool hasWord(std::size_t index) const { return (seenCodes & wordBit(index)) != 0; }
    template <typename Unit>
    const Unit* readNext(const Unit* at, const Unit* end);
    void keepModalCode();
    void repeatModalCode();
    /// Never negative zero.
    float wordValue(std::size_t index) const {
        const float value = codeValues[index];
        return value == 0 ? 0 : value;
    }
    float lengthValue(std::size_t index) const;
    Point3d targetOfLine() const;
    void executeMotion(int gNumber, const Point3d& temp);
    void executeArc(bool clockwise, const Point3d& temp);
    void executeDrillCycle(int gNumber, const Point3d& temp);
    void readDrillWords(int gNumber);
    void cancelDrillCycle();
    void drillPecks(bool speedPeck);

    std::string command;
    WordValues codeValues{};
    WordSet seenCodes = 0;
    std::vector<std::string> m_otherSeenCodes;  // those that `parseCode` was asked for by name
    static const std::vector<std::string> codes;
    float curveSectionInches = 0;  // neither this nor the next: arcs have a fixed segment count
    float curveSectionMM = 0;
    Point3d current;
    Point3d target;  // neither this nor the next: the target is worked out anew for each line
    Point3d delta;
    bool absoluteMode = true;
    float feedrate = 0;
    int lastGCode = -1;  // no motion: coordinates before the first G word draw nothing
    Point3d drillTarget;
    float drillRetract = 0;
    float drillFeedrate = 0;
    int drillDwell = 0;
    float drillPecksize = 0;
    std::string comment;
    std::unique_ptr<QRegExp> parenPattern;
    std::unique_ptr<QRegExp> semiPattern;
    std::unique_ptr<QRegExp> deleteBlockPattern;  // never used
    int UNITS_MM = 0;
    int UNITS_INCHES = 1;
    int units = UNITS_MM;  // whatever the file says: coordinates are taken as they stand
    PathList<Point3d> m_pointVector;
    PathList<Color> m_ColorVector;
    float m_width = 0;
    float m_height = 0;
    float m_minX = 0;
    float m_minY = 0;
    float m_minZ = 0;
    float m_maxX = 0;
    float m_maxY = 0;
    float m_maxZ = 0;
    std::size_t m_maxVertices;
    bool m_cutShort = false;
};
