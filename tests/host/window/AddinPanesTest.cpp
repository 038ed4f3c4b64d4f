// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/AddinPanes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDockWidget>
#include <QGLWidget>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

#include <kx/kxApplication.h>

#include "Waiting.h"

namespace {

constexpr long kBoth = kxCustomPropertyControl_MayClose | kxCustomPropertyControl_MayFloat;

/// What is seen on the screen in the middle of a widget.
QColor seenAt(const QWidget& widget, const QPoint& place) {
    const QPoint global = widget.mapToGlobal(place);
    return QColor(QApplication::primaryScreen()
                      ->grabWindow(0, global.x(), global.y(), 1, 1)
                      .toImage()
                      .pixel(0, 0));
}

QColor seenIn(const QWidget& widget) {
    return seenAt(widget, widget.rect().center());
}

QWidget* coloured(const char* color) {
    auto* const label = new QLabel;
    label->setStyleSheet(QString("background: %1").arg(color));
    return label;
}

class GlView : public QGLWidget {
public:
    using QGLWidget::QGLWidget;

protected:
    void paintGL() override {
        glClearColor(1, 0, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }
};

class AddinPanesTest : public testing::Test {
protected:
    void SetUp() override {
        window = std::make_unique<QMainWindow>();
        window->setGeometry(50, 50, 1100, 600);
        window->setCentralWidget(new QLabel("centre"));
        window->statusBar()->showMessage("status");
        panes = new AddinPanes(window.get());
    }

