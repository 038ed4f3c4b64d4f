// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include <kx/kxExport.h>

/// A sequence of bytes, zeros included. A value type.
class KX_EXPORT kxByteArray {
public:
    kxByteArray() = default;
    /// Copies `size` bytes; null gives an empty array.
    kxByteArray(const char* data, std::size_t size);

    /// The bytes; valid until the array is changed or destroyed. Null when empty.
    const char* data() const noexcept { return m_bytes.empty() ? nullptr : m_bytes.data(); }
    std::size_t size() const noexcept { return m_bytes.size(); }
    friend bool operator==(const kxByteArray& a, const kxByteArray& b) {
        return a.m_bytes == b.m_bytes;
    }

private:
    std::vector<char> m_bytes;
};
