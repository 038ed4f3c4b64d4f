// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What this thread asks the C library for while the object lives, `new` and the toolkit included.
/// Counts what is really reserved, and a block that changes its size as two until it has moved. One
/// at a time.
class CountedMemory {
public:
    CountedMemory();
    ~CountedMemory();
    CountedMemory(const CountedMemory&) = delete;
    CountedMemory& operator=(const CountedMemory&) = delete;

    /// How often memory was asked for.
    long requests() const;
    /// How many bytes more are held than at the start; negative when more were given back.
    long long held() const;
    /// The greatest number of them so far.
    long long peak() const;
};

/// Nothing is counted while one of these lives.
class UncountedMemory {
public:
    UncountedMemory();
    ~UncountedMemory();
    UncountedMemory(const UncountedMemory&) = delete;
    UncountedMemory& operator=(const UncountedMemory&) = delete;

private:
    bool m_wasCounting;
};
