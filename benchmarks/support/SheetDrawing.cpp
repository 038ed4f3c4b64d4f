// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "SheetDrawing.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "Chance.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

GCode::Point pointAt(const GCode::Point& centre, double radius, double angleDeg) {
    const double angle = angleDeg * (kPi / 180);
    return {centre.m_x + radius * std::cos(angle), centre.m_y + radius * std::sin(angle), 0};
}

/// Collects entities until there are enough.
class Sheet {
public:
    explicit Sheet(std::size_t entities) : m_wanted(entities) { m_drawn.reserve(entities); }

    bool isFull() const { return m_drawn.size() == m_wanted; }
    std::vector<Drawn> take() { return std::move(m_drawn); }

    void line(double x1, double y1, double x2, double y2) {
        add({Drawn::Kind::line, {x1, y1, 0}, {x2, y2, 0}, {}, 0, 0, 0});
    }

    void circle(double x, double y, double radius) {
        const GCode::Point centre(x, y, 0);
        const GCode::Point east(x + radius, y, 0);
        add({Drawn::Kind::circle, east, east, centre, radius, 0, 360});
    }

    void arc(const GCode::Point& centre, double radius, double startDeg) {
        arc(centre, radius, startDeg, startDeg + 90);
    }

    void arc(const GCode::Point& centre, double radius, double startDeg, double endDeg) {
        add({Drawn::Kind::arc, pointAt(centre, radius, startDeg), pointAt(centre, radius, endDeg),
             centre, radius, startDeg, endDeg});
    }

private:
    void add(const Drawn& drawn) {
        if (!isFull()) {
            m_drawn.push_back(drawn);
        }
    }

    std::size_t m_wanted;
    std::vector<Drawn> m_drawn;
};

void outline(Sheet* sheet, const GCode::Point& corner, double w, double h) {
    constexpr double kRound = 6;
    const double left = corner.m_x;
    const double bottom = corner.m_y;
    const double right = left + w;
    const double top = bottom + h;
    sheet->line(left + kRound, bottom, right - kRound, bottom);
    sheet->arc({right - kRound, bottom + kRound, 0}, kRound, 270);
    sheet->line(right, bottom + kRound, right, top - kRound);
    sheet->arc({right - kRound, top - kRound, 0}, kRound, 0);
    sheet->line(right - kRound, top, left + kRound, top);
    sheet->arc({left + kRound, top - kRound, 0}, kRound, 90);
    sheet->line(left, top - kRound, left, bottom + kRound);
    sheet->arc({left + kRound, bottom + kRound, 0}, kRound, 180);
}

void slot(Sheet* sheet, const GCode::Point& from, double length) {
    constexpr double kHalf = 4;
    const double end = from.m_x + length;
    sheet->line(from.m_x, from.m_y - kHalf, end, from.m_y - kHalf);
    sheet->arc({end, from.m_y, 0}, kHalf, 270, 450);
    sheet->line(end, from.m_y + kHalf, from.m_x, from.m_y + kHalf);
    sheet->arc(from, kHalf, 90, 270);
}

void plate(Sheet* sheet, Chance* chance, const GCode::Point& corner) {
    constexpr int kHoles = 8;
    const double w = chance->between(70, 110);
    const double h = chance->between(70, 110);
    outline(sheet, corner, w, h);
    slot(sheet, {corner.m_x + 20, corner.m_y + h / 2, 0}, chance->between(10, 30));
    for (int hole = 0; hole < kHoles; ++hole) {
        const double x = corner.m_x + chance->between(10, w - 10);
        const double y = corner.m_y + chance->between(10, h - 10);
        sheet->circle(x, y, chance->between(1, 4));
    }
}

void group(std::string* text, int code, double value) {
    std::array<char, 48> line{};
    std::snprintf(line.data(), line.size(), "%3d\n%.9f\n", code, value);
    *text += line.data();
}

void place(std::string* text, int code, const GCode::Point& point) {
    group(text, code, point.m_x);
    group(text, code + 10, point.m_y);
    group(text, code + 20, point.m_z);
}

