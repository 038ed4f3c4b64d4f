// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QWidget>

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

/// A host of the tests: the real object model, with panes that are widgets and everything that
/// the add-in says recorded. Texts are UTF-8.
class TestHost {
public:
    enum class Panes { widgets, withoutWindow, refused };

    /// Its Tools menu, "ID_MnTools", holds the items "Item 0" to "Item 7".
    explicit TestHost(Panes panes = Panes::widgets);
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    kxHostApplication_c* application() const { return m_application.get(); }

    /// Opens a drawing and makes it the active one; without a unit it does not say its own.
    kxHostDocument_ptr open(std::optional<short> unit = std::nullopt);
    /// Adds objects to the active drawing and selects exactly these, in this order.
    void select(const std::vector<kxObject_ptr>& objects);
    void add(const std::vector<kxObject_ptr>& objects);
    void setPrevious(const std::vector<kxObject_ptr>& objects);

    kxMenuItem_ptr toolsMenu() const;
    /// The labels of the Tools menu; "-" for a separator.
    std::vector<std::string> toolsLabels() const;
    std::vector<std::string> commandNames() const;

    /// The panes that are open, in the order they were made.
    std::vector<QWidget*> panes() const;
    /// The only pane there is; null without or with several.
    QWidget* pane() const;

    // What the add-in did.
    std::vector<std::string> lines;
    std::vector<kxPaneRequest> paneRequests;
    std::vector<kxSelectionRequest> prompts;
    std::vector<std::string> webHelp;
    std::vector<std::pair<long, std::string>> localHelp;
    int destroyedPanes = 0;

    /// How a prompt is answered; cancelled without an answer.
    std::function<bool(kxHostDocument_c&, std::vector<kxObject_ptr>*)> answer;

private:
    kxHostCallbacks callbacks(Panes panes);
    void addPaneCallbacks(kxHostCallbacks* callbacks, Panes panes);
    QWidget* paneOf(kxWindowHandle window) const;

    std::vector<std::unique_ptr<QWidget>> m_panes;
    kxHostApplication_ptr m_application;
};

kxVector3 at(double x, double y, double z = 0);
kxObject_ptr lineObject(const kxVector3& first, const kxVector3& second);
kxObject_ptr pointObject(const kxVector3& position);
kxObject_ptr circleObject(const kxVector3& centre, double radius);
/// Angles in radians, counter-clockwise.
kxObject_ptr arcObject(const kxVector3& centre, double radius, double start, double end);
kxObject_ptr polyLineObject();
kxObject_ptr noteObject();
kxObject_ptr ellipseArcObject();
/// An object that claims to be of a kind whose class it is not.
kxObject_ptr impostor(kxObjectType_e type);
