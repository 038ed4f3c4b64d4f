// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralMatrix.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

double radians(double angleDeg) {
    return angleDeg * std::acos(-1.0) / 180;
}

}  // namespace

LiteralMatrix LiteralMatrix::identity() {
    LiteralMatrix matrix;
    for (int i = 0; i < 4; ++i) {
        matrix.at(i, i) = 1;
    }
    return matrix;
}

LiteralMatrix LiteralMatrix::of(const QMatrix4x4& source) {
    LiteralMatrix matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            matrix.at(row, column) = static_cast<double>(source(row, column));
        }
    }
    return matrix;
}

LiteralMatrix LiteralMatrix::translation(double x, double y, double z) {
    LiteralMatrix matrix = identity();
    matrix.at(0, 3) = x;
    matrix.at(1, 3) = y;
    matrix.at(2, 3) = z;
    return matrix;
}

LiteralMatrix LiteralMatrix::turnAboutY(double angleDeg) {
    LiteralMatrix matrix = identity();
    const double angle = radians(angleDeg);
    matrix.at(0, 0) = matrix.at(2, 2) = std::cos(angle);
    matrix.at(0, 2) = std::sin(angle);
    matrix.at(2, 0) = -std::sin(angle);
    return matrix;
}

LiteralMatrix LiteralMatrix::turnAboutX(double angleDeg) {
    LiteralMatrix matrix = identity();
    const double angle = radians(angleDeg);
    matrix.at(1, 1) = matrix.at(2, 2) = std::cos(angle);
    matrix.at(1, 2) = -std::sin(angle);
    matrix.at(2, 1) = std::sin(angle);
    return matrix;
}

LiteralMatrix LiteralMatrix::symmetricOrtho(double halfWidth, double halfHeight, double halfDepth) {
    LiteralMatrix matrix = identity();
    matrix.at(0, 0) = 1 / halfWidth;
    matrix.at(1, 1) = 1 / halfHeight;
    matrix.at(2, 2) = -1 / halfDepth;
    return matrix;
}

LiteralMatrix LiteralMatrix::operator*(const LiteralMatrix& right) const {
    LiteralMatrix product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            for (int i = 0; i < 4; ++i) {
                product.at(row, column) += at(row, i) * right.at(i, column);
            }
        }
    }
    return product;
}

std::array<double, 3> LiteralMatrix::map(double x, double y, double z) const {
    std::array<double, 4> sums{};
    for (int row = 0; row < 4; ++row) {
        sums.at(static_cast<std::size_t>(row)) =
            at(row, 0) * x + at(row, 1) * y + at(row, 2) * z + at(row, 3);
    }
    return {sums[0] / sums[3], sums[1] / sums[3], sums[2] / sums[3]};
}

void LiteralMatrix::reduceColumn(int column, LiteralMatrix* other) {
    int pivot = column;
    for (int row = column + 1; row < 4; ++row) {
        pivot = std::fabs(at(row, column)) > std::fabs(at(pivot, column)) ? row : pivot;
    }
    const double divisor = at(pivot, column);
    for (int i = 0; i < 4; ++i) {
        std::swap(at(pivot, i), at(column, i));
        std::swap(other->at(pivot, i), other->at(column, i));
        at(column, i) /= divisor;
        other->at(column, i) /= divisor;
    }
    for (int row = 0; row < 4; ++row) {
        const double factor = row == column ? 0 : at(row, column);
        for (int i = 0; i < 4; ++i) {
            at(row, i) -= factor * at(column, i);
            other->at(row, i) -= factor * other->at(column, i);
        }
    }
}

LiteralMatrix LiteralMatrix::inverse() const {
    LiteralMatrix rest = *this;
    LiteralMatrix result = identity();
    for (int column = 0; column < 4; ++column) {
        rest.reduceColumn(column, &result);
    }
    return result;
}

LiteralMatrix literalModelAfterFrame(const LiteralMatrix& last, const LiteralMatrix& projection,
                                     const ViewState& view) {
    const auto shift = projection.inverse().map(static_cast<double>(view.panX) / view.scale,
                                                static_cast<double>(view.panY) / view.scale, 0);
    const auto centerX = static_cast<double>(view.center.x());
    const auto centerY = static_cast<double>(view.center.y());
    LiteralMatrix model = last * LiteralMatrix::translation(shift[0], -shift[1], 0);
    model = model * LiteralMatrix::translation(centerX, centerY, 0);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            model.at(row, column) = row == column ? view.scale : 0;
        }
    }
    model = model * LiteralMatrix::turnAboutY(-view.alphaDeg);
    model = model * LiteralMatrix::turnAboutX(-view.betaDeg);
    return model * LiteralMatrix::translation(-centerX, -centerY, 0);
}

double largestDifference(const LiteralMatrix& expected, const QMatrix4x4& actual) {
    const LiteralMatrix other = LiteralMatrix::of(actual);
    double difference = 0;
    double size = 1;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const double cell = expected.at(row, column);
            difference = std::max(difference, std::fabs(cell - other.at(row, column)));
            size = std::max(size, std::fabs(cell));
        }
    }
    return difference / size;
}
