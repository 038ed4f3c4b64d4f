// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Shape.h"

namespace gcode_check {
namespace {

const char* wordFor(ShapeKind kind) {
    switch (kind) {
        case ShapeKind::Line:
            return "line ";
        case ShapeKind::Arc:
            return "arc ";
        case ShapeKind::Circle:
            return "circle ";
        case ShapeKind::Point:
            break;
    }
    return "point ";
}

}  // namespace

std::uint32_t numberOf(const Shape& shape, std::size_t index) {
    return shape.object == 0 ? static_cast<std::uint32_t>(index + 1) : shape.object;
}

std::string nameOf(const Shape& shape, std::size_t index) {
    if (!shape.name.empty()) {
        return shape.name;
    }
    return wordFor(shape.kind) + std::to_string(numberOf(shape, index));
}

}  // namespace gcode_check
