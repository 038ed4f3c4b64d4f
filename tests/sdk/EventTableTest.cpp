// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxHostApplication.h>

#include <string>

#include "Listener.h"

namespace {

constexpr auto kChanged = kxApplication_ActiveDocumentChangedNotify_id;

class EventTableTest : public testing::Test {
protected:
    kxEventResult_e listen(Listener& listener) {
        return m_application->RegisterEvent(kChanged, &listener, Listener::hook);
    }
    kxEventResult_e ignore(Listener& listener) {
        return m_application->UnRegisterEvent(kChanged, &listener);
    }
    void send() { m_application->NotifyActiveDocumentChanged(); }

    kxHostApplication_ptr m_application = kxCreateHostApplication({});
    Listener m_first;
    Listener m_second;
    Listener m_third;
};

TEST_F(EventTableTest, callsWhatIsRegisteredWithItsOwner) {
    EXPECT_EQ(listen(m_first), kxEventResult_Success);
    send();
    send();
    EXPECT_EQ(m_first.calls, 2);
    EXPECT_EQ(m_second.calls, 0);
}

TEST_F(EventTableTest, callsInTheOrderOfRegistration) {
    std::string order;
    m_first.action = [&] { order += '1'; };
    m_second.action = [&] { order += '2'; };
    m_third.action = [&] { order += '3'; };
    listen(m_third);
    listen(m_first);
    listen(m_second);
    send();
    EXPECT_EQ(order, "312");
}

TEST_F(EventTableTest, aSecondRegistrationOfTheSameOwnerChangesNothing) {
    listen(m_first);
    EXPECT_EQ(listen(m_first), kxEventResult_AlreadyRegistered);
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(ignore(m_first), kxEventResult_Success);
    send();
    EXPECT_EQ(m_first.calls, 1);
}

TEST_F(EventTableTest, whatIsUnregisteredIsNotCalledAndMayComeBack) {
    listen(m_first);
    EXPECT_EQ(ignore(m_first), kxEventResult_Success);
    EXPECT_EQ(ignore(m_first), kxEventResult_NotRegistered);
    send();
    EXPECT_EQ(m_first.calls, 0);
    EXPECT_EQ(listen(m_first), kxEventResult_Success);
    send();
    EXPECT_EQ(m_first.calls, 1);
}

TEST_F(EventTableTest, eventsOfOneOwnerAreApart) {
    EXPECT_EQ(
        m_application->RegisterEvent(kxApplication_FileNewNotify_id, &m_first, Listener::hook),
        kxEventResult_Success);
    EXPECT_EQ(ignore(m_first), kxEventResult_NotRegistered);
    EXPECT_EQ(listen(m_first), kxEventResult_Success);
    EXPECT_EQ(m_application->UnRegisterEvent(kxApplication_FileNewNotify_id, &m_first),
              kxEventResult_Success);
    send();
    EXPECT_EQ(m_first.calls, 1);
}

TEST_F(EventTableTest, aHookMayUnregisterItself) {
    listen(m_first);
    listen(m_second);
    m_first.action = [&] { EXPECT_EQ(ignore(m_first), kxEventResult_Success); };
    send();
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_second.calls, 2);
}

TEST_F(EventTableTest, aHookThatIsUnregisteredBeforeItsTurnIsNotCalled) {
    listen(m_first);
    listen(m_second);
    listen(m_third);
    m_first.action = [&] { ignore(m_second); };
    send();
    EXPECT_EQ(m_second.calls, 0);
    EXPECT_EQ(m_third.calls, 1);
}

TEST_F(EventTableTest, unregisteringOneThatWasCalledAlreadySkipsNobody) {
    listen(m_first);
    listen(m_second);
    listen(m_third);
    m_second.action = [&] { ignore(m_first); };
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_third.calls, 1);
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_third.calls, 2);
}

TEST_F(EventTableTest, aHookRegisteredFromInsideIsCalledFromTheNextEventOn) {
    listen(m_first);
    m_first.action = [&] { listen(m_second); };
    send();
    EXPECT_EQ(m_second.calls, 0);
    send();
    EXPECT_EQ(m_second.calls, 1);
}

TEST_F(EventTableTest, unregisteringAndComingBackFromInsideWaitsForTheNextEvent) {
    listen(m_first);
    listen(m_second);
    m_first.action = [&] {
        ignore(m_second);
        listen(m_second);
    };
    send();
    EXPECT_EQ(m_second.calls, 0);
    m_first.action = nullptr;
    send();
    EXPECT_EQ(m_second.calls, 1);
}

TEST_F(EventTableTest, anOwnerMayDieInItsOwnHook) {
    auto* owner = new Listener;
    listen(*owner);
    listen(m_second);
    owner->action = [this, owner] {
        ignore(*owner);
        m_first.calls = owner->calls;
    };
    send();
    delete owner;
    send();
    EXPECT_EQ(m_first.calls, 1);
    EXPECT_EQ(m_second.calls, 2);
}

TEST_F(EventTableTest, anEventMayBeSentFromInsideAHook) {
    listen(m_first);
    listen(m_second);
    m_first.action = [&] {
        if (m_first.calls == 1) {
            send();
        }
    };
    send();
    EXPECT_EQ(m_first.calls, 2);
    EXPECT_EQ(m_second.calls, 2);
}

TEST_F(EventTableTest, aHookThatSaysNoKeepsNobodyFromBeingCalled) {
    m_first.answer = false;
    listen(m_first);
    listen(m_second);
    send();
    EXPECT_EQ(m_second.calls, 1);
}

TEST_F(EventTableTest, noHookAndUnknownEventsAreRefused) {
    EXPECT_EQ(m_application->RegisterEvent(kChanged, &m_first, nullptr),
              kxEventResult_UnknownEvent);
    const auto unknown = static_cast<kxApplicationEvent_e>(3);
    EXPECT_EQ(m_application->RegisterEvent(unknown, &m_first, Listener::hook),
              kxEventResult_UnknownEvent);
    EXPECT_EQ(m_application->UnRegisterEvent(unknown, &m_first), kxEventResult_NotRegistered);
}

TEST_F(EventTableTest, eventNumbersAreFixed) {
    EXPECT_EQ(kxApplication_FileNewNotify_id, 1);
    EXPECT_EQ(kxApplication_FileOpenPostNotify_id, 2);
    EXPECT_EQ(kxApplication_ActiveDocumentChangedNotify_id, 5);
    EXPECT_EQ(kxCommand_ExecuteNotify_id, 1);
}

}  // namespace
