// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/OpenEach.h"

#include <fstream>
#include <iostream>
#include <string>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QThread>

#include "files/PrintableText.h"
#include "view/DrawingView.h"
#include "window/DrawingTab.h"
#include "window/Drawings.h"
#include "window/MainWindow.h"

namespace {

constexpr int kPaintLimitMs = 20000;
constexpr int kReportEvery = 100;

/// Notes the first time that a view is painted.
class PaintWatch : public QObject {
public:
    bool painted = false;
    bool eventFilter(QObject* watched, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

bool waitForPaint(DrawingTab* tab) {
    PaintWatch watch;
    tab->view()->installEventFilter(&watch);
    tab->view()->update();
    QElapsedTimer elapsed;
    elapsed.start();
    while (!watch.painted && elapsed.elapsed() < kPaintLimitMs) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return watch.painted;
}

/// A line of the kernel's account of this process, such as "VmRSS:    1234 kB".
std::string statusLine(const std::string& name) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, name.size(), name) == 0) {
            return line;
        }
    }
    return name + " unknown";
}

std::string openOne(Drawings* drawings, const QString& file) {
    QString error;
    if (drawings->openNow(file, &error) != Drawings::Opening::Opened) {
        return error.isEmpty() ? "not opened" : error.toStdString();
    }
    DrawingTab* tab = drawings->current();
    const std::string objects = std::to_string(tab->document()->GetObjects().size()) + " objects";
    const std::string result = waitForPaint(tab) ? objects : objects + ", not painted";
    drawings->close(tab);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return result;
}

}  // namespace

void openEach(MainWindow* window, const QStringList& files) {
    int count = 0;
    std::cout << "before: " << statusLine("VmRSS") << std::endl;
    for (const QString& file : files) {
        const std::string result = openOne(window->drawings(), file);
        std::cout << kxfiles::printable(file.toStdString() + ": " + result) << std::endl;
        if (++count % kReportEvery == 0) {
            std::cout << "after " << count << ": " << statusLine("VmRSS") << std::endl;
        }
    }
    std::cout << "after " << count << ": " << statusLine("VmRSS")
              << "\npeak: " << statusLine("VmHWM") << std::endl;
}
