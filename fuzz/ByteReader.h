// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Turns an input into choices and values, front to back. At its end all that comes is zero.
class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size) : m_at(data), m_end(data + size) {}

    bool atEnd() const { return m_at == m_end; }
    std::uint8_t byte() { return atEnd() ? std::uint8_t{0} : *m_at++; }
    /// Below `limit`, which is at most 256.
    std::size_t below(std::size_t limit) { return byte() % limit; }
    bool flag() { return (byte() & 1U) != 0; }

    /// Any value of a plain type, from its bytes.
    template <typename Value>
    Value value() {
        unsigned char bytes[sizeof(Value)];
        for (unsigned char& b : bytes) {
            b = byte();
        }
        Value result;
        std::memcpy(&result, bytes, sizeof result);
        return result;
    }

    /// A text of up to 255 bytes, its length first.
    std::string_view text() {
        const std::size_t wanted = byte();
        const auto left = static_cast<std::size_t>(m_end - m_at);
        const std::string_view result(reinterpret_cast<const char*>(m_at),
                                      wanted < left ? wanted : left);
        m_at += result.size();
        return result;
    }

    /// All that is left.
    std::string_view rest() {
        const std::string_view result(reinterpret_cast<const char*>(m_at),
                                      static_cast<std::size_t>(m_end - m_at));
        m_at = m_end;
        return result;
    }

private:
    const std::uint8_t* m_at;
    const std::uint8_t* m_end;
};
