// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>

enum kxMenuItemType_e {
    kxMenuItemType_Menu = 1,
    kxMenuItemType_UserCommand = 2,
    kxMenuItemType_Separator = 3
};

class kxMenuItem_c;
using kxMenuItem_ptr = kxInterfacePtr<kxMenuItem_c>;

/// What a new menu item is made of.
struct kxMenuItemData {
    kxMenuItemType_e type = kxMenuItemType_UserCommand;
    /// The ID of the user command it runs, or of the menu it is; empty for a separator.
    kxString id;
    kxString name;
};

/// A menu, or an item of one. Owned by the application.
class KX_EXPORT kxMenuItem_c : public kxRefCounted_c {
public:
    virtual kxString GetID() const = 0;
    /// The label; empty for a separator.
    virtual kxString get_Name() const = 0;
    virtual kxMenuItemType_e GetType() const = 0;
    /// The items of this menu in order; empty when it is none.
    virtual std::vector<kxMenuItem_ptr> GetMenuItems() const = 0;
    /// Inserts an item before the given position, counted from 0; beyond the end it is appended,
    /// below 0 put first. It belongs to the add-in `appID` and goes with its user interface.
    /// Null when this is no menu.
    virtual kxMenuItem_ptr InsertMenuItem(const kxString& appID, long position,
                                          const kxMenuItemData& data) = 0;

protected:
    ~kxMenuItem_c() override;
};