void round(std::string* text, const Drawn& drawn) {
    *text += "100\nAcDbCircle\n";
    place(text, 10, drawn.centre);
    group(text, 40, drawn.radius);
}

void entity(std::string* text, const Drawn& drawn, std::size_t handle) {
    constexpr std::array<const char*, 3> kNames{"LINE", "ARC", "CIRCLE"};
    std::array<char, 32> hexadecimal{};
    std::snprintf(hexadecimal.data(), hexadecimal.size(), "%zX", handle);
    *text += std::string("  0\n") + kNames.at(static_cast<std::size_t>(drawn.kind)) + "\n  5\n" +
             hexadecimal.data() + "\n100\nAcDbEntity\n  8\nPARTS\n";
    if (drawn.kind == Drawn::Kind::line) {
        *text += "100\nAcDbLine\n";
        place(text, 10, drawn.first);
        place(text, 11, drawn.second);
        return;
    }
    round(text, drawn);
    if (drawn.kind == Drawn::Kind::arc) {
        *text += "100\nAcDbArc\n";
        group(text, 50, drawn.startDeg);
        group(text, 51, std::fmod(drawn.endDeg, 360));
    }
}

}  // namespace

std::vector<Drawn> sheetDrawing(std::size_t entities) {
    constexpr double kCell = 120;
    constexpr double kEntitiesPerPlate = 20;
    Sheet sheet(entities);
    Chance chance(1);
    const auto plates = static_cast<double>(entities) / kEntitiesPerPlate;
    const auto columns = static_cast<std::size_t>(std::sqrt(plates * 1.5)) + 1;
    for (std::size_t i = 0; !sheet.isFull(); ++i) {
        const std::size_t row = i / columns;
        plate(&sheet, &chance,
              {kCell * static_cast<double>(i % columns), kCell * static_cast<double>(row), 0});
    }
    return sheet.take();
}

std::vector<Drawn> scatteredLines(std::size_t lines) {
    constexpr double kSide = 1000;
    constexpr double kLength = 10;
    Sheet sheet(lines);
    Chance chance(2);
    while (!sheet.isFull()) {
        const double x = chance.between(0, kSide);
        const double y = chance.between(0, kSide);
        sheet.line(x, y, x + chance.between(-kLength, kLength),
                   y + chance.between(-kLength, kLength));
    }
    return sheet.take();
}

std::vector<Drawn> inRandomOrder(std::vector<Drawn> drawing) {
    Chance chance(3);
    for (std::size_t left = drawing.size(); left > 1; --left) {
        std::swap(drawing[left - 1], drawing[chance.below(left)]);
    }
    return drawing;
}

std::vector<GCode::Entity> pathEntities(const std::vector<Drawn>& drawing) {
    constexpr std::array<kxObjectType_e, 3> kTypes{kxLineType, kxCircleArcType, kxCircleType};
    std::vector<GCode::Entity> entities;
    entities.reserve(drawing.size());
    for (const Drawn& drawn : drawing) {
        GCode::Entity entity;
        entity.type = kTypes.at(static_cast<std::size_t>(drawn.kind));
        // Only told apart by it: nothing is ever read from the object.
        entity.object = reinterpret_cast<kxObject*>(entities.size() + 1);
        const bool isLine = drawn.kind == Drawn::Kind::line;
        entity.firstPoint = isLine ? drawn.first : drawn.centre;
        entity.secondPoint = isLine ? drawn.second : GCode::Point();
        entities.push_back(entity);
    }
    return entities;
}

GCode::ArcGeometry arcGeometry(const Drawn& drawn) {
    return {drawn.first, drawn.second, drawn.centre, drawn.radius};
}

std::string dxfText(const std::vector<Drawn>& drawing) {
    std::string text =
        "  0\nSECTION\n  2\nHEADER\n  9\n$INSUNITS\n 70\n     4\n  0\nENDSEC\n"
        "  0\nSECTION\n  2\nENTITIES\n";
    std::size_t handle = 0x100;
    for (const Drawn& drawn : drawing) {
        entity(&text, drawn, handle++);
    }
    return text + "  0\nENDSEC\n  0\nEOF\n";
}
