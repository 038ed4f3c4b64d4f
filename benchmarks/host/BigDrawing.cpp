// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "BigDrawing.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <random>

namespace {

constexpr double kCell = 120;
constexpr double kCorner = 6;

/// Writes entities as CAD programs do, until there are enough.
class Writer {
public:
    explicit Writer(int entities) : m_left(entities) {
        m_text =
            "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n4\n0\nENDSEC\n"
            "0\nSECTION\n2\nENTITIES\n";
    }

    bool isFull() const { return m_left == 0; }

    void line(double x1, double y1, double x2, double y2) {
        if (begin("LINE", "AcDbLine")) {
            group(10, x1);
            group(20, y1);
            group(30, 0);
            group(11, x2);
            group(21, y2);
            group(31, 0);
        }
    }

    void circle(double x, double y, double radius) {
        if (begin("CIRCLE", "AcDbCircle")) {
            round(x, y, radius);
        }
    }

    /// From one angle in degrees to another, counter-clockwise.
    void arc(const std::array<double, 3>& circle, double start, double end) {
        if (begin("ARC", "AcDbCircle")) {
            round(circle[0], circle[1], circle[2]);
            m_text += "100\nAcDbArc\n";
            group(50, start);
            group(51, end);
        }
    }

    std::string take() { return m_text + "0\nENDSEC\n0\nEOF\n"; }

private:
    bool begin(const char* type, const char* subclass) {
        if (m_left == 0) {
            return false;
        }
        --m_left;
        m_text += std::string("0\n") + type + "\n5\n" + std::to_string(100000 + m_left) +
                  "\n100\nAcDbEntity\n8\nPARTS\n100\n" + subclass + "\n";
        return true;
    }

    void round(double x, double y, double radius) {
        group(10, x);
        group(20, y);
        group(30, 0);
        group(40, radius);
    }

    void group(int code, double value) {
        std::array<char, 48> text{};
        std::snprintf(text.data(), text.size(), "%3d\n%.9f\n", code, value);
        m_text += text.data();
    }

    int m_left;
    std::string m_text;
};

/// One plate, its lower left corner given.
void plate(Writer* writer, std::mt19937* random, double x, double y) {
    const auto between = [random](double low, double high) {
        return low + (high - low) * static_cast<double>((*random)()) / 4294967296.0;
    };
    const double w = between(70, 110);
    const double h = between(70, 110);
    const double c = kCorner;
    writer->line(x + c, y, x + w - c, y);
    writer->arc({x + w - c, y + c, c}, 270, 360);
    writer->line(x + w, y + c, x + w, y + h - c);
    writer->arc({x + w - c, y + h - c, c}, 0, 90);
    writer->line(x + w - c, y + h, x + c, y + h);
    writer->arc({x + c, y + h - c, c}, 90, 180);
    writer->line(x, y + h - c, x, y + c);
    writer->arc({x + c, y + c, c}, 180, 270);
    const double length = between(10, 30);
    const double middle = y + h / 2;
    writer->line(x + 20, middle - 4, x + 20 + length, middle - 4);
    writer->arc({x + 20 + length, middle, 4}, 270, 90);
    writer->line(x + 20 + length, middle + 4, x + 20, middle + 4);
    writer->arc({x + 20, middle, 4}, 90, 270);
    for (int hole = 0; hole < 8; ++hole) {
        writer->circle(x + between(10, w - 10), y + between(10, h - 10), between(1, 4));
    }
}

}  // namespace

std::string bigDrawing(int entities) {
    Writer writer(entities);
    std::mt19937 random(1);
    const int columns = static_cast<int>(std::sqrt(entities / 20.0 * 1.5)) + 1;
    for (int i = 0; !writer.isFull(); ++i) {
        plate(&writer, &random, kCell * (i % columns), kCell * std::floor(i / columns));
    }
    return writer.take();
}
