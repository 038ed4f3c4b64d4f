// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include <kx/kxExport.h>

/// The host's text: Unicode code points, one per `wchar_t` (UCS-4). A value type; it owns its
/// characters. May be used on any thread as long as no two threads share one object.
class KX_EXPORT kxString {
public:
    kxString() = default;
    /// Copies the characters up to the terminating zero; null gives an empty text.
    kxString(const wchar_t* text);
    /// Copies exactly `length` characters, zeros included; null gives an empty text.
    kxString(const wchar_t* text, std::size_t length);
    /// Decodes UTF-8; each byte that is not part of a valid sequence becomes U+FFFD.
    kxString(const char* utf8);
    kxString(const std::string& utf8);

    /// The characters, zero-terminated; valid until the text is changed or destroyed.
    const wchar_t* c_str() const noexcept { return m_text.c_str(); }
    /// The number of code points.
    std::size_t length() const noexcept { return m_text.size(); }
    bool empty() const noexcept { return m_text.empty(); }
    /// The text as UTF-8. A value that is no Unicode scalar value becomes U+FFFD.
    std::string toUtf8() const;

    kxString& operator+=(const kxString& tail);
    friend bool operator==(const kxString& a, const kxString& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const kxString& a, const kxString& b) { return a.m_text != b.m_text; }
    /// Orders by code point, without regard to any locale.
    friend bool operator<(const kxString& a, const kxString& b) { return a.m_text < b.m_text; }

private:
    std::wstring m_text;
};

/// Joins two texts.
KX_EXPORT kxString operator+(const kxString& a, const kxString& b);
