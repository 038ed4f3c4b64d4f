// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>

/// Where the host keeps its own files.
class KX_EXPORT kxSystemFiles_c : public kxRefCounted_c {
public:
    /// The path of the local help file; empty when there is none.
    virtual kxString get_HelpFile() const = 0;

protected:
    ~kxSystemFiles_c() override;
};
using kxSystemFiles_ptr = kxInterfacePtr<kxSystemFiles_c>;
