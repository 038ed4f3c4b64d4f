// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ViewPicture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QGLWidget>
#include <QImage>
#include <QWindow>

#include "TextFile.h"

namespace {

constexpr int kPaneWidth = 400;
constexpr int kPaneHeight = 640;
constexpr int kLongestWaitMs = 5000;

QGLWidget* viewOf(QWidget* pane) {
    return pane->findChild<QGLWidget*>(QString::fromLatin1("w"));
}

/// Closes the categories above the view's own, as a user does who wants to see the view.
void closeOtherCategories(QWidget* pane) {
    for (auto* button : pane->findChildren<QAbstractButton*>()) {
        if (button->inherits("QtCategoryButton") &&
            button->text() != QLatin1String("View Window")) {
            button->click();
        }
    }
}

bool waitUntilExposed(const QWidget* widget) {
    QElapsedTimer timer;
    timer.start();
    const QWindow* window = widget->windowHandle();
    while (window != nullptr && !window->isExposed() && timer.elapsed() < kLongestWaitMs) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    QApplication::processEvents();
    return window != nullptr && window->isExposed();
}

}  // namespace

bool hasDisplay(std::string* error) {
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        *error = "a preview needs a display and there is none; run it as: xvfb-run -a kxgcode ...";
        return false;
    }
    return true;
}

bool showView(QWidget* pane, std::string* error) {
    QGLWidget* view = viewOf(pane);
    if (view == nullptr || !view->isValid()) {
        *error = view == nullptr ? "the add-in's panel has no view" : "the display has no OpenGL";
        return false;
    }
    pane->setAttribute(Qt::WA_ShowWithoutActivating);
    pane->resize(kPaneWidth, kPaneHeight);
    pane->show();
    QApplication::processEvents();
    closeOtherCategories(pane);
    if (!waitUntilExposed(pane)) {
        *error = "the display does not show the view";
        return false;
    }
    view->updateGL();
    return true;
}

bool writeViewPicture(QWidget* pane, const std::string& path, std::string* error) {
    QApplication::processEvents();
    const QImage picture = viewOf(pane)->grabFrameBuffer();
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG")) {
        *error = path + ": the picture can't be made";
        return false;
    }
    return writeOutput(path, buffer.data(), error);
}
