// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What hooks may do from inside, for every event there is.
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Listener.h"

namespace {

/// The events, each with an object that sends it.
enum class Event {
    FileNew,
    FileOpenPost,
    ActiveDocumentChanged,
    Destroy,
    FileSavePre,
    FileSavePost,
    Modify,
    SelectionChanged,
    CommandExecute
};

constexpr Event kAll[] = {Event::FileNew, Event::FileOpenPost,     Event::ActiveDocumentChanged,
                          Event::Destroy, Event::FileSavePre,      Event::FileSavePost,
                          Event::Modify,  Event::SelectionChanged, Event::CommandExecute};
constexpr const char* kNames[] = {"FileNew", "FileOpenPost",     "ActiveDocumentChanged",
                                  "Destroy", "FileSavePre",      "FileSavePost",
                                  "Modify",  "SelectionChanged", "CommandExecute"};

/// An owner that dies in its own hook.
struct Mortal {
    std::function<void()> last;

    static bool hook(void* owner) {
        const std::unique_ptr<Mortal> self(static_cast<Mortal*>(owner));
        self->last();
        return true;
    }
};

template <class Owner>
bool savePreHook(void* owner, const kxString& /*fileName*/, kxDocumentSaveAsOption_e /*option*/) {
    return Owner::hook(owner);
}

class EventHooksTest : public testing::TestWithParam<Event> {
protected:
    EventHooksTest() {
        kxCreateCommandError_e error = kxCreateCommandError_NoError;
        m_command = m_application->CreateCommand("app", "_RUN", &error);
        m_application->SetActiveDocument(m_document.get());
        m_document->SetObjects({m_object});
    }

    template <class Owner>
    kxEventResult_e listen(Owner& owner) {
        if (GetParam() == Event::FileSavePre) {
            return m_document->RegisterEvent(kxDocument_FileSavePreNotify_id, &owner,
                                             savePreHook<Owner>);
        }
        return change([&owner](auto& object, auto id) {
            return object.RegisterEvent(id, &owner, Owner::hook);
        });
    }
    kxEventResult_e ignore(void* owner) {
        if (GetParam() == Event::FileSavePre) {
            return m_document->UnRegisterEvent(kxDocument_FileSavePreNotify_id, owner);
        }
        return change([owner](auto& object, auto id) { return object.UnRegisterEvent(id, owner); });
    }

    /// Makes the event happen.
    void send() {
        kxHostDocument_c* const document = m_document.get();
        switch (GetParam()) {
            case Event::FileNew:
            case Event::FileOpenPost:
                m_application->AddDocument("new", GetParam() == Event::FileOpenPost);
                break;
            case Event::ActiveDocumentChanged:
                m_application->NotifyActiveDocumentChanged();
                break;
            case Event::Destroy:
                m_application->CloseDocument(document);
                break;
            case Event::FileSavePre:
                document->NotifyFileSavePre("a.dxf", kxDocumentSaveAs_Same);
                break;
            case Event::FileSavePost:
                document->NotifyFileSavePost();
                break;
            case Event::Modify:
                document->SetObjects({m_object});
                break;
            case Event::SelectionChanged:
                document->SetSelection(kxSelectionSetType_Current, otherSelection());
                break;
            case Event::CommandExecute:
                m_application->RunCommand("_RUN");
                break;
        }
    }
    /// A drawing is destroyed once; all else can happen again.
    bool happensAgain() const { return GetParam() != Event::Destroy; }

    kxHostApplication_ptr m_application = kxCreateHostApplication({});
    kxHostDocument_ptr m_document = m_application->AddDocument("plate.dxf", true);
    Listener m_first;
    Listener m_second;
    Listener m_third;

private:
    template <class Change>
    kxEventResult_e change(const Change& to) {
        switch (GetParam()) {
            case Event::FileNew:
                return to(*m_application, kxApplication_FileNewNotify_id);
            case Event::FileOpenPost:
                return to(*m_application, kxApplication_FileOpenPostNotify_id);
            case Event::ActiveDocumentChanged:
                return to(*m_application, kxApplication_ActiveDocumentChangedNotify_id);
            case Event::Destroy:
                return to(*m_document, kxDocument_DestroyNotify_id);
            case Event::FileSavePost:
                return to(*m_document, kxDocument_FileSavePostNotify_id);
            case Event::Modify:
                return to(*m_document, kxDocument_ModifyNotify_id);
            case Event::SelectionChanged:
                return to(*m_document->GetSelectionManager(),
                          kxSelectionManager_SelectionChangedNotify_id);
            case Event::CommandExecute:
                return to(*m_command, kxCommand_ExecuteNotify_id);
            case Event::FileSavePre:
                break;
        }
        return kxEventResult_UnknownEvent;
    }
    std::vector<kxObject_ptr> otherSelection() const {
        const bool isSelected = !m_document->GetSelection(kxSelectionSetType_Current).empty();
        return isSelected ? std::vector<kxObject_ptr>() : std::vector<kxObject_ptr>{m_object};
    }

