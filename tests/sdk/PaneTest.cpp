// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxHostApplication.h>

#include <string>

namespace {

kxCustomPropertyControl_ptr makePane(const kxHostApplication_ptr& application) {
    kxCustomPropertyControl_ptr pane;
    application->CreateCustomPropertyControl2(
        "Title", kxCustomPropertyControlArea_Left,
        kxCustomPropertyControl_MayClose | kxCustomPropertyControl_MayFloat, &pane);
    return pane;
}

TEST(PaneWithoutAScreen, remembersWhetherItIsShown) {
    const kxCustomPropertyControl_ptr pane = makePane(kxCreateHostApplication({}));
    ASSERT_TRUE(pane);
    EXPECT_EQ(pane->GetHWND(), 0U);
    EXPECT_FALSE(pane->get_Visible());
    pane->put_Visible(true);
    EXPECT_TRUE(pane->get_Visible());
    pane->put_Visible(false);
    EXPECT_FALSE(pane->get_Visible());
}

TEST(PaneWithoutAScreen, isNeverShownAgainOnceDestroyed) {
    const kxCustomPropertyControl_ptr pane = makePane(kxCreateHostApplication({}));
    pane->put_Visible(true);
    pane->Destroy();
    EXPECT_FALSE(pane->get_Visible());
    pane->put_Visible(true);
    EXPECT_FALSE(pane->get_Visible());
    pane->Destroy();
}

class PaneTest : public testing::Test {
protected:
    static kxHostCallbacks recording(PaneTest& test) {
        kxHostCallbacks callbacks;
        callbacks.createPane = [&test](const kxPaneRequest& request) {
            test.m_request = request;
            return test.m_window;
        };
        callbacks.setPaneVisible = [&test](kxWindowHandle window, bool visible) {
            test.m_log += (visible ? "show " : "hide ") + std::to_string(window) + ";";
            test.m_shown = visible;
        };
        callbacks.isPaneVisible = [&test](kxWindowHandle) { return test.m_shown; };
        callbacks.destroyPane = [&test](kxWindowHandle window) {
            test.m_log += "destroy " + std::to_string(window) + ";";
        };
        return callbacks;
    }

    kxPaneRequest m_request;
    kxWindowHandle m_window = 42;
    bool m_shown = false;
    std::string m_log;
    kxHostApplication_ptr m_application = kxCreateHostApplication(recording(*this));
};

TEST_F(PaneTest, theHostHearsWhatIsWanted) {
    const kxCustomPropertyControl_ptr pane = makePane(m_application);
    ASSERT_TRUE(pane);
    EXPECT_EQ(pane->GetHWND(), 42U);
    EXPECT_EQ(m_request.title, kxString("Title"));
    EXPECT_EQ(m_request.area, kxCustomPropertyControlArea_Left);
    EXPECT_EQ(m_request.flags, 3);
    EXPECT_EQ(m_log, "");
}

TEST_F(PaneTest, showsHidesAndDestroysItsWindowOnce) {
    const kxCustomPropertyControl_ptr pane = makePane(m_application);
    pane->put_Visible(true);
    pane->put_Visible(false);
    pane->Destroy();
    pane->Destroy();
    EXPECT_EQ(m_log, "show 42;hide 42;destroy 42;");
}

TEST_F(PaneTest, isAskedAboutTheWindowThatTheUserMayHaveClosed) {
    const kxCustomPropertyControl_ptr pane = makePane(m_application);
    pane->put_Visible(true);
    EXPECT_TRUE(pane->get_Visible());
    m_shown = false;
    EXPECT_FALSE(pane->get_Visible());
    m_shown = true;
    EXPECT_TRUE(pane->get_Visible());
}

TEST_F(PaneTest, aDestroyedPaneHasNoWindowAndTouchesNone) {
    const kxCustomPropertyControl_ptr pane = makePane(m_application);
    pane->put_Visible(true);
    pane->Destroy();
    m_log.clear();
    EXPECT_EQ(pane->GetHWND(), 0U);
    EXPECT_FALSE(pane->get_Visible());
    pane->put_Visible(true);
    EXPECT_EQ(m_log, "");
}

TEST_F(PaneTest, isNullWhenTheHostMakesNoWindow) {
    kxCustomPropertyControl_ptr pane = makePane(m_application);
    m_window = 0;
    m_application->CreateCustomPropertyControl2("T", kxCustomPropertyControlArea_Right, 0, &pane);
    EXPECT_FALSE(pane);
}

TEST_F(PaneTest, outlivesItsApplication) {
    const kxCustomPropertyControl_ptr pane = makePane(m_application);
    m_application = nullptr;
    pane->Destroy();
    EXPECT_EQ(m_log, "destroy 42;");
}

}  // namespace
