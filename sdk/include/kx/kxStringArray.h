// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include <kx/kxExport.h>
#include <kx/kxString.h>

/// An ordered list of texts. A value type.
class KX_EXPORT kxStringArray {
public:
    /// Appends a copy of the text.
    void Add(const kxString& text);
    std::size_t GetCount() const noexcept { return m_texts.size(); }
    /// The text at the index; an empty text when the index is out of range.
    kxString GetAt(std::size_t index) const;

private:
    std::vector<kxString> m_texts;
};
