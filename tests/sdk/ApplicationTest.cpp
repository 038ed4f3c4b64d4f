// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include "Listener.h"

namespace {

class ApplicationTest : public testing::Test {
protected:
    kxHostDocument_ptr add(const char* name) { return m_application->AddDocument(name, false); }
    void listen(kxApplicationEvent_e id) {
        m_application->RegisterEvent(id, &m_listener, Listener::hook);
    }
    void onDestroy(const kxHostDocument_ptr& document, Listener& listener) {
        document->RegisterEvent(kxDocument_DestroyNotify_id, &listener, Listener::hook);
    }
    std::string names() const {
        std::string all;
        for (const kxHostDocument_ptr& document : m_application->GetDocuments()) {
            all += document->GetName().toUtf8();
        }
        return all;
    }

    kxHostApplication_ptr m_application = kxCreateHostApplication({});
    Listener m_listener;
};

TEST_F(ApplicationTest, addingADrawingSendsNewOrOpenedAndKeepsTheActiveOne) {
    Listener opened;
    listen(kxApplication_FileNewNotify_id);
    m_application->RegisterEvent(kxApplication_FileOpenPostNotify_id, &opened, Listener::hook);
    m_listener.action = [this] { EXPECT_EQ(names(), "a"); };
    add("a");
    EXPECT_EQ(m_listener.calls, 1);
    EXPECT_EQ(opened.calls, 0);
    m_application->AddDocument("b", true);
    EXPECT_EQ(m_listener.calls, 1);
    EXPECT_EQ(opened.calls, 1);
    EXPECT_FALSE(m_application->GetActiveDocument());
    EXPECT_FALSE(m_application->GetActiveHostDocument());
}

TEST_F(ApplicationTest, activatingSendsTheEventOnlyForAChange) {
    const kxHostDocument_ptr a = add("a");
    listen(kxApplication_ActiveDocumentChangedNotify_id);
    m_listener.action = [&] { EXPECT_TRUE(m_application->GetActiveDocument() == a); };
    EXPECT_TRUE(m_application->SetActiveDocument(a.get()));
    EXPECT_TRUE(m_application->SetActiveDocument(a.get()));
    EXPECT_EQ(m_listener.calls, 1);
    m_application->NotifyActiveDocumentChanged();
    EXPECT_EQ(m_listener.calls, 2);
}

TEST_F(ApplicationTest, aDrawingThatIsNotOpenHereIsNotActivatedAndNotClosed) {
    const kxHostDocument_ptr a = add("a");
    m_application->SetActiveDocument(a.get());
    const kxHostDocument_ptr foreign = kxCreateHostApplication({})->AddDocument("f", false);
    EXPECT_FALSE(m_application->SetActiveDocument(foreign.get()));
    EXPECT_FALSE(m_application->SetActiveDocument(nullptr));
    EXPECT_FALSE(m_application->CloseDocument(foreign.get()));
    EXPECT_FALSE(m_application->CloseDocument(nullptr));
    EXPECT_TRUE(m_application->GetActiveHostDocument() == a);
    EXPECT_TRUE(m_application->CloseDocument(a.get()));
    EXPECT_FALSE(m_application->CloseDocument(a.get()));
}

TEST_F(ApplicationTest, theDestroyEventComesBeforeAnythingGoes) {
    const kxHostDocument_ptr a = add("a");
    a->SetObjects({kxCreatePoint("0", {})});
    m_application->SetActiveDocument(a.get());
    onDestroy(a, m_listener);
    m_listener.action = [&] {
        EXPECT_EQ(names(), "a");
        EXPECT_TRUE(m_application->GetActiveHostDocument() == a);
        EXPECT_EQ(a->GetObjects().size(), 1U);
    };
    EXPECT_TRUE(m_application->CloseDocument(a.get()));
    EXPECT_EQ(m_listener.calls, 1);
    EXPECT_EQ(names(), "");
}

TEST_F(ApplicationTest, closingTheActiveDrawingActivatesTheNextElseTheOneBefore) {
    const kxHostDocument_ptr a = add("a");
    const kxHostDocument_ptr b = add("b");
    const kxHostDocument_ptr c = add("c");
    m_application->SetActiveDocument(b.get());
    listen(kxApplication_ActiveDocumentChangedNotify_id);
    m_application->CloseDocument(b.get());
    EXPECT_TRUE(m_application->GetActiveHostDocument() == c);
    EXPECT_EQ(m_listener.calls, 1);
    m_application->CloseDocument(c.get());
    EXPECT_TRUE(m_application->GetActiveHostDocument() == a);
    EXPECT_EQ(m_listener.calls, 2);
}

TEST_F(ApplicationTest, closingTheLastDrawingLeavesNoneAndSendsTheEvent) {
    const kxHostDocument_ptr a = add("a");
    m_application->SetActiveDocument(a.get());
    listen(kxApplication_ActiveDocumentChangedNotify_id);
    m_listener.action = [this] { EXPECT_FALSE(m_application->GetActiveDocument()); };
    m_application->CloseDocument(a.get());
    EXPECT_EQ(m_listener.calls, 1);
}

TEST_F(ApplicationTest, closingADrawingInTheBackgroundChangesNoActiveOne) {
    const kxHostDocument_ptr a = add("a");
    const kxHostDocument_ptr b = add("b");
    m_application->SetActiveDocument(b.get());
    listen(kxApplication_ActiveDocumentChangedNotify_id);
    m_application->CloseDocument(a.get());
    EXPECT_TRUE(m_application->GetActiveHostDocument() == b);
    EXPECT_EQ(m_listener.calls, 0);
}

TEST_F(ApplicationTest, aDrawingClosedAgainFromItsDestroyHookIsToldOnce) {
    const kxHostDocument_ptr a = add("a");
    m_application->SetActiveDocument(a.get());
    onDestroy(a, m_listener);
    m_listener.action = [&] {
        if (m_listener.calls < 5) {
            EXPECT_FALSE(m_application->CloseDocument(a.get()));
        }
    };
    EXPECT_TRUE(m_application->CloseDocument(a.get()));
    EXPECT_EQ(m_listener.calls, 1);
    EXPECT_EQ(names(), "");
    EXPECT_FALSE(m_application->GetActiveHostDocument());
}

TEST_F(ApplicationTest, aDestroyHookMayCloseOtherDrawings) {
    const kxHostDocument_ptr a = add("a");
    const kxHostDocument_ptr b = add("b");
    add("c");
    const kxHostDocument_ptr d = add("d");
    m_application->SetActiveDocument(b.get());
    onDestroy(b, m_listener);
    m_listener.action = [&] {
        m_application->CloseDocument(a.get());
        m_application->CloseDocument(m_application->GetDocuments()[1].get());
    };
    m_application->CloseDocument(b.get());
    EXPECT_EQ(names(), "d");
    EXPECT_TRUE(m_application->GetActiveHostDocument() == d);
}

TEST_F(ApplicationTest, drawingsThatCloseEachOtherAreToldOnceEach) {
    const kxHostDocument_ptr a = add("a");
    const kxHostDocument_ptr b = add("b");
    Listener other;
    onDestroy(a, m_listener);
    onDestroy(b, other);
    m_listener.action = [&] { m_application->CloseDocument(b.get()); };
    other.action = [&] { m_application->CloseDocument(a.get()); };
    m_application->CloseDocument(a.get());
    EXPECT_EQ(m_listener.calls, 1);
    EXPECT_EQ(other.calls, 1);
    EXPECT_EQ(names(), "");
}

TEST_F(ApplicationTest, anOwnerMayUnregisterFromTheClosingDrawing) {
    const kxHostDocument_ptr a = add("a");
    onDestroy(a, m_listener);
    m_listener.action = [&] {
        EXPECT_EQ(a->UnRegisterEvent(kxDocument_DestroyNotify_id, &m_listener),
                  kxEventResult_Success);
    };
    m_application->CloseDocument(a.get());
    EXPECT_EQ(m_listener.calls, 1);
}

TEST_F(ApplicationTest, helpSettingsComeBack) {
    EXPECT_FALSE(m_application->IsWebHelpEnabled());
    EXPECT_EQ(m_application->GetLanguage(), 2);
    EXPECT_TRUE(m_application->GetSystemFiles()->get_HelpFile().empty());
    m_application->SetHelp({true, "https://help.example/", 1, "/usr/share/doc/help.chm"});
    EXPECT_TRUE(m_application->IsWebHelpEnabled());
    EXPECT_EQ(m_application->GetWebLink(), kxString("https://help.example/"));
    EXPECT_EQ(m_application->GetLanguage(), 1);
    EXPECT_EQ(m_application->GetSystemFiles()->get_HelpFile(), kxString("/usr/share/doc/help.chm"));
}

TEST_F(ApplicationTest, withoutCallbacksLinesPromptsAndHelpGoNowhere) {
    m_application->SetActiveDocument(add("a").get());
    m_application->GetCommandMessage()->PrintLine("nobody reads this");
    m_application->OpenWebHelp("https://help.example/");
    m_application->OpenChmHelp(1, "help.chm");
    bool result = true;
    m_application->GetCommandMessage()->PromptForSelection(false, "Select", "", &result);
    EXPECT_FALSE(result);
}

TEST(ApplicationCallbacks, linesAndHelpReachTheHost) {
    std::string said;
    kxHostCallbacks callbacks;
    callbacks.printLine = [&](const kxString& line) { said += line.toUtf8() + ";"; };
    callbacks.openWebHelp = [&](const kxString& address) { said += address.toUtf8() + ";"; };
    callbacks.openLocalHelp = [&](long topic, const kxString& path) {
        said += std::to_string(topic) + path.toUtf8() + ";";
    };
    const kxHostApplication_ptr application = kxCreateHostApplication(callbacks);
    application->GetCommandMessage()->PrintLine("line");
    application->OpenWebHelp("web");
    application->OpenChmHelp(2250, "local");
    EXPECT_EQ(said, "line;web;2250local;");
}

class PromptTest : public testing::Test {
protected:
    static kxHostCallbacks answering(PromptTest& test) {
        kxHostCallbacks callbacks;
        callbacks.promptForSelection = [&test](kxHostDocument_c& document,
                                               const kxSelectionRequest& request,
                                               std::vector<kxObject_ptr>* chosen) {
            ++test.m_asked;
            test.m_request = request;
            EXPECT_EQ(document.GetName(), kxString("a"));
            *chosen = test.m_chosen;
            if (test.m_during) {
                test.m_during();
            }
            return test.m_answer;
        };
        return callbacks;
    }
    void SetUp() override {
        m_document->SetObjects({m_point, m_line});
        m_application->SetActiveDocument(m_document.get());
    }
    bool prompt() {
        bool result = !m_answer;
        m_application->GetCommandMessage()->PromptForSelection(true, "Pick one", "All", &result);
        return result;
    }
    const std::vector<kxObject_ptr>& previous() const {
        return m_document->GetSelection(kxSelectionSetType_Previous);
    }

