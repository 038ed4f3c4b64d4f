// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralGCodeParser.h"

#include <QRegExp>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

int truncated(double value) {
    value = std::trunc(value);
    value = std::min(value, static_cast<double>(std::numeric_limits<int>::max()));
    value = std::max(value, static_cast<double>(std::numeric_limits<int>::min()));
    return static_cast<int>(value);
}

const std::vector<std::string>& codes() {
    static const std::vector<std::string> letters{"D", "F", "G", "H", "I", "J", "K", "L", "M",
                                                  "P", "Q", "R", "S", "T", "X", "Y", "Z"};
    return letters;
}

/// Made once for each word: making it takes longer than all else.
const QRegExp& wordPattern(const std::string& code) {
    static std::map<std::string, QRegExp> patterns;
    const auto [place, isNew] = patterns.try_emplace(code);
    if (isNew) {
        place->second = QRegExp(QString::fromStdString(code) + "([0-9.+-]+)", Qt::CaseSensitive,
                                QRegExp::RegExp);
    }
    return place->second;
}

}  // namespace

bool LiteralGCodeParser::findCode(const std::string& code) const {
    return m_command.find(code, 0) != std::string::npos;
}

float LiteralGCodeParser::parseCode(const std::string& code) {
    const QRegExp& pattern = wordPattern(code);
    const int found = pattern.indexIn(m_text);
    if (!findCode(code)) {
        return 0;
    }
    m_seenCodes[code] = true;
    return found >= 0 ? pattern.cap(1).toFloat() : 0;
}

float LiteralGCodeParser::getCodeValue(const std::string& code) {
    const float value = m_codeValues[code];
    return value == 0.0F ? 0.0F : value;
}

void LiteralGCodeParser::cleanup() {
    if (hasCode("G")) {
        m_lastGCode = truncated(static_cast<double>(getCodeValue("G")));
    }
    m_codeValues.clear();
    m_seenCodes.clear();
}

void LiteralGCodeParser::parse(const std::string& cmd) {
    cleanup();
    m_command = cmd;
    m_text = QString::fromStdString(cmd);
    for (const std::string& letter : codes()) {
        m_codeValues[letter] = parseCode(letter);
    }
    if (!hasCode("G") && (hasCode("X") || hasCode("Y") || hasCode("Z"))) {
        m_seenCodes["G"] = true;
        m_codeValues["G"] = static_cast<float>(m_lastGCode);
    }
}

void LiteralGCodeParser::executeGCodes() {
    const float i = getCodeValue("I");
    const float j = getCodeValue("J");
    const float x = getCodeValue("X");
    const float y = getCodeValue("Y");
    const float z = getCodeValue("Z");
    Point3d temp = m_current;
    if (hasCode("X")) {
        temp.x = m_absoluteMode ? x : m_current.x + x;
    }
    if (hasCode("Y")) {
        temp.y = m_absoluteMode ? y : m_current.y + y;
    }
    if (hasCode("Z")) {
        temp.z = m_absoluteMode ? z : m_current.z + z;
    }
    if (!hasCode("G")) {
        return;
    }
    const int g = truncated(static_cast<double>(getCodeValue("G")));
    if (g == 0 || g == 1) {
        setTarget(temp);
    } else if (g == 2 || g == 3) {
        if (hasCode("I") || hasCode("J")) {
            drawArc(m_current, Point3d(m_current.x + i, m_current.y + j, 0), temp);
        }
    } else if (g == 80) {
        m_drillTarget = Point3d(0, 0, 0);
        m_drillRetract = 0;
        m_drillPecksize = 0;
    } else if (g == 81 || g == 82 || g == 83 || g == 183) {
        readDrillWords(g, temp);
        drillingCycle(g == 183);
    } else if (g == 90) {
        m_absoluteMode = true;
    } else if (g == 91) {
        m_absoluteMode = false;
    }
}

void LiteralGCodeParser::setTarget(Point3d p) {
    if (m_vertices.size() == m_maxVertices) {
        m_cutShort = true;
    }
    if (m_cutShort) {
        return;
    }
    Color color(0.0F, 0.0F, 255.0F, 0.0F);
    if (hasCode("G")) {
        if (getCodeValue("G") == 0.0F) {
            color = Color(0.7F, 0.0F, 0.0F, 0.0F);
        } else {
            color = Color(0.0F, 1.0F, 0.0F, 0.0F);
        }
    }
    m_colors.push_back(color);
    m_vertices.push_back(p);
    m_current = p;
    m_least.x = p.x < m_least.x ? p.x : m_least.x;
    m_least.y = p.y < m_least.y ? p.y : m_least.y;
    m_least.z = p.z < m_least.z ? p.z : m_least.z;
    m_greatest.x = p.x > m_greatest.x ? p.x : m_greatest.x;
    m_greatest.y = p.y > m_greatest.y ? p.y : m_greatest.y;
    m_greatest.z = p.z > m_greatest.z ? p.z : m_greatest.z;
}

