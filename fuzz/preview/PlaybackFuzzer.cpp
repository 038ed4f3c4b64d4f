// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Playing any segment, under any projection and at any speed, takes the literal steps, and not more
// of them than there is room for.
#include <cmath>
#include <cstdint>

#include "ByteReader.h"
#include "FuzzCheck.h"
#include "LiteralSteps.h"
#include "openglplotter/PlaybackSteps.h"
#include "openglplotter/ViewNavigation.h"

namespace {

/// A number of usual size, or any bits.
float number(ByteReader* input) {
    return input->below(4) == 0 ? input->value<float>()
                                : static_cast<float>(input->value<std::int16_t>()) / 16;
}

/// Often along an axis, where lengths are exact.
Point3d point(ByteReader* input) {
    const bool isOnAxis = input->flag();
    const float x = number(input);
    const float y = isOnAxis ? 0 : number(input);
    return {x, y, isOnAxis ? 0 : number(input)};
}

QMatrix4x4 projection(ByteReader* input) {
    QMatrix4x4 matrix;
    const std::size_t kind = input->below(3);
    if (kind == 1) {
        const double size = number(input);
        return fittedProjection(size, number(input));
    }
    for (int i = 0; i < 16 && kind == 2; ++i) {
        matrix.data()[i] = number(input);
    }
    return matrix;
}

/// A power of two, with which steps may land on the end, one of the slider's, or any bits.
double stepLength(ByteReader* input) {
    const std::uint8_t kind = input->byte();
    if (kind < 100) {
        return std::ldexp(1.0, kind % 20 - 12);
    }
    return kind < 200 ? changedStepLength(number(input), kind - 150) : input->value<double>();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader input(data, size);
    const QMatrix4x4 matrix = projection(&input);
    const double length = stepLength(&input);
    PathSegment segment{point(&input), point(&input)};
    std::vector<Point3d> points;
    do {
        segmentSteps(segment, matrix, length, &points);
        FUZZ_CHECK(!points.empty() && points.size() <= kMostStepPoints);
        const std::vector<Point3d> literal = literalSteps(segment.from, segment.to, matrix, length);
        FUZZ_CHECK(points.size() == literal.size() && sameBits(points, literal));
        segment = {segment.to, point(&input)};
    } while (!input.atEnd());
    return 0;
}
