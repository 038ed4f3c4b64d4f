// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <vector>

#include <kx/host/kxHostDocument.h>

#include "EventTable.h"
#include "Selection.h"

class SketchManager final : public kxSketchManager_c {
public:
    void GetObjectCount(long* count) const override {
        *count = static_cast<long>(m_objects.size());
    }
    kxObject_ptr GetObject(long index) const override;
    const std::vector<kxObject_ptr>& objects() const { return m_objects; }
    void setObjects(std::vector<kxObject_ptr> objects) { m_objects = std::move(objects); }

private:
    std::vector<kxObject_ptr> m_objects;
};

class Model final : public kxModel_c {
public:
    explicit Model(kxSketchManager_ptr sketchManager) : m_sketchManager(std::move(sketchManager)) {}
    kxSketchManager_ptr GetSketchManager() override { return m_sketchManager; }

private:
    kxSketchManager_ptr m_sketchManager;
};

class Document final : public kxHostDocument_c {
public:
    explicit Document(const kxString& name) : m_name(name) {}

    kxString GetName() const override { return m_name; }
    kxModel_ptr GetModel() override { return m_model; }
    kxSelectionManager_ptr GetSelectionManager() override { return m_selection; }
    void GetCommandOptionInt16(kxCommandOptionInt16_e option, short* value,
                               kxGetCommandOptionResult_e* result) const override;
    kxEventResult_e RegisterEvent(kxDocumentEvent_e id, void* owner, kxNotifyHook hook) override;
    kxEventResult_e RegisterEvent(kxDocumentEvent_e id, void* owner,
                                  kxFileSavePreHook hook) override;
    kxEventResult_e UnRegisterEvent(kxDocumentEvent_e id, void* owner) override;

    const std::vector<kxObject_ptr>& GetObjects() const override { return m_sketch->objects(); }
    void SetObjects(std::vector<kxObject_ptr> objects) override;
    const std::vector<kxLayer>& GetLayers() const override { return m_layers; }
    void SetLayers(std::vector<kxLayer> layers) override;
    bool IsLayerVisible(const kxString& name) const override;
    const std::vector<kxObject_ptr>& GetSelection(kxSelectionSetType_e set) const override {
        return m_selection->objects(set);
    }
    void SetSelection(kxSelectionSetType_e set, const std::vector<kxObject_ptr>& objects) override;
    void SetCommandOptionInt16(kxCommandOptionInt16_e option, short value) override {
        m_options[option] = value;
    }
    bool NotifyFileSavePre(const kxString& fileName, kxDocumentSaveAsOption_e option) override {
        return m_savePreEvents.send(kxDocument_FileSavePreNotify_id, fileName, option);
    }
    void NotifyFileSavePost() override { m_events.send(kxDocument_FileSavePostNotify_id); }

    /// Tells the trackers, once, that the drawing is about to go. False when they know already.
    bool sendDestroy();

private:
    kxString m_name;
    kxInterfacePtr<SketchManager> m_sketch{new SketchManager};
    kxModel_ptr m_model{new Model(m_sketch)};
    kxInterfacePtr<SelectionManager> m_selection{new SelectionManager};
    std::set<const kxObject*> m_members;
    std::vector<kxLayer> m_layers;
    std::set<kxString> m_hiddenLayers;
    std::map<kxCommandOptionInt16_e, short> m_options;
    EventTable<kxNotifyHook> m_events;
    EventTable<kxFileSavePreHook> m_savePreEvents;
    bool m_closing = false;
};
