// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include "LiteralGCodeParser.h"
#include "openglplotter/PreviewPath.h"

/// Whether `path`, made of `text`, is the judge's bit for bit: vertices, colours, extents, and
/// where it was cut short.
testing::AssertionResult samePath(const PreviewPath& path, std::string_view text,
                                  const LiteralPath& judge);
/// The same for a path made of `text` in UTF-16.
testing::AssertionResult samePathInUtf16(PreviewPath path, const QString& text,
                                         const LiteralPath& judge);