    /// A pane as the add-in makes its own.
    kxWindowHandle make(const char* title = "G-code Generator", long flags = kBoth,
                        kxCustomPropertyControlArea_e area = kxCustomPropertyControlArea_Right) {
        const kxWindowHandle handle = panes->create({kxString(title), area, flags});
        content(handle)->setMinimumWidth(AddinPanes::kPaneWidth);
        auto* const layout = new QVBoxLayout(content(handle));
        layout->setSizeConstraint(QLayout::SetMaximumSize);
        return handle;
    }
    void fill(kxWindowHandle handle, QWidget* inside) {
        content(handle)->layout()->addWidget(inside);
        panes->setVisible(handle, true);
    }
    void showWindow() {
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    static QWidget* content(kxWindowHandle handle) {
        QWidget* const widget = QWidget::find(static_cast<WId>(handle));
        EXPECT_NE(widget, nullptr) << "the handle is no window";
        return widget;
    }
    QDockWidget* dock(std::size_t index = 0) const { return panes->docks().at(index); }
    /// Puts both into one place, and waits for their tabs: before these are there nothing is
    /// raised.
    void tabify(QDockWidget* below, QDockWidget* above) const {
        window->tabifyDockWidget(below, above);
        EXPECT_TRUE(waitUntil([this] {
            const auto* const bar = window->findChild<QTabBar*>();
            return bar != nullptr && bar->isVisible() && bar->count() == 2;
        }));
    }
    /// A dock of the host's own in one place with the first pane.
    QDockWidget* addGreenTab() const {
        auto* const other = new QDockWidget("Other", window.get());
        other->setWidget(coloured("#00ff00"));
        window->addDockWidget(Qt::RightDockWidgetArea, other);
        tabify(dock(), other);
        return other;
    }
    QScrollArea* area(std::size_t index = 0) const {
        return qobject_cast<QScrollArea*>(dock(index)->widget());
    }

    std::unique_ptr<QMainWindow> window;
    AddinPanes* panes = nullptr;
};

TEST_F(AddinPanesTest, A_new_pane_is_hidden_on_the_side_that_is_asked_for) {
    const kxWindowHandle right = make();
    const kxWindowHandle left = make("Other", kBoth, kxCustomPropertyControlArea_Left);
    EXPECT_NE(right, left);
    EXPECT_FALSE(panes->isVisible(right));
    EXPECT_EQ(window->dockWidgetArea(dock(0)), Qt::RightDockWidgetArea);
    EXPECT_EQ(window->dockWidgetArea(dock(1)), Qt::LeftDockWidgetArea);
    EXPECT_EQ(dock(0)->windowTitle(), "G-code Generator");
}

TEST_F(AddinPanesTest, Flags_say_whether_it_may_be_closed_and_float) {
    make("None", 0);
    make("Closes", kxCustomPropertyControl_MayClose);
    make("Floats", kxCustomPropertyControl_MayFloat);
    make("Both", kBoth);
    const QDockWidget::DockWidgetFeatures moves = QDockWidget::DockWidgetMovable;
    EXPECT_EQ(dock(0)->features(), moves);
    EXPECT_EQ(dock(1)->features(), moves | QDockWidget::DockWidgetClosable);
    EXPECT_EQ(dock(2)->features(), moves | QDockWidget::DockWidgetFloatable);
    EXPECT_EQ(dock(3)->features(),
              moves | QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetFloatable);
}

TEST_F(AddinPanesTest, Names_of_docks_come_from_titles_and_differ) {
    make("Same");
    make("Same");
    EXPECT_EQ(dock(0)->objectName(), "pane Same");
    EXPECT_EQ(dock(1)->objectName(), "pane Same 2");
}

TEST_F(AddinPanesTest, The_handle_stays_through_floating_docking_tabs_and_closing) {
    showWindow();
    const kxWindowHandle handle = make();
    const QPointer<QWidget> inside = content(handle);
    const auto isSame = [&] {
        letPass(30);
        return inside != nullptr && QWidget::find(static_cast<WId>(handle)) == inside &&
               static_cast<kxWindowHandle>(inside->winId()) == handle;
    };
    fill(handle, new QLabel("inside"));
    EXPECT_TRUE(isSame()) << "shown";
    dock()->setFloating(true);
    EXPECT_TRUE(isSame()) << "floating";
    dock()->close();
    EXPECT_TRUE(isSame()) << "closed while it floats";
    panes->setVisible(handle, true);
    EXPECT_TRUE(isSame()) << "shown again";
    dock()->setFloating(false);
    EXPECT_TRUE(isSame()) << "docked";
    window->addDockWidget(Qt::LeftDockWidgetArea, dock());
    EXPECT_TRUE(isSame()) << "on the other side";
    panes->setVisible(make("Other", kBoth, kxCustomPropertyControlArea_Left), true);
    window->tabifyDockWidget(dock(0), dock(1));
    EXPECT_TRUE(isSame()) << "behind another";
    dock()->close();
    panes->setVisible(handle, true);
    EXPECT_TRUE(isSame()) << "closed and shown";
    window->hide();
    window->show();
    EXPECT_TRUE(isSame()) << "with the window hidden and shown";
}

TEST_F(AddinPanesTest, The_handle_stays_when_the_window_is_shown_only_later) {
    const kxWindowHandle handle = make();
    fill(handle, new QLabel("inside"));
    showWindow();
    letPass(30);
    EXPECT_EQ(static_cast<kxWindowHandle>(content(handle)->winId()), handle);
    EXPECT_TRUE(content(handle)->isVisible());
}

TEST_F(AddinPanesTest, All_of_a_pane_is_as_wide_as_it_must_be_beside_the_scroll_bar) {
    showWindow();
    const kxWindowHandle handle = make();
    auto* const tall = new QLabel("tall");
    tall->setMinimumHeight(3000);
    fill(handle, tall);
    ASSERT_TRUE(waitUntil([&] { return area()->verticalScrollBar()->isVisible(); }));
    EXPECT_GE(area()->viewport()->width(), AddinPanes::kPaneWidth);
    EXPECT_LE(area()->viewport()->width(), AddinPanes::kPaneWidth + 10) << "wide from the start";
    EXPECT_FALSE(area()->horizontalScrollBar()->isVisible());
    window->resizeDocks({dock()}, {100}, Qt::Horizontal);
    letPass(30);
    EXPECT_GE(area()->viewport()->width(), AddinPanes::kPaneWidth) << "made too narrow";
    dock()->setFloating(true);
    dock()->resize(100, 400);
    letPass(30);
    EXPECT_GE(area()->viewport()->width(), AddinPanes::kPaneWidth) << "floating too narrow";
}

TEST_F(AddinPanesTest, A_pane_that_needs_more_gets_it_also_later) {
    showWindow();
    const kxWindowHandle handle = make();
    fill(handle, new QLabel("inside"));
    auto* const wide = new QLabel("wide");
    wide->setMinimumWidth(450);
    fill(handle, wide);
    EXPECT_TRUE(waitUntil([&] { return area()->viewport()->width() >= 450; }));
    content(handle)->setMinimumWidth(500);
    EXPECT_TRUE(waitUntil([&] { return area()->viewport()->width() >= 500; }));
}

TEST_F(AddinPanesTest, A_high_pane_does_not_make_the_window_higher) {
    showWindow();
    auto* const tall = new QLabel("tall");
    tall->setMinimumHeight(3000);
    fill(make(), tall);
    letPass(30);
    EXPECT_EQ(window->height(), 600);
    EXPECT_LE(window->minimumSizeHint().height(), 300);
}

TEST_F(AddinPanesTest, What_is_scrolled_away_covers_nothing_else) {
    showWindow();
    const kxWindowHandle handle = make();
    QWidget* const tall = coloured("#ff0000");
    tall->setMinimumHeight(3000);
    fill(handle, tall);
    ASSERT_TRUE(waitUntil([&] { return seenIn(*area()->viewport()) == QColor(Qt::red); }));
    for (const int place : {0, 1000, area()->verticalScrollBar()->maximum()}) {
        area()->verticalScrollBar()->setValue(place);
        letPass(60);
        const QPoint inStatusBar(window->statusBar()->width() - 200, 10);
        EXPECT_NE(seenAt(*window->statusBar(), inStatusBar), QColor(Qt::red)) << place;
        EXPECT_NE(seenAt(*dock(), QPoint(dock()->width() / 2, 6)), QColor(Qt::red)) << place;
        EXPECT_EQ(seenIn(*area()->viewport()), QColor(Qt::red)) << place;
    }
}

TEST_F(AddinPanesTest, The_rest_of_the_window_gets_no_windows_of_its_own) {
    showWindow();
    const kxWindowHandle handle = make();
    fill(handle, new GlView);
    letPass(30);
    EXPECT_EQ(window->centralWidget()->internalWinId(), 0U);
    EXPECT_EQ(window->statusBar()->internalWinId(), 0U);
    EXPECT_EQ(dock()->internalWinId(), 0U);
    EXPECT_EQ(area()->internalWinId(), 0U);
}

TEST_F(AddinPanesTest, OpenGL_inside_is_still_seen_after_floating_and_docking) {
    showWindow();
    const kxWindowHandle handle = make();
    auto* const view = new GlView;
    fill(handle, view);
    const auto isSeen = [&] {
        return waitUntil([&] { return seenIn(*view) == QColor(255, 0, 255); });
    };
    EXPECT_TRUE(isSeen()) << "docked";
    dock()->setFloating(true);
    dock()->move(700, 650);
    EXPECT_TRUE(isSeen()) << "floating";
    EXPECT_NE(seenIn(*window->centralWidget()), QColor(255, 0, 255));
    dock()->setFloating(false);
    EXPECT_TRUE(isSeen()) << "docked again";
    dock()->close();
    panes->setVisible(handle, true);
    EXPECT_TRUE(isSeen()) << "closed and shown";
}

TEST_F(AddinPanesTest, Visible_is_what_neither_user_nor_add_in_hid) {
    showWindow();
    const kxWindowHandle handle = make();
    panes->setVisible(handle, true);
    EXPECT_TRUE(panes->isVisible(handle));
    dock()->close();
    EXPECT_FALSE(panes->isVisible(handle)) << "closed by the user";
    panes->setVisible(handle, true);
    EXPECT_TRUE(panes->isVisible(handle));
    window->showMinimized();
    EXPECT_TRUE(panes->isVisible(handle)) << "in a minimised window";
    panes->setVisible(handle, false);
    EXPECT_FALSE(panes->isVisible(handle));
}

TEST_F(AddinPanesTest, Showing_brings_it_before_other_tabs) {
    showWindow();
    const kxWindowHandle first = make("First");
    const kxWindowHandle second = make("Second");
    fill(first, coloured("#ff0000"));
    fill(second, coloured("#0000ff"));
    tabify(dock(0), dock(1));
    dock(1)->raise();
    const QPoint place(window->width() - 100, window->height() / 2);
    ASSERT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::blue); }));
    EXPECT_TRUE(panes->isVisible(first)) << "behind a tab is not hidden";
    panes->setVisible(first, true);
    EXPECT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::red); }));
    panes->setVisible(second, true);
    EXPECT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::blue); }));
    dock(1)->close();
    EXPECT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::red); }));
}

