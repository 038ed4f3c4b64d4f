// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxByteArray.h>

kxByteArray::kxByteArray(const char* data, std::size_t size) {
    if (data != nullptr) {
        m_bytes.assign(data, data + size);
    }
}
