// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <QEventLoop>
#include <QObject>

#include <kx/host/kxHostCallbacks.h>
#include <kx/host/kxHostDocument.h>

/// Lets the user select for an add-in: collects what is pointed at until it is finished or
/// cancelled, in an event loop of its own. One at a time.
class SelectionPrompt : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~SelectionPrompt() override;

    bool isActive() const { return m_loop != nullptr; }
    /// The drawing that is asked about; null while none is.
    kxHostDocument_ptr document() const { return m_document; }
    const std::vector<kxObject_ptr>& chosen() const { return m_chosen; }

    /// Waits; the chosen objects in the order they were pointed at, or nothing when cancelled.
    /// Nothing at once while another prompt waits.
    std::optional<std::vector<kxObject_ptr>> run(const kxHostDocument_ptr& document,
                                                 const kxSelectionRequest& request);

    /// With a single object asked for, the first one that is added finishes the prompt.
    void add(const std::vector<kxObject_ptr>& objects);
    void remove(const std::vector<kxObject_ptr>& objects);
    void finish();
    /// Also for a drawing that closes and an application that ends.
    void cancel();

Q_SIGNALS:
    void started(const kxSelectionRequest& request);
    void chosenChanged();
    void ended();

private:
    void begin(const kxHostDocument_ptr& document, bool single, QEventLoop* loop);
    std::optional<std::vector<kxObject_ptr>> end();
    void leave(bool accepted);

    QEventLoop* m_loop = nullptr;
    kxHostDocument_ptr m_document;
    std::vector<kxObject_ptr> m_chosen;
    bool m_single = false;
    bool m_accepted = false;
    bool m_isLeaving = false;
};
