// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "Printing.h"
#include "openglplotter/PreviewPath.h"

inline QVector<Point3d> verticesOf(std::string_view program) {
    return interpretProgram(program).vertices.toVector();
}

inline const Color kRed(0.7F, 0, 0, 0);
inline const Color kGreen(0, 1, 0, 0);