TEST_F(AddinPanesTest, A_dock_of_the_host_covers_a_pane_behind_its_tab) {
    showWindow();
    const kxWindowHandle handle = make();
    fill(handle, coloured("#ff0000"));
    QDockWidget* const layers = addGreenTab();
    layers->raise();
    const QPoint place(window->width() - 100, window->height() / 2);
    EXPECT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::green); }));
    panes->setVisible(handle, true);
    EXPECT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::red); }));
    layers->raise();
    dock()->setFloating(true);
    dock()->move(50, 700);
    EXPECT_TRUE(waitUntil([&] { return seenIn(*dock()) == QColor(Qt::red); })) << "taken out";
}

TEST_F(AddinPanesTest, A_pane_is_seen_however_fast_its_tab_comes_back) {
    showWindow();
    const kxWindowHandle handle = make();
    fill(handle, coloured("#ff0000"));
    QDockWidget* const other = addGreenTab();
    const QPoint place(window->width() - 100, window->height() / 2);
    other->raise();
    ASSERT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::green); }));
    for (const int pauseMs : {250, 100, 50, 20}) {
        other->raise();
        letPass(pauseMs);
        panes->setVisible(handle, true);
        ASSERT_TRUE(waitUntil([&] { return seenAt(*window, place) == QColor(Qt::red); }, 5000))
            << "after " << pauseMs << " ms";
    }
}

