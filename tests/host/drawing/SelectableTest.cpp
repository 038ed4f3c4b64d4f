// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Selectable.h"

#include <gtest/gtest.h>

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

namespace kxdrawing {
namespace {

class Selectable : public testing::Test {
protected:
    void SetUp() override {
        m_document->SetLayers({{"A", true}, {"HIDDEN", false}});
        m_document->SetObjects(m_objects);
    }

    kxHostApplication_ptr m_application = kxCreateHostApplication({});
    kxHostDocument_ptr m_document = m_application->AddDocument("drawing", false);
    std::vector<kxObject_ptr> m_objects = {
        kxCreateCircle("B", {0, 0, 0}, 1), kxCreateLine("A", {0, 0, 0}, {1, 0, 0}),
        kxCreateLine("HIDDEN", {0, 0, 0}, {1, 0, 0}), kxCreateCircle("A", {0, 0, 0}, 2)};
};

TEST_F(Selectable, Everything_visible_in_drawing_order) {
    const std::vector<kxObject_ptr> wanted = {m_objects[0], m_objects[1], m_objects[3]};
    EXPECT_EQ(selectableObjects(*m_document), wanted);
}

TEST_F(Selectable, By_layer_and_type) {
    EXPECT_EQ(selectableObjects(*m_document, {{"A"}, {}}),
              (std::vector<kxObject_ptr>{m_objects[1], m_objects[3]}));
    EXPECT_EQ(selectableObjects(*m_document, {{}, {kxCircleType}}),
              (std::vector<kxObject_ptr>{m_objects[0], m_objects[3]}));
    EXPECT_EQ(selectableObjects(*m_document, {{"A", "B"}, {kxLineType, kxPointType}}),
              (std::vector<kxObject_ptr>{m_objects[1]}));
}

TEST_F(Selectable, A_hidden_layer_gives_nothing_even_when_named) {
    EXPECT_TRUE(selectableObjects(*m_document, {{"HIDDEN"}, {}}).empty());
}

}  // namespace
}  // namespace kxdrawing
