// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ReadWithProgress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

constexpr char kLine[] = "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n1\n21\n1\n";

std::string insertOf(int block) {
    return "0\nINSERT\n8\n0\n2\nB" + std::to_string(block) + "\n10\n0\n20\n0\n";
}

/// A small file that takes long: inserts of blocks that hold two inserts each, `depth` deep, and
/// nothing at the bottom. Reading it takes no memory.
QString makeDrawing(const QTemporaryDir& folder, int depth, int inserts) {
    std::string text = "0\nSECTION\n2\nBLOCKS\n";
    for (int i = 0; i <= depth; ++i) {
        text += "0\nBLOCK\n8\n0\n2\nB" + std::to_string(i) + "\n70\n0\n10\n0\n20\n0\n";
        text += i < depth ? insertOf(i + 1) + insertOf(i + 1) : "";
        text += "0\nENDBLK\n8\n0\n";
    }
    text += "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < inserts; ++i) {
        text += insertOf(0);
    }
    text += std::string(kLine) + "0\nENDSEC\n0\nEOF\n";
    const QString path = folder.filePath("a part.dxf");
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.c_str());
    return path;
}

QString quickDrawing(const QTemporaryDir& folder) {
    return makeDrawing(folder, 1, 1);
}

/// Takes much longer than any of these tests looks.
QString endlessDrawing(const QTemporaryDir& folder) {
    return makeDrawing(folder, 30, 1);
}

/// Takes at least about so long on this machine.
QString drawingOf(const QTemporaryDir& folder, std::chrono::milliseconds time) {
    constexpr int kDepth = 12;
    constexpr int kMeasured = 10;
    const std::string sample = makeDrawing(folder, kDepth, kMeasured).toStdString();
    double one = 1e9;
    // The least of several: what else the machine does makes single ones longer.
    for (int i = 0; i < 10; ++i) {
        QElapsedTimer timer;
        timer.start();
        kxdrawing::readDxf(sample);
        one = std::min(one, static_cast<double>(timer.nsecsElapsed()) / kMeasured);
    }
    one = std::max(one, 1.0);
    const double count = static_cast<double>(time.count()) * 1e6 / one;
    return makeDrawing(folder, kDepth, static_cast<int>(std::clamp(count, 20.0, 9000.0)));
}

class Window : public QWidget {
public:
    int paints = 0;
    int clicks = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
    void mousePressEvent(QMouseEvent* /*event*/) override { ++clicks; }
};

QDialog* dialogNow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "openProgress") {
            return qobject_cast<QDialog*>(widget);
        }
    }
    return nullptr;
}

/// Notes every progress dialog that is shown.
class DialogCounter : public QObject {
public:
    DialogCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->objectName() == "openProgress") {
            ++shown;
        }
        return false;
    }
    int shown = 0;
};

class ReadWithProgressTest : public testing::Test {
protected:
    void SetUp() override {
        window.resize(500, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    /// Reads, and does something each 10 ms from when the dialog is there.
    template <typename Doing>
    std::optional<kxdrawing::ReadResult> readDoing(const QString& path, const Doing& doing) {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &window, [&] {
            QDialog* const dialog = dialogNow();
            if (dialog != nullptr && dialog->isVisible()) {
                doing(dialog);
            }
        });
        timer.start(10);
        return readWithProgress(path, &window);
    }

    QTemporaryDir folder;
    Window window;
    DialogCounter counter;
};

TEST_F(ReadWithProgressTest, A_drawing_that_is_read_at_once_shows_nothing) {
    const auto result = readWithProgress(quickDrawing(folder), &window);
    ASSERT_TRUE(result && result->drawing);
    EXPECT_EQ(result->drawing->objects.size(), 1U);
    EXPECT_EQ(counter.shown, 0);
}

TEST_F(ReadWithProgressTest, A_file_that_cannot_be_read_gives_its_cause) {
    const auto result = readWithProgress(folder.filePath("none.dxf"), &window);
    ASSERT_TRUE(result);
    EXPECT_FALSE(result->drawing);
    EXPECT_NE(result->error.found.find("no such file"), std::string::npos);
}

TEST_F(ReadWithProgressTest, A_window_is_not_needed) {
    EXPECT_TRUE(readWithProgress(quickDrawing(folder), nullptr));
}

TEST_F(ReadWithProgressTest, A_slow_one_shows_its_name_and_a_growing_part_and_is_read) {
    const QString path = drawingOf(folder, std::chrono::milliseconds(2500));
    std::vector<int> values;
    QString text;
    QElapsedTimer timer;
    timer.start();
    qint64 appeared = 0;
    const auto result = readDoing(path, [&](QDialog* dialog) {
        appeared = appeared == 0 ? timer.elapsed() : appeared;
        text = dialog->findChild<QLabel*>()->text();
        values.push_back(dialog->findChild<QProgressBar*>()->value());
    });
    ASSERT_TRUE(result && result->drawing);
    EXPECT_EQ(result->drawing->objects.size(), 1U);
    EXPECT_EQ(counter.shown, 1);
    EXPECT_GE(appeared, 500);
    EXPECT_TRUE(text.contains("a part.dxf")) << text.toStdString();
    ASSERT_FALSE(values.empty());
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_GE(values.front(), 80) << "a file that small is read by then";
    EXPECT_GT(values.back(), values.front());
    EXPECT_EQ(dialogNow(), nullptr) << "the dialog is still there";
}

TEST_F(ReadWithProgressTest, Cancel_ends_the_reading) {
    const auto result = readDoing(endlessDrawing(folder), [](QDialog* dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    });
    EXPECT_FALSE(result);
    EXPECT_EQ(dialogNow(), nullptr);
}

TEST_F(ReadWithProgressTest, Escape_ends_the_reading) {
    const auto result = readDoing(endlessDrawing(folder),
                                  [](QDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    EXPECT_FALSE(result);
}

TEST_F(ReadWithProgressTest, The_window_paints_but_takes_no_clicks_meanwhile) {
    int paintsBefore = -1;
    bool isBlocked = false;
    window.clicks = 0;
    const auto result = readDoing(endlessDrawing(folder), [&](QDialog* dialog) {
        isBlocked = QApplication::activeModalWidget() == dialog;
        if (paintsBefore < 0) {
            paintsBefore = window.paints;
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(20, 20));
        }
        window.update();
        if (window.paints > paintsBefore + 2) {
            dialog->reject();
        }
    });
    EXPECT_FALSE(result);
    EXPECT_TRUE(isBlocked);
    EXPECT_EQ(window.clicks, 0);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(window.clicks, 1) << "the window stays blocked";
}

TEST_F(ReadWithProgressTest, The_end_of_the_program_ends_the_reading) {
    const QString path = endlessDrawing(folder);
    for (const int quitAfterMs : {100, 900}) {
        std::optional<std::optional<kxdrawing::ReadResult>> result;
        QTimer::singleShot(0, &window, [&] { result = readWithProgress(path, &window); });
        QTimer::singleShot(quitAfterMs, &window, [] { QCoreApplication::quit(); });
        QCoreApplication::exec();
        ASSERT_TRUE(result);
        EXPECT_FALSE(*result);
    }
    EXPECT_EQ(counter.shown, 1) << "a program that ends shows no dialog";
}

TEST_F(ReadWithProgressTest, Closing_the_window_ends_the_reading_before_the_dialog_comes) {
    QTimer::singleShot(50, &window, [this] { window.close(); });
    EXPECT_FALSE(readWithProgress(endlessDrawing(folder), &window));
    EXPECT_EQ(counter.shown, 0);
}

}  // namespace
