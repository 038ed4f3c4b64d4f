// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "ContourProgram.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace {

class Writer {
public:
    explicit Writer(std::size_t lines) : m_most(lines) { m_text.reserve(lines * 30); }

    std::string write() {
        line("G21 G90 G17 G94 (millimetres)");
        line("S12000 M3");
        for (int part = 0; !isFull(); ++part) {
            contour(part);
            if (part % 10 == 9) {
                holes(part);
            }
        }
        line("M2");
        return std::move(m_text);
    }

private:
    template <typename... Numbers>
    void line(const char* format, Numbers... numbers) {
        std::array<char, 100> text{};
        std::snprintf(text.data(), text.size(), format, numbers...);
        m_text += text.data();
        m_text += '\n';
        ++m_lines;
    }
    // Room for a contour or a row of holes, and for the end.
    bool isFull() const { return m_lines + 1 >= m_most; }

    void contour(int part) {
        const double x = part % 100 * 25.0;
        const double y = part / 100 % 100 * 25.0;
        line("(contour %d)", part);
        move("G0 Z15");
        for (int step = 0; step <= 90 && !isFull(); ++step) {
            const double angle = step * 0.06981;
            const double px = x + 10.123 * std::cos(angle);
            const double py = y + 9.876 * std::sin(angle);
            if (step == 0) {
                line("G0 X%.4f Y%.4f", px, py);
                move("G1 Z-1.5 F120");
            } else if (step % 15 == 0) {
                arc(px, py);
            } else {
                line("G1 X%.4f Y%.4f F600", px, py);
            }
        }
        move("G0 Z15");
    }

    // A bow of half a turn, there and back.
    void arc(double x, double y) {
        line("G1 X%.4f Y%.4f", x, y);
        if (!isFull()) {
            line("G3 X%.4f Y%.4f I0.5 J0", x + 1, y);
        }
    }

    void holes(int part) {
        move("G83 Z-6 R2 Q4 F80 X0 Y0");
        for (int hole = 0; hole < 20 && !isFull(); ++hole) {
            line("X%.3f Y%.3f", hole * 7.25, part * 0.125);
        }
        move("G80");
    }

    void move(const char* text) {
        if (!isFull()) {
            line("%s", text);
        }
    }

    std::size_t m_most;
    std::size_t m_lines = 0;
    std::string m_text;
};

}  // namespace

std::string contourProgram(std::size_t lines) {
    return Writer(lines).write();
}
