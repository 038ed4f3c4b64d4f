// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxStringArray.h>

void kxStringArray::Add(const kxString& text) {
    m_texts.push_back(text);
}

kxString kxStringArray::GetAt(std::size_t index) const {
    return index < m_texts.size() ? m_texts[index] : kxString();
}
