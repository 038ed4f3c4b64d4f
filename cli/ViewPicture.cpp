// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ViewPicture.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QGLWidget>
#include <QImage>
#include <QWindow>
#include <algorithm>
#include <cstddef>

#include "TextFile.h"

namespace {

constexpr int kPaneWidth = 400;
constexpr int kPaneHeight = 640;
constexpr int kLongestWaitMs = 5000;

/// Whether an X server listens at a display of this machine, ":99" or ":99.0".
bool isLocalDisplayOpen(const QByteArray& display) {
    const QByteArray number = display.mid(1).split('.').first();
    const QByteArray path = "/tmp/.X11-unix/X" + number;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() + 1 >= static_cast<int>(sizeof address.sun_path)) {
        return false;
    }
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto connectTo = [&](const QByteArray& name) {
        std::copy(name.begin(), name.end(), address.sun_path);
        const auto length = offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size());
        return connect(handle, reinterpret_cast<const sockaddr*>(&address),
                       static_cast<socklen_t>(length)) == 0;
    };
    // Servers listen at the file or at the same name without one (Linux, unix(7)).
    const bool open = connectTo(QByteArray(1, '\0') + path) || connectTo(path + '\0');
    close(handle);
    return open;
}

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
    const QByteArray display = qgetenv("DISPLAY");
    // The toolkit would end the program when it can't reach the display of this machine.
    const bool reachable = !display.startsWith(':') || isLocalDisplayOpen(display);
    const bool any = !display.isEmpty() || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!any || !reachable) {
        *error = noDisplayText();
        return false;
    }
    return true;
}

std::string noDisplayText() {
    const QByteArray display = qgetenv("DISPLAY");
    return "a preview needs a display and there is none" +
           (display.isEmpty() ? std::string() : " at " + display.toStdString()) +
           "; run it as: xvfb-run -a kxgcode ...";
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
