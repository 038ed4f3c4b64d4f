// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include "Listener.h"

namespace {

class DocumentTest : public testing::Test {
protected:
    kxHostApplication_ptr m_application = kxCreateHostApplication({});
    kxHostDocument_ptr m_document = m_application->AddDocument("plate.dxf", true);
    Listener m_listener;
};

TEST_F(DocumentTest, isEmptyAndNamedWhenNew) {
    EXPECT_EQ(m_document->GetName(), kxString("plate.dxf"));
    EXPECT_TRUE(m_document->GetObjects().empty());
    EXPECT_TRUE(m_document->GetLayers().empty());
    long count = -1;
    m_document->GetModel()->GetSketchManager()->GetObjectCount(&count);
    EXPECT_EQ(count, 0);
}

TEST_F(DocumentTest, itsModelGivesTheObjectsInDrawingOrder) {
    const kxObject_ptr line = kxCreateLine("0", {}, {1, 0, 0});
    const kxObject_ptr point = kxCreatePoint("0", {});
    const kxSketchManager_ptr sketch = m_document->GetModel()->GetSketchManager();
    m_document->SetObjects({point, line});
    long count = 0;
    sketch->GetObjectCount(&count);
    ASSERT_EQ(count, 2);
    EXPECT_TRUE(sketch->GetObject(0) == point);
    EXPECT_TRUE(sketch->GetObject(1) == line);
    EXPECT_FALSE(sketch->GetObject(-1));
    EXPECT_FALSE(sketch->GetObject(2));
}

TEST_F(DocumentTest, settingObjectsSendsTheModifyEvent) {
    m_document->RegisterEvent(kxDocument_ModifyNotify_id, &m_listener, Listener::hook);
    m_listener.action = [this] { EXPECT_EQ(m_document->GetObjects().size(), 1U); };
    m_document->SetObjects({kxCreatePoint("0", {})});
    EXPECT_EQ(m_listener.calls, 1);
}

TEST_F(DocumentTest, anOptionThatIsNotSetIsNotFoundAndWritesNothing) {
    short value = -7;
    kxGetCommandOptionResult_e result = kxGetCommandOptionResult_Success;
    m_document->GetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, &value, &result);
    EXPECT_EQ(result, kxGetCommandOptionResult_NotFound);
    EXPECT_EQ(value, -7);
}

TEST_F(DocumentTest, anOptionComesBackAndBelongsToItsDrawing) {
    const kxHostDocument_ptr other = m_application->AddDocument("other", false);
    m_document->SetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, 1);
    m_document->SetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, 0);
    short value = -7;
    kxGetCommandOptionResult_e result = kxGetCommandOptionResult_NotFound;
    m_document->GetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, &value, &result);
    EXPECT_EQ(result, kxGetCommandOptionResult_Success);
    EXPECT_EQ(value, 0);
    other->GetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, &value, &result);
    EXPECT_EQ(result, kxGetCommandOptionResult_NotFound);
}

TEST_F(DocumentTest, settingAnOptionSendsNoEvent) {
    m_application->SetActiveDocument(m_document.get());
    m_application->RegisterEvent(kxApplication_ActiveDocumentChangedNotify_id, &m_listener,
                                 Listener::hook);
    m_document->RegisterEvent(kxDocument_ModifyNotify_id, &m_listener, Listener::hook);
    m_document->SetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, 1);
    EXPECT_EQ(m_listener.calls, 0);
}

TEST_F(DocumentTest, layersAreVisibleUnlessTheTableSaysOtherwise) {
    m_document->SetLayers({{"shown", true}, {"hidden", false}});
    EXPECT_TRUE(m_document->IsLayerVisible("shown"));
    EXPECT_FALSE(m_document->IsLayerVisible("hidden"));
    EXPECT_TRUE(m_document->IsLayerVisible("unheard of"));
    m_document->SetLayers({{"hidden", true}});
    EXPECT_TRUE(m_document->IsLayerVisible("hidden"));
    ASSERT_EQ(m_document->GetLayers().size(), 1U);
}

struct SavePre {
    int calls = 0;
    kxString fileName;
    kxDocumentSaveAsOption_e option = kxDocumentSaveAs_Same;
    bool answer = true;

    static bool hook(void* owner, const kxString& fileName, kxDocumentSaveAsOption_e option) {
        auto* self = static_cast<SavePre*>(owner);
        ++self->calls;
        self->fileName = fileName;
        self->option = option;
        return self->answer;
    }
};

TEST_F(DocumentTest, savingTellsTheNameBeforeAndTheEndAfter) {
    SavePre before;
    m_document->RegisterEvent(kxDocument_FileSavePreNotify_id, &before, SavePre::hook);
    m_document->RegisterEvent(kxDocument_FileSavePostNotify_id, &m_listener, Listener::hook);
    EXPECT_TRUE(m_document->NotifyFileSavePre("a.dxf", kxDocumentSaveAs_Dxf));
    EXPECT_EQ(before.calls, 1);
    EXPECT_EQ(before.fileName, kxString("a.dxf"));
    EXPECT_EQ(before.option, kxDocumentSaveAs_Dxf);
    EXPECT_EQ(m_listener.calls, 0);
    m_document->NotifyFileSavePost();
    EXPECT_EQ(m_listener.calls, 1);
    EXPECT_EQ(m_document->UnRegisterEvent(kxDocument_FileSavePreNotify_id, &before),
              kxEventResult_Success);
    m_document->NotifyFileSavePre("a.dxf", kxDocumentSaveAs_Same);
    EXPECT_EQ(before.calls, 1);
}

TEST_F(DocumentTest, oneHookThatSaysNoStopsTheSaving) {
    SavePre refusing;
    refusing.answer = false;
    SavePre agreeing;
    m_document->RegisterEvent(kxDocument_FileSavePreNotify_id, &refusing, SavePre::hook);
    m_document->RegisterEvent(kxDocument_FileSavePreNotify_id, &agreeing, SavePre::hook);
    EXPECT_FALSE(m_document->NotifyFileSavePre("a.dxf", kxDocumentSaveAs_Same));
    EXPECT_EQ(agreeing.calls, 1);
}

TEST_F(DocumentTest, eachEventTakesHooksOfItsOwnFormOnly) {
    SavePre savePre;
    EXPECT_EQ(
        m_document->RegisterEvent(kxDocument_FileSavePreNotify_id, &m_listener, Listener::hook),
        kxEventResult_UnknownEvent);
    EXPECT_EQ(m_document->RegisterEvent(kxDocument_ModifyNotify_id, &savePre, SavePre::hook),
              kxEventResult_UnknownEvent);
    const auto unknown = static_cast<kxDocumentEvent_e>(5);
    EXPECT_EQ(m_document->RegisterEvent(unknown, &m_listener, Listener::hook),
              kxEventResult_UnknownEvent);
    EXPECT_EQ(m_document->UnRegisterEvent(kxDocument_DestroyNotify_id, &m_listener),
              kxEventResult_NotRegistered);
}

TEST_F(DocumentTest, aReferenceKeepsAClosedDrawingReadable) {
    m_document->SetObjects({kxCreatePoint("0", {1, 2, 3})});
    m_application->CloseDocument(m_document.get());
    EXPECT_EQ(m_document->GetRefCount(), 1);
    EXPECT_EQ(m_document->GetObjects().size(), 1U);
    const kxObject_ptr object = m_document->GetObjects().front();
    m_document = nullptr;
    EXPECT_EQ(object->GetRefCount(), 1);
    EXPECT_EQ(object->GetType(), kxPointType);
}

}  // namespace