    kxObject_ptr m_object = kxCreatePoint("0", {1, 2, 0});
    kxCommand_ptr m_command;
};

TEST_P(EventHooksTest, oneMayUnregisterItself) {
    listen(m_first);
    listen(m_second);
    m_first.action = [this] {
        EXPECT_EQ(ignore(&m_first), kxEventResult_Success);
        EXPECT_EQ(ignore(&m_first), kxEventResult_NotRegistered);
    };
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_second.calls, 1);
    if (happensAgain()) {
        send();
        EXPECT_EQ(m_first.calls, 1);
        EXPECT_EQ(m_second.calls, 2);
    }
}

TEST_P(EventHooksTest, oneMayUnregisterThoseOfOthers) {
    listen(m_first);
    listen(m_second);
    listen(m_third);
    m_second.action = [this] {
        EXPECT_EQ(ignore(&m_first), kxEventResult_Success);
        EXPECT_EQ(ignore(&m_third), kxEventResult_Success);
    };
    send();
    EXPECT_EQ(m_first.calls, 1) << "was called before";
    EXPECT_EQ(m_second.calls, 1);
    EXPECT_EQ(m_third.calls, 0) << "its turn had not come";
    if (happensAgain()) {
        m_second.action = nullptr;
        send();
        EXPECT_EQ(m_first.calls, 1);
        EXPECT_EQ(m_second.calls, 2);
        EXPECT_EQ(m_third.calls, 0);
    }
}

TEST_P(EventHooksTest, oneMayUnregisterAllAndDie) {
    auto* const mortal = new Mortal;
    listen(*mortal);
    listen(m_second);
    listen(m_third);
    mortal->last = [this, mortal] {
        EXPECT_EQ(ignore(mortal), kxEventResult_Success);
        EXPECT_EQ(ignore(&m_second), kxEventResult_Success);
        EXPECT_EQ(ignore(&m_third), kxEventResult_Success);
        ++m_first.calls;
    };
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_second.calls, 0);
    EXPECT_EQ(m_third.calls, 0);
    if (happensAgain()) {
        send();
        EXPECT_EQ(m_first.calls, 1);
        EXPECT_EQ(m_second.calls, 0);
    }
}

TEST_P(EventHooksTest, oneMayRegisterOthersForTheNextTime) {
    listen(m_first);
    m_first.action = [this] {
        EXPECT_EQ(listen(m_second), kxEventResult_Success);
        EXPECT_EQ(listen(m_first), kxEventResult_AlreadyRegistered);
    };
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_second.calls, 0);
    if (happensAgain()) {
        m_first.action = nullptr;
        send();
        EXPECT_EQ(m_first.calls, 2);
        EXPECT_EQ(m_second.calls, 1);
    }
}

TEST_P(EventHooksTest, oneMayMakeTheEventHappenAgain) {
    listen(m_first);
    listen(m_second);
    m_first.action = [this] {
        if (m_first.calls == 1) {
            send();
        }
    };
    send();
    EXPECT_EQ(m_first.calls, happensAgain() ? 2 : 1);
    EXPECT_EQ(m_second.calls, happensAgain() ? 2 : 1);
}

TEST_P(EventHooksTest, oneMayCloseTheDrawingThatNobodyElseHolds) {
    listen(m_first);
    listen(m_second);
    m_first.action = [this] {
        kxHostDocument_c* const closing = m_document.get();
        m_document = nullptr;
        m_application->CloseDocument(closing);
    };
    send();
    EXPECT_GE(m_first.calls, 1);
    EXPECT_GE(m_second.calls, 1);
    for (const kxHostDocument_ptr& open : m_application->GetDocuments()) {
        EXPECT_EQ(open->GetName(), kxString("new"));
    }
}

INSTANTIATE_TEST_SUITE_P(AllEvents, EventHooksTest, testing::ValuesIn(kAll), [](const auto& event) {
    return std::string(kNames[static_cast<int>(event.param)]);
});

}  // namespace
