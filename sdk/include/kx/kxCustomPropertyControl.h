// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxRefCounted.h>

/// A native window: the X11 window id, or what the host's window system uses. 0 is no window.
using kxWindowHandle = std::uintptr_t;

enum kxCustomPropertyControlArea_e {
    kxCustomPropertyControlArea_Left = 1,
    kxCustomPropertyControlArea_Right = 2
};

/// A docked pane of the host's window, into which an add-in puts its own window.
class KX_EXPORT kxCustomPropertyControl_c : public kxRefCounted_c {
public:
    /// The pane's native window; 0 when the host has no screen or the pane is destroyed.
    virtual kxWindowHandle GetHWND() const = 0;
    /// Whether the pane is shown; false after `Destroy`.
    virtual bool get_Visible() const = 0;
    virtual void put_Visible(bool visible) = 0;
    /// Removes the pane with all windows in it. A second call does nothing.
    virtual void Destroy() = 0;

protected:
    ~kxCustomPropertyControl_c() override;
};
using kxCustomPropertyControl_ptr = kxInterfacePtr<kxCustomPropertyControl_c>;
