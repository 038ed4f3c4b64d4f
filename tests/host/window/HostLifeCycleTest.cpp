// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Drawings, the pane and the window come and go while the add-in is at work.
#include <functional>
#include <string>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "commandline/SelectionPrompt.h"
#include "view/DrawingView.h"
#include "window/Drawings.h"
#include "window/HostSession.h"

namespace {

class HostLifeCycle : public HostWindowTest {
protected:
    /// The timer of the add-in's playback, with its ticks counted.
    QTimer* playback() {
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (QByteArray(widget->metaObject()->className()) == "OGLWindow") {
                return widget->findChild<QTimer*>();
            }
        }
        ADD_FAILURE() << "there is no preview";
        return nullptr;
    }
    QDockWidget* pane() const { return window->findChild<QDockWidget*>("pane G-code Generator"); }

    /// Makes a program of all that is in the drawing and plays it.
    void play() {
        type("SELECTALL");
        click("generateGCodeBtn");
        click("simulatePushButton");
        QObject::connect(playback(), &QTimer::timeout, window.get(), [this] { ++m_ticks; });
        expectItPlays("from the start");
    }
    void expectItPlays(const char* when) {
        const int before = m_ticks;
        EXPECT_TRUE(waitUntil([&] { return m_ticks >= before + 5; })) << when;
    }
    /// Clicks the button that a user closes the pane with.
    void closeThePane() const {
        auto* const button = pane()->findChild<QAbstractButton*>("qt_dockwidget_closebutton");
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_FALSE(pane()->isVisible());
    }
    void expectItGenerates() {
        const auto count = [this] { return said().count("Selected objects: 4"); };
        const auto before = count();
        type("SELECTALL");
        click("generateGCodeBtn");
        EXPECT_EQ(count(), before + 1);
    }
    void expectTheWindowIsGone() {
        EXPECT_TRUE(waitUntil([this] { return !window->isVisible(); }));
        EXPECT_EQ(window->session()->addinCount(), 0U);
        EXPECT_TRUE(window->session()->application()->GetDocuments().empty());
        EXPECT_TRUE(window->session()->application()->GetCommandNames().empty());
    }

    /// Runs the program as `main` does, until it ends: a click opens a dialog of the add-in, and a
    /// step happens while it is open.
    void runWithDialog(const char* button, const std::function<void(QDialog*)>& step) {
        bool happened = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && dialog->isVisible() && !happened) {
                happened = true;
                step(dialog);
            }
        });
        timer.start(10);
        QTimer::singleShot(0, window.get(), [&] { click(button); });
        QTimer::singleShot(20000, &timer, [] { QCoreApplication::exit(1); });
        EXPECT_EQ(QApplication::exec(), 0) << "the program did not end";
        EXPECT_TRUE(happened) << "no dialog came";
    }

private:
    int m_ticks = 0;
};

const char* const kDialogButtons[] = {"saveBtn", "appendPushButton", "selectFileBtn"};

}  // namespace

TEST_F(HostLifeCycle, DrawingsAreOpenedAndClosedDuringAPlayback) {
    const QString mixed = writeMixed();
    open(example("flange.dxf"));
    play();
    for (int round = 0; round < 10; ++round) {
        open(mixed);
        expectItPlays("with a drawing more");
        type("CLOSE");
        expectItPlays("with a drawing less");
    }
    type("CLOSE");
    EXPECT_EQ(tab(), nullptr);
    expectItPlays("without a drawing");
    open(mixed);
    expectItGenerates();
    expectItPlays("with a new program");
    click("StopSimulationButton");
    EXPECT_FALSE(playback()->isActive());
}

TEST_F(HostLifeCycle, ADrawingIsReadAgainDuringAPlayback) {
    const QString mixed = writeMixed();
    open(mixed);
    play();
    type("RELOAD");
    expectItPlays("after the reload");
    expectItGenerates();
}

