// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The add-in with trackers in its list, while drawings come and go. No tracker is made by the
// add-in itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <list>
#include <memory>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QTest>
#include <QTimer>

#include <kx/kxCommandMessage.h>

#include "TestHost.h"
#include "kxAddinConnection.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The inside of the add-in, for tests.
struct DockWidgetApplicationState {
    explicit DockWidgetApplicationState(DockWidgetApplication& application)
        : documents(application.m_documents) {}
    std::list<KxAddinDocument*>& documents;
};

namespace {

class Trackers : public testing::Test {
protected:
    /// Opens a drawing that the add-in tracks.
    kxHostDocument_ptr openTracked() {
        const kxHostDocument_ptr drawing = host.open(short{1});
        trackers().push_back(new KxAddinDocument(drawing.get()));
        return drawing;
    }
    std::list<KxAddinDocument*>& trackers() { return DockWidgetApplicationState(*addin).documents; }
    std::size_t liveCount() {
        std::size_t count = 0;
        for (const KxAddinDocument* tracker : trackers()) {
            count += tracker->isAlive() ? 1 : 0;
        }
        return count;
    }
    void close(const kxHostDocument_ptr& drawing) const {
        host.application()->CloseDocument(drawing.get());
    }
    /// Whether an owner listens to none of the five events.
    static bool isUnheard(const kxHostDocument_ptr& drawing, void* owner) {
        std::vector<kxEventResult_e> results;
        for (const auto id : {kxDocument_DestroyNotify_id, kxDocument_FileSavePreNotify_id,
                              kxDocument_FileSavePostNotify_id, kxDocument_ModifyNotify_id}) {
            results.push_back(drawing->UnRegisterEvent(id, owner));
        }
        results.push_back(drawing->GetSelectionManager()->UnRegisterEvent(
            kxSelectionManager_SelectionChangedNotify_id, owner));
        return std::all_of(results.begin(), results.end(),
                           [](auto result) { return result == kxEventResult_NotRegistered; });
    }
    void click(const char* name) const {
        QTest::mouseClick(host.pane()->findChild<QAbstractButton*>(QLatin1String(name)),
                          Qt::LeftButton);
    }

    TestHost host;
    std::unique_ptr<DockWidgetApplication> addin =
        std::make_unique<DockWidgetApplication>(host.application(), "app");
};

/// A hook of somebody else, which lets the add-in look after its trackers.
struct Cleaner {
    std::function<void()> action;
    static bool hook(void* owner) {
        static_cast<Cleaner*>(owner)->action();
        return true;
    }
};

}  // namespace

TEST_F(Trackers, AreNotMadeByTheAddin) {
    host.open(short{1});
    host.open();
    EXPECT_THAT(trackers(), IsEmpty());
}

TEST_F(Trackers, OfClosedDrawingsAreDroppedInOnePassAndOthersKept) {
    std::vector<kxHostDocument_ptr> drawings;
    for (int i = 0; i < 20; ++i) {
        drawings.push_back(openTracked());
    }
    const std::vector<KxAddinDocument*> all(trackers().begin(), trackers().end());
    for (std::size_t i = 0; i < drawings.size(); i += 3) {
        close(drawings[i]);
    }
    EXPECT_EQ(liveCount(), 13U);
    EXPECT_THAT(trackers(), SizeIs(20)) << "they stay until they are looked for";
    addin->ReferenceOpenDocs();
    EXPECT_THAT(trackers(), SizeIs(13));
    EXPECT_EQ(liveCount(), 13U);
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        EXPECT_EQ(isUnheard(drawings[i], all[i]), i % 3 == 0) << i;
    }
}

TEST_F(Trackers, LiveAndDeadOnesAreUnregisteredAtTheEnd) {
    const kxHostDocument_ptr closed = openTracked();
    const kxHostDocument_ptr open = openTracked();
    close(closed);
    const std::vector<KxAddinDocument*> all(trackers().begin(), trackers().end());
    addin.reset();
    EXPECT_TRUE(isUnheard(closed, all[0]));
    EXPECT_TRUE(isUnheard(open, all[1]));
    host.add({pointObject(at(1, 1))});
    open->NotifyFileSavePost();
    close(open);
}

TEST_F(Trackers, MayBeDroppedWithinTheEventThatKillsThem) {
    for (const bool cleanerComesFirst : {true, false}) {
        Cleaner cleaner{[this] { addin->ReferenceOpenDocs(); }};
        const kxHostDocument_ptr drawing = host.open(short{1});
        const auto listen = [&] {
            drawing->RegisterEvent(kxDocument_DestroyNotify_id, &cleaner, &Cleaner::hook);
        };
        if (cleanerComesFirst) {
            listen();
        }
        trackers().push_back(new KxAddinDocument(drawing.get()));
        if (!cleanerComesFirst) {
            listen();
        }
        close(drawing);
        EXPECT_EQ(trackers().size(), cleanerComesFirst ? 1U : 0U);
        EXPECT_EQ(liveCount(), 0U);
        addin->ReferenceOpenDocs();
        EXPECT_THAT(trackers(), IsEmpty());
    }
}

TEST_F(Trackers, FollowDrawingsThatComeAndGoInAPrompt) {
    const kxHostDocument_ptr asked = openTracked();
    const kxHostDocument_ptr other = openTracked();
    host.application()->SetActiveDocument(asked.get());
    host.answer = [&](kxHostDocument_c& document, std::vector<kxObject_ptr>* /*chosen*/) {
        EXPECT_EQ(&document, asked.get());
        close(other);
        openTracked();
        close(asked);
        addin->ReferenceOpenDocs();
        return true;
    };
    click("generateGCodeBtn");
    EXPECT_THAT(host.prompts, SizeIs(1));
    EXPECT_THAT(trackers(), SizeIs(1));
    EXPECT_EQ(liveCount(), 1U);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 0 ", "Selected objects: 0 "));
}

TEST_F(Trackers, FollowDrawingsThatComeAndGoDuringAPlayback) {
    openTracked();
    host.select({lineObject(at(0, 0), at(5, 6)), pointObject(at(3, 4))});
    click("generateGCodeBtn");
    click("simulatePushButton");
    int ticks = 0;
    for (QTimer* timer : host.pane()->findChildren<QTimer*>()) {
        QObject::connect(timer, &QTimer::timeout, host.pane(), [&ticks] { ++ticks; });
    }
    for (int round = 0; round < 20; ++round) {
        const kxHostDocument_ptr drawing = openTracked();
        const int before = ticks;
        EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > before; }, 20000));
        close(drawing);
        addin->ReferenceOpenDocs();
        EXPECT_THAT(trackers(), SizeIs(1)) << round;
    }
    addin.reset();
    EXPECT_THAT(host.panes(), IsEmpty());
}
