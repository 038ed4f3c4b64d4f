// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <kx/kxDocument.h>
#include <kx/kxExport.h>

/// A layer of a drawing. Objects on a hidden one are neither shown nor selectable.
struct kxLayer {
    kxString name;
    bool visible = true;
};

/// A drawing as its host sees it: the interface of add-ins, and what changes it.
class KX_EXPORT kxHostDocument_c : public kxDocument_c {
public:
    /// The objects in drawing order.
    virtual const std::vector<kxObject_ptr>& GetObjects() const = 0;
    /// Replaces all objects. Those that are gone leave both selection sets. Sends the modify
    /// event, and the selection-changed event when the selection changed.
    virtual void SetObjects(std::vector<kxObject_ptr> objects) = 0;

    virtual const std::vector<kxLayer>& GetLayers() const = 0;
    /// Replaces the layer table. Objects on layers that are hidden now leave the current set.
    virtual void SetLayers(std::vector<kxLayer> layers) = 0;
    /// Whether objects of a layer are shown and selectable; true for a layer not in the table.
    virtual bool IsLayerVisible(const kxString& name) const = 0;

    virtual const std::vector<kxObject_ptr>& GetSelection(kxSelectionSetType_e set) const = 0;
    /// Replaces a set, in the given order, each object once; objects that are not in the drawing or
    /// lie on a hidden layer are left out. A current set that becomes empty becomes the previous
    /// set. Sends the selection-changed event when the current set changed.
    virtual void SetSelection(kxSelectionSetType_e set,
                              const std::vector<kxObject_ptr>& objects) = 0;

    /// Sets an option, such as the unit. Sends no event: the host tells the add-ins through
    /// `kxHostApplication_c::NotifyActiveDocumentChanged`.
    virtual void SetCommandOptionInt16(kxCommandOptionInt16_e option, short value) = 0;

    /// Send the save events. False when a hook asks the host not to save.
    virtual bool NotifyFileSavePre(const kxString& fileName, kxDocumentSaveAsOption_e option) = 0;
    virtual void NotifyFileSavePost() = 0;

protected:
    ~kxHostDocument_c() override;
};
using kxHostDocument_ptr = kxInterfacePtr<kxHostDocument_c>;