TEST_F(AddinPanesTest, A_pane_comes_back_where_it_was_in_the_run_before) {
    showWindow();
    const kxWindowHandle handle = make();
    panes->setVisible(handle, true);
    window->addDockWidget(Qt::LeftDockWidgetArea, dock());
    const QByteArray state = window->saveState();
    SetUp();
    window->restoreState(state);
    const kxWindowHandle again = make();
    EXPECT_EQ(window->dockWidgetArea(dock()), Qt::LeftDockWidgetArea);
    EXPECT_FALSE(panes->isVisible(again)) << "the add-in shows it";
}

TEST_F(AddinPanesTest, Destroying_removes_the_dock_with_all_that_is_in_it_at_once) {
    showWindow();
    const kxWindowHandle handle = make();
    const QPointer<QWidget> view = new GlView;
    fill(handle, view);
    const QPointer<QDockWidget> old = dock();
    const QSignalSpy told(panes, &AddinPanes::changed);
    panes->destroy(handle);
    EXPECT_EQ(old, nullptr);
    EXPECT_EQ(view, nullptr);
    EXPECT_TRUE(panes->docks().empty());
    EXPECT_FALSE(panes->isVisible(handle));
    panes->setVisible(handle, true);
    panes->destroy(handle);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(window->findChildren<QDockWidget*>().size(), 0);
}

TEST_F(AddinPanesTest, A_floating_pane_is_destroyed_too) {
    showWindow();
    const kxWindowHandle handle = make();
    panes->setVisible(handle, true);
    dock()->setFloating(true);
    letPass(30);
    panes->destroy(handle);
    EXPECT_EQ(QWidget::find(static_cast<WId>(handle)), nullptr);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 1);
}

}  // namespace
