// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Commands about files: drawings, pictures, add-ins, and the end of the program.
#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QTimer>

#include "commandline/CommandTable.h"
#include "files/OutputFile.h"
#include "view/DrawingView.h"
#include "window/DrawingTab.h"
#include "window/Drawings.h"
#include "window/HostParts.h"
#include "window/HostSession.h"
#include "window/ShownName.h"

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("HostCommands", text);
}

QString folderOfCurrent(const HostParts& parts) {
    const DrawingTab* tab = parts.drawings->current();
    return tab != nullptr ? QFileInfo(tab->path()).path() : QString();
}

void open(const HostParts& parts, const CommandArguments& files) {
    QStringList chosen = files;
    if (chosen.isEmpty()) {
        chosen =
            QFileDialog::getOpenFileNames(parts.window, tr("Open Drawing"), folderOfCurrent(parts),
                                          tr("Drawings (*.dxf *.DXF);;All files (*)"));
    }
    parts.drawings->open(chosen);
}

/// Replaces a file only by a whole picture.
bool writePicture(const QPixmap& picture, const QString& file, std::string* cause) {
    const QByteArray format = QFileInfo(file).suffix().toLatin1();
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, format.constData())) {
        *cause = "no format of pictures has this ending";
        return false;
    }
    return kxfiles::replaceFile(QFile::encodeName(file).toStdString(), buffer.data().toStdString(),
                                cause);
}

void savePicture(const HostParts& parts, DrawingTab& tab, const CommandArguments& arguments) {
    QString file = arguments.value(0);
    if (file.isEmpty()) {
        const QFileInfo drawing(tab.path());
        file = QFileDialog::getSaveFileName(
            parts.window, tr("Save Picture"),
            drawing.path() + "/" + drawing.completeBaseName() + ".png", tr("Pictures (*.png)"));
    }
    if (file.isEmpty()) {
        return;
    }
    if (QFileInfo(file).suffix().isEmpty()) {
        file += ".png";
    }
    std::string cause;
    if (writePicture(tab.view()->grab(), file, &cause)) {
        parts.say(tr("The picture is saved: %1").arg(shownName(file)));
    } else {
        parts.complain(tr("The picture can't be written: %1: %2")
                           .arg(shownName(file), QString::fromStdString(cause)));
    }
}

void loadAddin(const HostParts& parts, const CommandArguments& arguments) {
    QString file = arguments.value(0);
    if (file.isEmpty()) {
        file = QFileDialog::getOpenFileName(parts.window, tr("Load Add-in"), QString(),
                                            tr("Add-ins (*.so *.so.*);;All files (*)"));
    }
    if (file.isEmpty()) {
        return;
    }
    QString error;
    if (parts.session->loadAddin(QFileInfo(file).absoluteFilePath(), &error)) {
        parts.say(tr("Add-in loaded: %1").arg(shownName(file)));
    } else {
        parts.complain(tr("The add-in can't be loaded: %1").arg(shownName(error)));
    }
}

}  // namespace

void addFileCommands(const HostParts& parts) {
    CommandTable& table = *parts.commands;
    table.add({"OPEN", "[FILE...]", tr("Opens drawings."),
               [parts](const CommandArguments& files) { open(parts, files); }});
    table.add({"RELOAD", QString(), tr("Reads the drawing from its file again."),
               onDrawing(parts, [parts](DrawingTab& tab, const CommandArguments&) {
                   parts.drawings->reload(&tab);
               })});
    table.add({"CLOSE", QString(), tr("Closes the drawing."),
               onDrawing(parts, [parts](DrawingTab& tab, const CommandArguments&) {
                   parts.drawings->close(&tab);
               })});
    table.add({"PICTURE", "[FILE]", tr("Saves what the view shows as a picture."),
               onDrawing(parts, [parts](DrawingTab& tab, const CommandArguments& arguments) {
                   savePicture(parts, tab, arguments);
               })});
    table.add({"ADDIN", "[FILE]", tr("Loads an add-in."),
               [parts](const CommandArguments& arguments) { loadAddin(parts, arguments); }});
    // Later: the command line that runs it is part of the window.
    table.add(
        {"QUIT", QString(), tr("Closes all drawings and ends the program."),
         [parts](const CommandArguments&) { QTimer::singleShot(0, parts.window, &QWidget::close); },
         true});
}