TEST_F(HostLifeCycle, ThePaneIsClosedByItsButtonDuringAPlayback) {
    open(writeMixed());
    play();
    closeThePane();
    expectItPlays("hidden");
    type("CLOSE");
    expectItPlays("hidden, without a drawing");
    open(writeMixed());
    type("_GCODE");
    EXPECT_TRUE(pane()->isVisible());
    expectItPlays("shown again");
    expectItGenerates();
    click("PauseSimulationButton");
    closeThePane();
    type("_GCODE");
    click("simulatePushButton");
    expectItPlays("resumed");
}

TEST_F(HostLifeCycle, AFloatingPaneIsClosedDuringAPlayback) {
    open(writeMixed());
    play();
    pane()->setFloating(true);
    expectItPlays("floating");
    closeThePane();
    expectItPlays("floating and hidden");
    type("_GCODE");
    pane()->setFloating(false);
    expectItPlays("docked again");
    expectItGenerates();
}

TEST_F(HostLifeCycle, TheWindowIsClosedDuringAPlayback) {
    for (const bool paneIsOpen : {true, false}) {
        open(writeMixed());
        play();
        if (!paneIsOpen) {
            closeThePane();
        }
        const QPointer<QTimer> timer = playback();
        window->close();
        expectTheWindowIsGone();
        EXPECT_EQ(timer, nullptr);
        stop();
        start();
    }
}

TEST_F(HostLifeCycle, QuitInAPromptDuringAPlaybackEndsAll) {
    open(example("flange.dxf"));
    open(writeMixed());
    play();
    type("CLEAR");
    generateAndThen([this] {
        expectItPlays("while the prompt waits");
        type("QUIT");
    });
    expectTheWindowIsGone();
}

TEST_F(HostLifeCycle, DrawingsAreOpenedAndClosedInAPrompt) {
    const QString mixed = writeMixed();
    open(mixed);
    for (int round = 0; round < 5; ++round) {
        const QPointer<DrawingTab> first = tab();
        generateAndThen([&] {
            window->drawings()->open({example("flange.dxf")});
            window->drawings()->close(first);
            window->drawings()->open({mixed});
            EXPECT_EQ(tab(), first) << "nothing changes under the add-in";
        });
        ASSERT_TRUE(waitUntil([&] { return window->drawings()->all().size() == 2 && !first; }));
        EXPECT_FALSE(window->prompt()->isActive());
        window->drawings()->close(window->drawings()->find(example("flange.dxf")));
        ASSERT_TRUE(waitUntil([&] { return window->drawings()->all().size() == 1; }));
    }
    expectItGenerates();
}

TEST_F(HostLifeCycle, TheSessionEndsWhileADialogOfTheAddinIsOpen) {
    for (const char* button : kDialogButtons) {
        open(writeMixed());
        // What the toolkit does at the end of a session: the dialog first, then the windows.
        runWithDialog(button, [](QDialog*) { QApplication::closeAllWindows(); });
        stop();
        start();
    }
}

TEST_F(HostLifeCycle, TheProgramEndsWhileADialogOfTheAddinIsOpen) {
    for (const char* button : kDialogButtons) {
        open(writeMixed());
        runWithDialog(button, [](QDialog*) { QCoreApplication::quit(); });
        stop();
        start();
    }
}

TEST_F(HostLifeCycle, TheWindowIsClosedUnderADialogOfTheAddin) {
    for (const char* button : kDialogButtons) {
        open(writeMixed());
        runWithDialog(button, [this](QDialog*) {
            window->close();
            EXPECT_FALSE(window->isVisible());
            EXPECT_EQ(window->session()->addinCount(), 1U) << "its code has not returned";
        });
        stop();
        start();
    }
}

TEST_F(HostLifeCycle, TheWindowIsDestroyedUnderADialogOfTheAddin) {
    for (const char* button : kDialogButtons) {
        open(writeMixed());
        runWithDialog(button, [this](QDialog*) {
            window.reset();
            QCoreApplication::quit();
        });
        start();
    }
}
