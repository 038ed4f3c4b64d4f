// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <QMatrix4x4>

#include "openglplotter/ViewNavigation.h"

/// A 4x4 matrix from the textbook, in double precision and without any shortcut: the judge of the
/// view's matrices. `at(row, column)`; products apply the right factor first.
class LiteralMatrix {
public:
    static LiteralMatrix identity();
    static LiteralMatrix of(const QMatrix4x4& matrix);
    static LiteralMatrix translation(double x, double y, double z);
    /// The turn about Y (counter-clockwise seen from +Y) and about X, in degrees.
    static LiteralMatrix turnAboutY(double angleDeg);
    static LiteralMatrix turnAboutX(double angleDeg);
    /// glOrtho's matrix of a volume that is symmetric about the origin.
    static LiteralMatrix symmetricOrtho(double halfWidth, double halfHeight, double halfDepth);

    double& at(int row, int column) { return m_cells.at(index(row, column)); }
    double at(int row, int column) const { return m_cells.at(index(row, column)); }
    LiteralMatrix operator*(const LiteralMatrix& right) const;
    /// Maps a point, with the perspective divide.
    std::array<double, 3> map(double x, double y, double z) const;
    /// By Gauss and Jordan's elimination; the matrix must have an inverse.
    LiteralMatrix inverse() const;

private:
    static std::size_t index(int row, int column) {
        return static_cast<std::size_t>(row) * 4 + static_cast<std::size_t>(column);
    }
    void reduceColumn(int column, LiteralMatrix* other);

    std::array<double, 16> m_cells{};
};

/// The model matrix after one frame, each step as the view's description words it.
LiteralMatrix literalModelAfterFrame(const LiteralMatrix& last, const LiteralMatrix& projection,
                                     const ViewState& view);

/// The largest difference of two cells, relative to the largest cell (at least 1).
double largestDifference(const LiteralMatrix& expected, const QMatrix4x4& actual);
