// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "ViewTest.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

const char* const kWorkpiece =
    "G21\n"
    "G90\n"
    "G0 Z10\n"
    "G0 X-40 Y-30\n"
    "G1 Z-5 F100\n"
    "G1 X40 F300\n"
    "G3 X50 Y-20 I0 J10\n"
    "G1 X50 Y20\n"
    "G3 X40 Y30 I-10 J0\n"
    "G1 X-40\n"
    "G3 X-50 Y20 I0 J-10\n"
    "G1 X-50 Y-20\n"
    "G3 X-40 Y-30 I10 J0\n"
    "G0 Z10\n"
    "G0 X15 Y0\n"
    "G2 X15 Y0 I-15 J0\n"
    "G81 X-30 Y15 Z-20 R5\n"
    "G83 X30 Y15 Z-20 R5 Q6\n"
    "G80\n"
    "G0 X0 Y0 Z20\n";

bool isPlatformWithoutDrawing() {
    return QGuiApplication::platformName() == "offscreen" && !qEnvironmentVariableIsSet("DISPLAY");
}

ViewTest::ViewTest() {
    window.resize(kSide, kSide);
    window.show();
    static_cast<void>(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
}

void ViewTest::drag(const QPoint& from, const QPoint& to, Qt::MouseButton button) {
    QWindow* handle = window.windowHandle();
    QTest::mousePress(handle, button, {}, from);
    QTest::mouseMove(handle, to);
    QTest::mouseRelease(handle, button, {}, to);
}

void ViewTest::moveWithoutButtons(const QPoint& to) {
    QTest::mouseMove(window.windowHandle(), to);
}

bool ViewTest::wheel(const QPointF& position, const QPoint& delta) {
    const QPointF global = window.mapToGlobal(QPoint()) + position;
    QWheelEvent event(position, global, QPoint(), delta, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    event.ignore();
    QApplication::sendEvent(&window, &event);
    return event.isAccepted();
}

void ViewTest::tick(int times) {
    for (int i = 0; i < times; ++i) {
        window.update();
    }
}

QImage ViewTest::picture() {
    window.makeCurrent();
    state.paintGL();
    return window.grabFrameBuffer().convertToFormat(QImage::Format_RGB32);
}
