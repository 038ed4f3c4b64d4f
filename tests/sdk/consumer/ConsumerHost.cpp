// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// A host of a page: a drawing of three points, two of them selected, and the add-in of the
// argument, whose command "_COUNT" must say so. Exits with 0 when it does.
#include <kx/host/kxAddinLoader.h>
#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include <iostream>
#include <string>
#include <vector>

namespace {

int g_failures = 0;

void expect(bool holds, const std::string& what) {
    std::cout << (holds ? "ok: " : "FAILED: ") << what << '\n';
    g_failures += holds ? 0 : 1;
}

/// The application of a host without a screen; what is printed goes into `lines`.
kxHostApplication_ptr makeApplication(std::vector<std::string>& lines) {
    kxHostCallbacks callbacks;
    callbacks.printLine = [&lines](const kxString& line) { lines.push_back(line.toUtf8()); };
    return kxCreateHostApplication(callbacks);
}

/// Runs "_COUNT" and expects it to print `text` and nothing else.
void expectCount(kxHostApplication_c& application, std::vector<std::string>& lines,
                 const std::string& text) {
    lines.clear();
    expect(application.RunCommand("_COUNT"), "_COUNT runs");
    expect(lines == std::vector<std::string>{text},
           "it prints \"" + text + "\", got \"" + (lines.empty() ? "" : lines.back()) + "\"");
}

void countInADrawing(kxHostApplication_c& application, std::vector<std::string>& lines) {
    expectCount(application, lines, "No drawing is open");
    const kxHostDocument_ptr document = application.AddDocument("three points", false);
    const std::vector<kxObject_ptr> points = {kxCreatePoint("0", {0, 0, 0}),
                                              kxCreatePoint("0", {1, 0, 0}),
                                              kxCreatePoint("0", {0, 1, 0})};
    document->SetObjects(points);
    application.SetActiveDocument(document.get());
    expectCount(application, lines, "0 objects selected");
    document->SetSelection(kxSelectionSetType_Current, {points[2], points[0]});
    expectCount(application, lines, "2 objects selected");
    document->SetSelection(kxSelectionSetType_Current, {points[1]});
    expectCount(application, lines, "1 object selected");
    application.CloseDocument(document.get());
    expectCount(application, lines, "No drawing is open");
}

/// The add-in must refuse to start, and leave nothing behind, when its command's name is taken.
void refuseNameInUse(const std::string& path) {
    std::vector<std::string> lines;
    const kxHostApplication_ptr application = makeApplication(lines);
    kxCreateCommandError_e commandError = kxCreateCommandError_NoError;
    application->CreateCommand("of the host", "_Count", &commandError);
    kxLoadedAddin addin;
    std::string error;
    const bool loaded = addin.Load(path, application.get(), &error);
    expect(!loaded, "a name in use is refused: " + error);
    expect(application->GetCommandNames().size() == 1, "the host's own command stays");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: ConsumerHost ADDIN\n";
        return 2;
    }
    refuseNameInUse(argv[1]);
    std::vector<std::string> lines;
    const kxHostApplication_ptr application = makeApplication(lines);
    kxLoadedAddin addin;
    std::string error;
    if (!addin.Load(argv[1], application.get(), &error)) {
        std::cerr << "not loaded: " << error << '\n';
        return 1;
    }
    countInADrawing(*application, lines);
    addin.Unload();
    expect(!application->RunCommand("_COUNT"), "unloaded, the command is gone");
    expect(application->GetCommandNames().empty(), "no command is left");
    return g_failures == 0 ? 0 : 1;
}
