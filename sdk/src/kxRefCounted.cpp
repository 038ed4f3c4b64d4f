// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxRefCounted.h>

kxRefCounted_c::~kxRefCounted_c() = default;

void kxRefCounted_c::Release() const noexcept {
    if (--m_references == 0) {
        delete this;
    }
}
