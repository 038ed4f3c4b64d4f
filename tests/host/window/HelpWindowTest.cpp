// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HelpWindow.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

#include "FileOpens.h"
#include "Waiting.h"
#include "WebBrowser.h"

namespace {

class HelpWindowTest : public testing::Test {
protected:
    void SetUp() override {
        write("manual/index.html", "<title>Contents</title><p><a href=\"panel.html\">panel</a>");
        write("manual/panel.html",
              "<title>The panel</title><p>Apple and pear and apple \u00e4."
              "<p><a href=\"index.html\">back</a>");
        write("outside.html", "<title>Secret</title>secret");
        help = std::make_unique<HelpWindow>(folder.filePath("manual"));
        page = help->findChild<QTextBrowser*>("helpPage");
        ASSERT_NE(page, nullptr);
    }

    void write(const QString& name, const QString& text) const {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }
    void show(const QString& name) {
        help->showPage(name);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(help.get()));
        // Not asked of the window system: windows of other tests on the screen take its focus.
        QApplication::setActiveWindow(help.get());
    }
    std::string title() const { return help->windowTitle().toStdString(); }
    std::string text() const { return page->toPlainText().toStdString(); }
    /// Clicks the first link of the page, or one that is written into it before.
    void clickLink(const QString& target = QString()) {
        if (!target.isEmpty()) {
            write("manual/links.html", "<title>Links</title><a href=\"" + target + "\">link</a>");
            show("links.html");
        }
        QTextCursor cursor = page->document()->find("link");
        if (target.isEmpty()) {
            cursor = page->document()->find(page->toPlainText().simplified());
        }
        cursor.setPosition(cursor.selectionStart() + 1);
        const QPoint place = page->cursorRect(cursor).center();
        QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, place);
    }

    QTemporaryDir folder;
    std::unique_ptr<HelpWindow> help;
    QTextBrowser* page = nullptr;
};

TEST_F(HelpWindowTest, A_page_is_shown_with_its_title) {
    show("panel.html");
    EXPECT_EQ(title(), "The panel");
    EXPECT_NE(text().find("\u00e4"), std::string::npos) << text();
}

TEST_F(HelpWindowTest, A_click_on_a_link_goes_to_its_page) {
    show("index.html");
    clickLink();
    EXPECT_EQ(title(), "The panel");
}