void LiteralGCodeParser::drawArc(Point3d start, Point3d center, Point3d end) {
    const double pi = 3.1415927410125732;
    const float startDy = center.y - start.y;
    const float startDx = center.x - start.x;
    const float endDy = center.y - end.y;
    const float endDx = center.x - end.x;
    float startAngle = static_cast<float>(
        std::atan2(static_cast<double>(startDy), static_cast<double>(startDx)) * 180 / pi);
    float endAngle = static_cast<float>(
        std::atan2(static_cast<double>(endDy), static_cast<double>(endDx)) * 180 / pi);
    const double dx = static_cast<double>(start.x - center.x);
    const double dy = static_cast<double>(start.y - center.y);
    const float r = static_cast<float>(std::sqrt(dx * dx + dy * dy));
    if (end.x == start.x && end.y == start.y && end.z == start.z) {
        drawCircle(center, r);
        return;
    }
    for (float* angle : {&startAngle, &endAngle}) {
        if (*angle < 0.0F) {
            *angle = 180.0F - std::fabs(std::trunc(*angle));
        } else {
            *angle += 180.0F;
        }
    }
    if (startAngle > endAngle) {
        startAngle = startAngle - 360.0F;
    }
    const float deltaAngle = (endAngle - startAngle) / 30.0F;
    float a = startAngle;
    for (int ii = 0; ii < 30; ++ii) {
        const float radians = 3.1415927F * a / 180.0F;
        const double s = std::sin(static_cast<double>(radians));
        const double c = std::cos(static_cast<double>(radians));
        const float x = static_cast<float>(c * static_cast<double>(r));
        const float y = static_cast<float>(s * static_cast<double>(r));
        a = a + deltaAngle;
        setTarget(Point3d(x + center.x, y + center.y, end.z));
    }
}

void LiteralGCodeParser::drawCircle(Point3d center, float r) {
    for (int ii = 0; ii <= 30; ++ii) {
        const float theta = static_cast<float>(ii) * 6.283185F / 30.0F;
        setTarget(Point3d(std::cos(theta) * r + center.x, std::sin(theta) * r + center.y, 0));
    }
}

void LiteralGCodeParser::readDrillWords(int g, Point3d temp) {
    m_drillTarget.x = temp.x;
    m_drillTarget.y = temp.y;
    if (hasCode("Z")) {
        m_drillTarget.z = temp.z;
    }
    if (hasCode("R")) {
        m_drillRetract = getCodeValue("R");
    }
    if (g == 81 || g == 82) {
        m_drillPecksize = 0;
    } else if (hasCode("Q")) {
        const double q = truncated(static_cast<double>(getCodeValue("Q")));
        m_drillPecksize = static_cast<float>(std::fabs(q));
    }
}

void LiteralGCodeParser::drillingCycle(bool speedPeck) {
    const double depth = m_drillTarget.z;
    const bool pecks = m_drillPecksize > 0;
    if (m_drillRetract > m_current.z) {
        setTarget(Point3d(m_current.x, m_current.y, m_drillRetract));
    }
    setTarget(Point3d(m_drillTarget.x, m_drillTarget.y, m_current.z));
    double targetZ = m_drillRetract;
    while (!m_cutShort) {
        if (targetZ != static_cast<double>(m_drillRetract) && !speedPeck) {
            setTarget(Point3d(m_drillTarget.x, m_drillTarget.y, static_cast<float>(targetZ)));
        }
        const double deeper = targetZ - static_cast<double>(m_drillPecksize);
        if (pecks && deeper == targetZ && targetZ > depth) {
            break;
        }
        targetZ = pecks ? std::max(depth, deeper) : depth;
        setTarget(Point3d(m_drillTarget.x, m_drillTarget.y, static_cast<float>(targetZ)));
        if (!speedPeck) {
            setTarget(Point3d(m_drillTarget.x, m_drillTarget.y, m_drillRetract));
        }
        if (!(targetZ > depth)) {
            break;
        }
    }
    if (m_drillRetract > m_current.z) {
        setTarget(Point3d(m_drillTarget.x, m_drillTarget.y, m_drillRetract));
    }
}

std::array<float, 8> LiteralGCodeParser::extents() const {
    const std::array<float, 3> least{m_least.x, m_least.y, m_least.z};
    const std::array<float, 3> greatest{m_greatest.x, m_greatest.y, m_greatest.z};
    return {least[0],
            least[1],
            least[2],
            greatest[0],
            greatest[1],
            greatest[2],
            *std::min_element(least.begin(), least.end()),
            *std::max_element(greatest.begin(), greatest.end())};
}

QStringList literalLines(const QString& text) {
    return text.split(QRegExp("(\r\n)|(\n\r)|\r|\n"), Qt::SkipEmptyParts);
}

LiteralPath literalPath(const QString& text, std::size_t maxVertices) {
    LiteralGCodeParser parser(maxVertices);
    LiteralPath path;
    for (const QString& line : literalLines(text)) {
        parser.parse(line.toUtf8().toStdString());
        parser.executeGCodes();
        if (parser.isCutShort()) {
            path.stoppedIn = line.toUtf8().toStdString();
            break;
        }
    }
    path.vertices = parser.vertices();
    path.colors = parser.colors();
    path.extents = parser.extents();
    return path;
}