    int m_asked = 0;
    bool m_answer = true;
    kxSelectionRequest m_request;
    std::function<void()> m_during;
    kxObject_ptr m_point = kxCreatePoint("0", {});
    kxObject_ptr m_line = kxCreateLine("0", {}, {});
    std::vector<kxObject_ptr> m_chosen;
    kxHostApplication_ptr m_application = kxCreateHostApplication(answering(*this));
    kxHostDocument_ptr m_document = m_application->AddDocument("a", false);
};

TEST_F(PromptTest, theChosenObjectsBecomeThePreviousSet) {
    m_document->SetSelection(kxSelectionSetType_Current, {m_point});
    m_chosen = {m_line, m_point, m_line};
    EXPECT_TRUE(prompt());
    EXPECT_EQ(previous(), (std::vector<kxObject_ptr>{m_line, m_point}));
    EXPECT_EQ(m_document->GetSelection(kxSelectionSetType_Current),
              std::vector<kxObject_ptr>{m_point});
    EXPECT_TRUE(m_request.single);
    EXPECT_EQ(m_request.prompt, kxString("Pick one"));
    EXPECT_EQ(m_request.keyword, kxString("All"));
}

TEST_F(PromptTest, aCancelledPromptLeavesThePreviousSet) {
    m_document->SetSelection(kxSelectionSetType_Previous, {m_point});
    m_chosen = {m_line};
    m_answer = false;
    EXPECT_FALSE(prompt());
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(previous(), std::vector<kxObject_ptr>{m_point});
}

TEST_F(PromptTest, endingWithNothingChosenEmptiesThePreviousSet) {
    m_document->SetSelection(kxSelectionSetType_Previous, {m_point});
    EXPECT_TRUE(prompt());
    EXPECT_TRUE(previous().empty());
}

TEST_F(PromptTest, withoutAnActiveDrawingNobodyIsAsked) {
    m_application->CloseDocument(m_document.get());
    bool result = true;
    m_application->GetCommandMessage()->PromptForSelection(false, "", "", &result);
    EXPECT_FALSE(result);
    EXPECT_EQ(m_asked, 0);
}

TEST_F(PromptTest, theDrawingMayCloseMeanwhile) {
    m_chosen = {m_line};
    m_during = [this] {
        m_application->CloseDocument(m_document.get());
        m_document = nullptr;
    };
    prompt();
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(m_line->GetRefCount(), 2) << "the test's own two";
}

}  // namespace
