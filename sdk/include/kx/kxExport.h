// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

/// Marks what `libkxLibrary.so.1` and `libkxInterface.so.1` export; all else in them is hidden.
#define KX_EXPORT __attribute__((visibility("default")))