TEST_F(HelpWindowTest, Back_forward_and_contents_have_keys) {
    show("index.html");
    help->showPage("panel.html");
    QTest::keyClick(help.get(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "Contents");
    QTest::keyClick(help.get(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(title(), "The panel");
    QTest::keyClick(help.get(), Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(title(), "Contents");
    QTest::keyClick(help.get(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "The panel");
}

TEST_F(HelpWindowTest, The_keys_work_in_the_page_too_one_step_each) {
    show("index.html");
    help->showPage("panel.html");
    help->showPage("missing.html");
    page->setFocus();
    QTest::keyClick(page, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "The panel");
}

TEST_F(HelpWindowTest, Buttons_that_lead_nowhere_are_off) {
    show("index.html");
    const auto isEnabled = [&](const QString& text) {
        for (const QAction* action : help->findChildren<QAction*>()) {
            if (action->text() == text) {
                return action->isEnabled();
            }
        }
        ADD_FAILURE() << "there is no " << text.toStdString();
        return false;
    };
    EXPECT_FALSE(isEnabled("Back"));
    EXPECT_FALSE(isEnabled("Forward"));
    help->showPage("panel.html");
    EXPECT_TRUE(isEnabled("Back"));
    EXPECT_FALSE(isEnabled("Forward"));
    EXPECT_TRUE(isEnabled("Contents"));
}

TEST_F(HelpWindowTest, A_missing_page_is_said_and_can_be_left) {
    show("index.html");
    help->showPage("<b>none.html");
    EXPECT_EQ(title(), "Page not found");
    EXPECT_NE(text().find("<b>none.html"), std::string::npos) << text();
    QTest::keyClick(help.get(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "Contents");
}

TEST_F(HelpWindowTest, Without_a_manual_that_is_said) {
    HelpWindow nothing{QString()};
    nothing.showPage("index.html");
    EXPECT_EQ(nothing.windowTitle(), "Page not found");
}

TEST_F(HelpWindowTest, Pages_outside_of_the_folder_are_not_shown) {
    QFile::link(folder.filePath("outside.html"), folder.filePath("manual/inside.html"));
    for (const QString& name :
         {QString("../outside.html"), folder.filePath("outside.html"), QString("inside.html")}) {
        help->showPage(name);
        EXPECT_EQ(title(), "Page not found") << name.toStdString();
        EXPECT_EQ(text().find("secret"), std::string::npos) << name.toStdString();
    }
}

TEST_F(HelpWindowTest, A_link_out_of_the_folder_leads_nowhere) {
    clickLink("../outside.html");
    EXPECT_EQ(title(), "Page not found");
}

TEST_F(HelpWindowTest, A_link_to_the_web_goes_to_the_browser) {
    WebBrowser browser;
    clickLink("https://example.org/a?b=c");
    EXPECT_EQ(browser.opened, QStringList{"https://example.org/a?b=c"});
    EXPECT_EQ(title(), "Links") << "the page stays";
}

TEST_F(HelpWindowTest, Links_of_other_kinds_start_nothing) {
    clickLink("javascript:alert(1)");
    EXPECT_EQ(title(), "Page not found");
}

/// Shows a page with something that names a file beside the manual, in several ways.
class HelpWindowOutsideTest : public HelpWindowTest {
protected:
    void SetUp() override {
        HelpWindowTest::SetUp();
        QImage red(8, 8, QImage::Format_RGB32);
        red.fill(Qt::red);
        QDir(folder.path()).mkdir("outside");
        ASSERT_TRUE(red.save(folder.filePath("outside/red.png")));
        ASSERT_TRUE(
            QFile::copy(folder.filePath("outside/red.png"), folder.filePath("manual/own.png")));
        write("outside/style.css", "p { background-color: #ff0000; }");
        write("outside/page.md", "secret");
        QFile::link(folder.filePath("outside/red.png"), folder.filePath("manual/linked.png"));
        QFile::link(folder.filePath("outside"), folder.filePath("manual/sub"));
        QDir::setCurrent(folder.filePath("outside"));
    }
    void TearDown() override { QDir::setCurrent("/"); }
    /// Every way to name a file of the folder beside the manual.
    QStringList waysTo(const QString& name) const {
        const QString file = folder.filePath("outside/" + name);
        return {name,           "../outside/" + name,     file, "file://" + file, "sub/" + name,
                "file:" + name, "FILE://localhost" + file};
    }
    /// As the toolkit takes it: without the type no style is looked at.
    static QString styleLink(const QString& address) {
        return "<link rel=\"stylesheet\" type=\"text/css\" href=\"" + address + "\">";
    }
    void showHtml(const QString& body, const QString& head = {}) {
        write("manual/hostile.html", "<html><head><title>Hostile</title>" + head + "</head><body>" +
                                         body + "</body></html>");
        show("hostile.html");
        page->grab();
    }
    bool isRedShown() const {
        const QImage shown = page->grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if (shown.pixel(x, y) == qRgb(255, 0, 0)) {
                    return true;
                }
            }
        }
        return false;
    }
};

TEST_F(HelpWindowOutsideTest, Images_of_the_folder_are_shown) {
    showHtml("<img src=\"own.png\">");
    EXPECT_TRUE(isRedShown());
}

TEST_F(HelpWindowOutsideTest, Images_outside_of_the_folder_are_not_opened) {
    const FileOpens opens(folder.filePath("outside"));
    QStringList ways = waysTo("red.png");
    ways << "linked.png";
    for (const QString& way : qAsConst(ways)) {
        showHtml("<img src=\"" + way + "\"><p style=\"background-image: url(" + way + ")\">x</p>");
        EXPECT_EQ(opens.take(), QStringList()) << way.toStdString();
        EXPECT_FALSE(isRedShown()) << way.toStdString();
    }
}

TEST_F(HelpWindowOutsideTest, Styles_of_the_folder_are_used) {
    write("manual/own.css", "p { background-color: #ff0000; }");
    showHtml("<p>text</p>", styleLink("own.css"));
    EXPECT_TRUE(isRedShown());
}

TEST_F(HelpWindowOutsideTest, Styles_outside_of_the_folder_are_not_opened) {
    const FileOpens opens(folder.filePath("outside"));
    for (const QString& way : waysTo("style.css")) {
        write("manual/importing.css", "@import url(\"" + way + "\");\n@import \"" + way + "\";");
        showHtml("<p>text</p>", styleLink(way) + styleLink("importing.css"));
        EXPECT_EQ(opens.take(), QStringList()) << way.toStdString();
        EXPECT_FALSE(isRedShown()) << way.toStdString();
    }
}

TEST_F(HelpWindowOutsideTest, Pages_of_other_kinds_outside_of_the_folder_are_not_opened) {
    const FileOpens opens(folder.filePath("outside"));
    for (const QString& way : waysTo("page.md")) {
        clickLink(way);
        EXPECT_EQ(opens.take(), QStringList()) << way.toStdString();
        EXPECT_EQ(text().find("secret"), std::string::npos) << way.toStdString();
        EXPECT_NE(text().find("Page not found"), std::string::npos) << way.toStdString();
    }
}

TEST_F(HelpWindowOutsideTest, Queues_and_devices_in_the_folder_are_not_waited_for) {
    ASSERT_EQ(mkfifo(QFile::encodeName(folder.filePath("manual/queue.html")).constData(), 0600), 0);
    QFile::link("/dev/zero", folder.filePath("manual/zero.html"));
    for (const char* name : {"queue.html", "zero.html"}) {
        showHtml("<img src=\"" + QString(name) + "\">", styleLink(name));
        help->showPage(name);
        EXPECT_EQ(title(), "Page not found") << name;
    }
}

TEST_F(HelpWindowTest, Scripts_frames_and_forms_of_a_page_do_nothing) {
    WebBrowser browser;
    write("manual/active.html",
          "<title>Active</title><meta http-equiv=\"refresh\" content=\"0;url=https://a.example/\">"
          "<script>location = 'https://b.example/'</script>"
          "<iframe src=\"https://c.example/\"></iframe>"
          "<object data=\"https://d.example/\"></object>"
          "<img src=\"https://e.example/x.png\"><p onload=\"location = 'https://f.example/'\">x");
    show("active.html");
    page->grab();
    QApplication::processEvents();
    EXPECT_EQ(title(), "Active");
    EXPECT_EQ(browser.opened, QStringList());
}

TEST_F(HelpWindowTest, Text_is_found_forward_and_around_the_end) {
    show("panel.html");
    QTest::keyClick(help.get(), Qt::Key_F, Qt::ControlModifier);
    auto* const typed = help->findChild<QLineEdit*>("findText");
    ASSERT_EQ(help->focusWidget(), typed);
    QTest::keyClicks(typed, "apple");
    const int first = page->textCursor().selectionStart();
    EXPECT_EQ(page->textCursor().selectedText(), "Apple");
    QTest::keyClick(typed, Qt::Key_Return);
    EXPECT_GT(page->textCursor().selectionStart(), first);
    QTest::keyClick(help.get(), Qt::Key_F3);
    EXPECT_EQ(page->textCursor().selectionStart(), first) << "it goes on at the start";
    QTest::keyClick(typed, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_GT(page->textCursor().selectionStart(), first) << "and back around";
}

TEST_F(HelpWindowTest, What_is_not_found_is_said_until_it_is) {
    show("panel.html");
    QTest::keyClick(help.get(), Qt::Key_F, Qt::ControlModifier);
    auto* const typed = help->findChild<QLineEdit*>("findText");
    const auto* const message = help->findChild<QLabel*>("findMessage");
    QTest::keyClicks(typed, "pearl");
    EXPECT_EQ(message->text(), "Not on this page");
    QTest::keyClick(typed, Qt::Key_Backspace);
    EXPECT_EQ(message->text(), "");
    QTest::keyClick(typed, Qt::Key_Escape);
    EXPECT_FALSE(typed->isVisible());
    EXPECT_TRUE(help->isVisible());
}

TEST_F(HelpWindowTest, It_comes_back_from_being_closed) {
    show("index.html");
    QTest::keyClick(help.get(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(help->isVisible());
    help->showPage("panel.html");
    EXPECT_TRUE(help->isVisible());
}

TEST(HelpPages, The_panels_topic_has_its_page_and_others_the_contents) {
    EXPECT_EQ(HelpWindow::pageOfTopic(2250), "panel.html");
    EXPECT_EQ(HelpWindow::pageOfTopic(0), "index.html");
    EXPECT_EQ(HelpWindow::pageOfTopic(-1), "index.html");
}

TEST(HelpPages, The_manual_is_found_where_the_program_is_built) {
    const QString manual = HelpWindow::manualFolder();
    EXPECT_EQ(QDir(manual).canonicalPath(), QDir(KXHOST_TEST_MANUAL).canonicalPath());
    EXPECT_TRUE(QFile::exists(manual + "/panel.html"));
}

}  // namespace
