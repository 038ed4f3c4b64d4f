// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "openglplotter/Color.h"
#include "openglplotter/Point3d.h"

/// The interpreter in its plainest form, with a regular expression per word and ordered maps: the
/// judge of the fast one.
class LiteralGCodeParser {
public:
    explicit LiteralGCodeParser(std::size_t maxVertices) : m_maxVertices(maxVertices) {}

    void parse(const std::string& cmd);
    void executeGCodes();
    bool hasCode(const std::string& code) { return m_seenCodes[code]; }
    float getCodeValue(const std::string& code);

    const std::vector<Point3d>& vertices() const { return m_vertices; }
    const std::vector<Color>& colors() const { return m_colors; }
    /// Least x, y, z, greatest x, y, z, then the least and the greatest of all.
    std::array<float, 8> extents() const;
    bool isCutShort() const { return m_cutShort; }

private:
    bool findCode(const std::string& code) const;
    float parseCode(const std::string& code);
    void cleanup();
    void setTarget(Point3d p);
    void drawArc(Point3d start, Point3d center, Point3d end);
    void drawCircle(Point3d center, float r);
    void readDrillWords(int g, Point3d temp);
    void drillingCycle(bool speedPeck);

    std::size_t m_maxVertices;
    bool m_cutShort = false;
    std::string m_command;
    QString m_text;  // the same
    std::map<std::string, float> m_codeValues;
    std::map<std::string, bool> m_seenCodes;
    int m_lastGCode = -1;
    bool m_absoluteMode = true;
    Point3d m_current;
    Point3d m_drillTarget;
    float m_drillRetract = 0;
    float m_drillPecksize = 0;
    std::vector<Point3d> m_vertices;
    std::vector<Color> m_colors;
    Point3d m_least;
    Point3d m_greatest;
};

/// What the judge makes of a whole program.
struct LiteralPath {
    std::vector<Point3d> vertices;
    std::vector<Color> colors;
    std::array<float, 8> extents{};
    std::optional<std::string> stoppedIn;  // the line in which the vertices reached their limit
};

/// Each line goes on as UTF-8, as it does when a text comes from a file or from the panel.
LiteralPath literalPath(const QString& text, std::size_t maxVertices);

/// The lines of `text` as QRegExp splits it, without blank ones.
QStringList literalLines(const QString& text);
