// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "kxAddinDocument.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>

#include "TestHost.h"

namespace {

class Tracker : public testing::Test {
protected:
    TestHost host;
    kxHostDocument_ptr drawing = host.open();
    std::unique_ptr<KxAddinDocument> tracker = std::make_unique<KxAddinDocument>(drawing.get());
};

/// Whether nobody listens to the events of the drawing as this owner: it can be registered anew.
bool isFree(const kxHostDocument_ptr& drawing, void* owner) {
    bool free = true;
    for (const auto id : {kxDocument_DestroyNotify_id, kxDocument_FileSavePostNotify_id,
                          kxDocument_ModifyNotify_id}) {
        free = drawing->UnRegisterEvent(id, owner) == kxEventResult_NotRegistered && free;
    }
    free = drawing->UnRegisterEvent(kxDocument_FileSavePreNotify_id, owner) ==
               kxEventResult_NotRegistered &&
           free;
    return drawing->GetSelectionManager()->UnRegisterEvent(
               kxSelectionManager_SelectionChangedNotify_id, owner) ==
               kxEventResult_NotRegistered &&
           free;
}

}  // namespace

TEST_F(Tracker, IsAliveUntilTheHostDestroysTheDrawing) {
    EXPECT_TRUE(tracker->isAlive());
    host.application()->CloseDocument(drawing.get());
    EXPECT_FALSE(tracker->isAlive());
}

TEST_F(Tracker, LetsTheHostGoOnAtEveryNotification) {
    EXPECT_TRUE(
        KxAddinDocument::FileSavePreNotifyHook(tracker.get(), "a.dxf", kxDocumentSaveAs_Dxf));
    EXPECT_TRUE(KxAddinDocument::FileSavePostNotifyHook(tracker.get()));
    EXPECT_TRUE(KxAddinDocument::ModifyNotifyHook(tracker.get()));
    EXPECT_TRUE(KxAddinDocument::SelectionChangedNotifyHook(tracker.get()));
    EXPECT_TRUE(tracker->isAlive());
    EXPECT_TRUE(KxAddinDocument::DestroyNotifyHook(tracker.get()));
    EXPECT_FALSE(tracker->isAlive());
}

TEST_F(Tracker, LetsTheHostSave) {
    EXPECT_TRUE(drawing->NotifyFileSavePre("a.dxf", kxDocumentSaveAs_Same));
    drawing->NotifyFileSavePost();
    EXPECT_TRUE(tracker->isAlive());
}

TEST_F(Tracker, ListensToAllFiveEvents) {
    for (const auto id : {kxDocument_DestroyNotify_id, kxDocument_FileSavePreNotify_id,
                          kxDocument_FileSavePostNotify_id, kxDocument_ModifyNotify_id}) {
        EXPECT_EQ(drawing->UnRegisterEvent(id, tracker.get()), kxEventResult_Success) << id;
    }
    EXPECT_EQ(drawing->GetSelectionManager()->UnRegisterEvent(
                  kxSelectionManager_SelectionChangedNotify_id, tracker.get()),
              kxEventResult_Success);
}

TEST_F(Tracker, UnregistersAllFiveEventsWhenItDies) {
    void* owner = tracker.get();
    tracker.reset();
    EXPECT_TRUE(isFree(drawing, owner));
    host.add({pointObject(at(1, 1))});
    host.application()->CloseDocument(drawing.get());
}

TEST_F(Tracker, OfADeadDrawingIsDeletedAndReported) {
    KxAddinDocument* dead = tracker.release();
    host.application()->CloseDocument(drawing.get());
    EXPECT_TRUE(destroyClosedDocument(dead));
    EXPECT_TRUE(isFree(drawing, dead));
}

TEST_F(Tracker, OfALiveDrawingIsKeptAndReported) {
    EXPECT_FALSE(destroyClosedDocument(tracker.get()));
    EXPECT_TRUE(tracker->isAlive());
    EXPECT_FALSE(isFree(drawing, tracker.get()));
}

TEST_F(Tracker, DeadOnesLeaveAListInOnePass) {
    const kxHostDocument_ptr other = host.open();
    std::list<KxAddinDocument*> trackers = {new KxAddinDocument(drawing.get()),
                                            new KxAddinDocument(other.get())};
    KxAddinDocument* kept = trackers.back();
    host.application()->CloseDocument(drawing.get());
    trackers.remove_if(destroyClosedDocument);
    ASSERT_EQ(trackers.size(), 1U);
    EXPECT_EQ(trackers.front(), kept);
    delete kept;
}

TEST(TrackerWithoutADrawing, IsAliveAndListensToNothing) {
    const KxAddinDocument tracker(nullptr);
    EXPECT_TRUE(tracker.isAlive());
}
