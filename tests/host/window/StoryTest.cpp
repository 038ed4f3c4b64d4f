// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// A working day in one test: from an empty window to programs on disk. After each step a picture
// of the window goes to the folder that the environment variable KX_PICTURES names, or beside the
// test program.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>
#include <QWindow>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "view/DrawingView.h"
#include "window/Drawings.h"

namespace {

class HostStory : public HostWindowTest {
protected:
    HostStory() {
        const QString asked = qEnvironmentVariable("KX_PICTURES");
        m_pictures = asked.isEmpty() ? QDir::current().filePath("story-pictures") : asked;
        QDir().mkpath(m_pictures);
    }

    void picture(const QString& name) {
        letPass(150);
        const QPixmap shot = window->screen()->grabWindow(0, window->x(), window->y(),
                                                          window->frameGeometry().width(),
                                                          window->frameGeometry().height());
        const QString path =
            QDir(m_pictures)
                .filePath(QString("%1-%2.png").arg(++m_count, 2, 10, QChar('0')).arg(name));
        EXPECT_TRUE(shot.save(path)) << path.toStdString();
    }

    QDockWidget* pane() const { return window->findChild<QDockWidget*>("pane G-code Generator"); }
    QImage screenOf(const QRect& part) const {
        return window->screen()
            ->grabWindow(0, part.x(), part.y(), part.width(), part.height())
            .toImage();
    }
    /// The add-in's picture of the path as the screen shows it.
    QImage preview() const {
        for (QWidget* widget : pane()->findChildren<QWidget*>()) {
            if (QByteArray(widget->metaObject()->className()) == "OGLWindow") {
                makeVisible(widget);
                letPass(100);
                return screenOf({widget->mapToGlobal({0, 0}), widget->size()});
            }
        }
        ADD_FAILURE() << "there is no preview";
        return {};
    }
    /// How many pixels have the colour of a cutting move.
    static int cutPixels(const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                count += color.green() > 200 && color.red() < 60 && color.blue() < 60 ? 1 : 0;
            }
        }
        return count;
    }
    /// Types into a field of the panel, as after a click into it.
    void fill(const char* name, const char* text) const {
        auto* field = find<QLineEdit>(name);
        makeVisible(field);
        QTest::mouseClick(field, Qt::LeftButton);
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    void choose(const char* name, const char* text) const {
        auto* box = find<QComboBox>(name);
        makeVisible(box);
        box->setFocus();
        QTest::keyClicks(box, text);
        EXPECT_EQ(box->currentText(), text);
    }
    void press(const char* name) const {
        auto* button = find<QAbstractButton>(name);
        makeVisible(button);
        ASSERT_FALSE(button->visibleRegion().isEmpty()) << name << " is not to be seen";
        QTest::mouseClick(button, Qt::LeftButton);
    }
    /// Scrolls all that is around a control until it is to be seen.
    static void makeVisible(QWidget* control) {
        for (QWidget* around = control->parentWidget(); around != nullptr;
             around = around->parentWidget()) {
            if (auto* area = qobject_cast<QScrollArea*>(around)) {
                area->ensureWidgetVisible(control, 10, 10);
            } else if (auto* tree = qobject_cast<QTreeWidget*>(around)) {
                scrollTree(tree, control);
            }
        }
        QCoreApplication::processEvents();
    }
    static void scrollTree(QTreeWidget* tree, QWidget* control) {
        const int middle = control->mapTo(tree->viewport(), control->rect().center()).y();
        QScrollBar* bar = tree->verticalScrollBar();
        if (middle < 20 || middle > tree->viewport()->height() - 20) {
            bar->setValue(bar->value() + middle - tree->viewport()->height() / 2);
        }
    }
    std::string bytes(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
    }
    void drag(const QPoint& from, const QPoint& to) const {
        QWidget* view = tab()->view();
        QTest::mouseMove(view, from);
        QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(view, (from + to) / 2);
        QTest::mouseMove(view, to);
    }
    void dropBox(const QPoint& at) const {
        QTest::mouseRelease(tab()->view(), Qt::LeftButton, Qt::NoModifier, at);
    }

    void openWithTheDialog(const char* name) {
        DialogDriver dialogs;
        dialogs.chooseFile(example(name));
        // Without a window manager nobody gives the window its focus back after a dialog.
        QApplication::setActiveWindow(window.get());
        QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
        ASSERT_TRUE(
            waitUntil([&] { return tab() != nullptr && tab()->path().endsWith(QString(name)); }));
        EXPECT_TRUE(waitUntil([this] { return tab()->view()->isVisible(); }));
        letPass(100);
    }

    // The steps, in their order.
    void openTheDrawing() {
        openWithTheDialog("flange.dxf");
        picture("opened");
        EXPECT_EQ(find<QLabel>("statusSelection")->text(), "Nothing selected");
    }
    void selectWithABox() {
        drag(at(-3, 83), at(123, -3));
        picture("window-box");
        dropBox(at(123, -3));
        picture("selected");
        EXPECT_EQ(selectedCount(), tab()->document()->GetObjects().size());
    }
    void hideAndShowThePane() {
        type("_GCODE");
        picture("pane-hidden");
        EXPECT_FALSE(pane()->isVisible());
        type("_GCODE");
        picture("pane-shown");
        EXPECT_TRUE(pane()->isVisible());
        EXPECT_EQ(selectedCount(), tab()->document()->GetObjects().size());
    }
    void fillTheFields() {
        auto* comment = find<QTextEdit>("m_CommentTextEdit");
        makeVisible(comment);
        comment->setFocus();
        QTest::keyClicks(comment, "(flange, 120 x 80)");
        choose("unitComboBox", "Absolute");
        fill("zSafeHeightEdit", "2");
        fill("zRetractEdit", "15");
        fill("feedRateZ", "120");
        fill("feedRateXY", "600");
        fill("depthOfCut", "-1.5");
        picture("filled");
    }
    void generateTheProgram() {
        press("generateGCodeBtn");
        EXPECT_TRUE(said().contains("Selected objects: 18")) << said().toStdString();
        EXPECT_GT(cutPixels(preview()), 100);
        picture("generated");
    }
    void playIt() {
        const QImage before = preview();
        press("simulatePushButton");
        EXPECT_TRUE(waitUntil([&] { return preview() != before; }));
        picture("playing");
        press("StopSimulationButton");
        picture("stopped");
    }
    void saveAndAppend() {
        DialogDriver dialogs;
        dialogs.chooseFile(folder.filePath("flange.txt"));
        press("saveBtn");
        QFile golden(example("flange.nc"));
        ASSERT_TRUE(golden.open(QIODevice::ReadOnly));
        EXPECT_EQ(bytes("flange.txt"), golden.readAll().toStdString());
        picture("saved");

        type("CLEAR");
        clickAt(60, 15);  // Nothing lies there: a box begins, and ends without a second corner.
        pressInView(Qt::Key_Escape);
        clickAt(10, 10);
        EXPECT_EQ(selectedCount(), 1U);
        press("generateGCodeBtn");
        dialogs.press(QMessageBox::Yes);
        press("appendPushButton");
        const std::string both = bytes("flange.txt");
        EXPECT_EQ(both.compare(0, 18, "(flange, 120 x 80)"), 0);
        EXPECT_NE(both.rfind("(flange, 120 x 80)"), 0U) << "the second program has its comment";
        picture("appended");
    }
    void switchToAnInchDrawing() {
        openWithTheDialog("hole-plate.dxf");
        EXPECT_TRUE(find<QRadioButton>("inchRadioButton")->isChecked());
        EXPECT_TRUE(find<QTextEdit>("textEdit")->toPlainText().contains("G20"));
        EXPECT_EQ(cutPixels(preview()), 0) << "the path of the other drawing is still shown";
        picture("inch-drawing");
    }
    void closeBoth() {
        type("CLOSE");
        EXPECT_TRUE(find<QRadioButton>("mmRadioButton")->isChecked());
        picture("back-at-the-first");
        type("CLOSE");
        EXPECT_EQ(tab(), nullptr);
        picture("all-closed");
    }

private:
    QString m_pictures;
    int m_count = 0;
};

}  // namespace

TEST_F(HostStory, FromADrawingToProgramsOnDisk) {
    picture("started");
    openTheDrawing();
    selectWithABox();
    hideAndShowThePane();
    fillTheFields();
    generateTheProgram();
    playIt();
    saveAndAppend();
    switchToAnInchDrawing();
    closeBoth();
}
