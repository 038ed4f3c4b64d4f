// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Selectable.h"

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include "TestDxf.h"

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

TEST(SelectableInserts, An_insert_on_a_hidden_layer_hides_what_takes_its_layer) {
    TestDxf dxf;
    dxf.tables = groups({{0, "TABLE"}, {2, "LAYER"}}) + layer("OFF", 0, -7);
    dxf.blocks = block("B", line("0", "0", "1", "0") + line("0", "0", "1", "0", "OWN"));
    dxf.entities = insert("B", "0", "0", {}, "OFF");
    const kxHostApplication_ptr application = kxCreateHostApplication({});
    const kxHostDocument_ptr document = application->AddDocument("drawing", false);
    loadInto(*document, readGood(dxf.text()));
    EXPECT_EQ(document->GetObjects().size(), 2U);
    const auto selectable = selectableObjects(*document);
    ASSERT_EQ(selectable.size(), 1U);
    EXPECT_EQ(selectable.front()->GetLayer(), kxString("OWN"));
}

}  // namespace
}  // namespace kxdrawing
