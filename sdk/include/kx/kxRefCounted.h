// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>

/// Base of everything that is shared between host and add-in by counted references.
/// A new object has no reference; the last `Release` destroys it. The count is not locked: all
/// references to an object belong to the host's user-interface thread.
class KX_EXPORT kxRefCounted_c {
public:
    kxRefCounted_c(const kxRefCounted_c&) = delete;
    kxRefCounted_c& operator=(const kxRefCounted_c&) = delete;

    void AddRef() const noexcept { ++m_references; }
    void Release() const noexcept;
    /// For tests and diagnostics only.
    long GetRefCount() const noexcept { return m_references; }

protected:
    kxRefCounted_c() = default;
    virtual ~kxRefCounted_c();

private:
    mutable long m_references = 0;
};
