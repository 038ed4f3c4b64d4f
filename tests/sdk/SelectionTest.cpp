// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include "Listener.h"

namespace {

constexpr auto kCurrent = kxSelectionSetType_Current;
constexpr auto kPrevious = kxSelectionSetType_Previous;
using Objects = std::vector<kxObject_ptr>;

class SelectionTest : public testing::Test {
protected:
    void SetUp() override {
        m_document->SetObjects({m_a, m_b, m_hidden, m_c});
        m_document->SetLayers({{"off", false}});
        m_manager->RegisterEvent(kxSelectionManager_SelectionChangedNotify_id, &m_changed,
                                 Listener::hook);
    }

    /// What the interface of add-ins reads of a set; it must be what the host reads.
    Objects selected(kxSelectionSetType_e set) const {
        long count = -1;
        m_manager->GetSelectedObjectCount(set, &count);
        Objects objects;
        for (long i = 0; i < count; ++i) {
            kxObjectType_e type = kxUnknownType;
            kxObject* object = nullptr;
            m_manager->GetSelectedObject(set, i, &type, &object);
            EXPECT_EQ(type, object->GetType());
            objects.emplace_back(object);
        }
        EXPECT_EQ(objects, m_document->GetSelection(set));
        return objects;
    }
    void select(const Objects& objects) { m_document->SetSelection(kCurrent, objects); }

    kxHostApplication_ptr m_application = kxCreateHostApplication({});
    kxHostDocument_ptr m_document = m_application->AddDocument("d", false);
    kxSelectionManager_ptr m_manager = m_document->GetSelectionManager();
    kxObject_ptr m_a = kxCreatePoint("0", {1, 0, 0});
    kxObject_ptr m_b = kxCreateLine("0", {}, {});
    kxObject_ptr m_c = kxCreateCircle("top", {}, 1);
    kxObject_ptr m_hidden = kxCreatePoint("off", {});
    Listener m_changed;
};

TEST_F(SelectionTest, isEmptyAtFirst) {
    EXPECT_TRUE(selected(kCurrent).empty());
    EXPECT_TRUE(selected(kPrevious).empty());
}

TEST_F(SelectionTest, keepsTheGivenOrderAndDropsDuplicates) {
    select({m_c, m_a, m_c, m_b, m_a});
    EXPECT_EQ(selected(kCurrent), (Objects{m_c, m_a, m_b}));
}

TEST_F(SelectionTest, leavesOutHiddenLayersStrangersAndNull) {
    const kxObject_ptr stranger = kxCreatePoint("0", {});
    select({m_hidden, m_a, stranger, nullptr});
    EXPECT_EQ(selected(kCurrent), Objects{m_a});
    m_document->SetSelection(kPrevious, {m_hidden, stranger, m_b, m_b});
    EXPECT_EQ(selected(kPrevious), Objects{m_b});
}

TEST_F(SelectionTest, outOfRangeIsUnknownAndNull) {
    select({m_a});
    for (const long index : {-1L, 1L}) {
        kxObjectType_e type = kxLineType;
        kxObject* object = m_b.get();
        m_manager->GetSelectedObject(kCurrent, index, &type, &object);
        EXPECT_EQ(type, kxUnknownType);
        EXPECT_EQ(object, nullptr);
    }
}

TEST_F(SelectionTest, aSetThatDoesNotExistIsEmptyAndStaysSo) {
    const auto none = static_cast<kxSelectionSetType_e>(3);
    m_document->SetSelection(none, {m_a});
    long count = -1;
    m_manager->GetSelectedObjectCount(none, &count);
    EXPECT_EQ(count, 0);
    kxObjectType_e type = kxLineType;
    kxObject* object = m_b.get();
    m_manager->GetSelectedObject(none, 0, &type, &object);
    EXPECT_EQ(object, nullptr);
    EXPECT_TRUE(selected(kCurrent).empty());
    EXPECT_EQ(m_changed.calls, 0);
}

TEST_F(SelectionTest, anEmptiedCurrentSetBecomesThePrevious) {
    select({m_b, m_a});
    select({});
    EXPECT_TRUE(selected(kCurrent).empty());
    EXPECT_EQ(selected(kPrevious), (Objects{m_b, m_a}));
    select({});
    EXPECT_EQ(selected(kPrevious), (Objects{m_b, m_a})) << "nothing was there to keep";
}

TEST_F(SelectionTest, aReplacedCurrentSetLeavesThePrevious) {
    m_document->SetSelection(kPrevious, {m_c});
    select({m_a});
    select({m_b});
    EXPECT_EQ(selected(kPrevious), Objects{m_c});
}

TEST_F(SelectionTest, aSetMayBeCopiedFromTheOther) {
    select({m_a, m_b});
    m_document->SetSelection(kPrevious, m_document->GetSelection(kCurrent));
    select({m_c});
    select(m_document->GetSelection(kPrevious));
    EXPECT_EQ(selected(kCurrent), (Objects{m_a, m_b}));
    select(m_document->GetSelection(kCurrent));
    EXPECT_EQ(selected(kCurrent), (Objects{m_a, m_b}));
}

TEST_F(SelectionTest, theEventComesAfterEachChangeOfTheCurrentSetOnly) {
    m_changed.action = [this] { EXPECT_EQ(selected(kCurrent).size(), 1U); };
    select({m_a});
    EXPECT_EQ(m_changed.calls, 1);
    select({m_a});
    EXPECT_EQ(m_changed.calls, 1);
    m_document->SetSelection(kPrevious, {m_b});
    EXPECT_EQ(m_changed.calls, 1);
    m_changed.action = nullptr;
    select({});
    EXPECT_EQ(m_changed.calls, 2);
    select({});
    EXPECT_EQ(m_changed.calls, 2);
}

TEST_F(SelectionTest, anotherOrderIsAChange) {
    select({m_a, m_b});
    select({m_b, m_a});
    EXPECT_EQ(m_changed.calls, 2);
}

TEST_F(SelectionTest, objectsThatAreGoneLeaveBothSets) {
    select({m_a, m_b});
    m_document->SetSelection(kPrevious, {m_b, m_c});
    m_changed.calls = 0;
    m_document->SetObjects({m_c, m_a});
    EXPECT_EQ(selected(kCurrent), Objects{m_a});
    EXPECT_EQ(selected(kPrevious), Objects{m_c});
    EXPECT_EQ(m_changed.calls, 1);
    m_document->SetObjects({m_a});
    EXPECT_TRUE(selected(kPrevious).empty());
    EXPECT_EQ(m_changed.calls, 1) << "the current set stayed";
}

TEST_F(SelectionTest, hidingALayerTakesItsObjectsOutOfTheCurrentSet) {
    select({m_c, m_a});
    m_document->SetSelection(kPrevious, {m_c});
    m_changed.calls = 0;
    m_document->SetLayers({{"top", false}});
    EXPECT_EQ(selected(kCurrent), Objects{m_a});
    EXPECT_EQ(selected(kPrevious), Objects{m_c});
    EXPECT_EQ(m_changed.calls, 1);
    select({m_c});
    EXPECT_TRUE(selected(kCurrent).empty());
}

TEST_F(SelectionTest, aHookMayChangeTheSelection) {
    m_changed.action = [this] { select({m_c}); };
    select({m_a});
    EXPECT_EQ(selected(kCurrent), Objects{m_c});
    EXPECT_EQ(m_changed.calls, 2);
}

TEST_F(SelectionTest, aHookMayCloseTheDrawingWhenNobodyElseHoldsIt) {
    select({m_a});
    kxHostDocument_c* document = m_document.get();
    m_document = nullptr;
    m_manager = nullptr;
    m_changed.action = [&] { m_application->CloseDocument(document); };
    m_changed.calls = 0;
    document->SetObjects({m_b});
    EXPECT_EQ(m_changed.calls, 1);
    EXPECT_TRUE(m_application->GetDocuments().empty());
    EXPECT_EQ(m_b->GetRefCount(), 1);
}

TEST_F(SelectionTest, eventsOfTheManagerAreRegisteredByNumber) {
    const auto unknown = static_cast<kxSelectionManagerEvent_e>(0);
    EXPECT_EQ(m_manager->RegisterEvent(unknown, this, Listener::hook), kxEventResult_UnknownEvent);
    const auto changed = kxSelectionManager_SelectionChangedNotify_id;
    EXPECT_EQ(m_manager->UnRegisterEvent(changed, &m_changed), kxEventResult_Success);
    EXPECT_EQ(m_manager->UnRegisterEvent(changed, &m_changed), kxEventResult_NotRegistered);
    select({m_a});
    EXPECT_EQ(m_changed.calls, 0);
}

TEST_F(SelectionTest, theFilterAcceptsAllUntilAKindIsAdded) {
    const kxSelectionFilter_ptr filter = m_manager->GetSelectionFilter();
    EXPECT_TRUE(filter->Accepts(kxLineType));
    filter->AddType(kxLineType);
    filter->AddType(kxLineType);
    filter->AddType(kxPointType);
    EXPECT_TRUE(filter->Accepts(kxLineType));
    EXPECT_TRUE(filter->Accepts(kxPointType));
    EXPECT_FALSE(filter->Accepts(kxCircleType));
    EXPECT_TRUE(m_manager->GetSelectionFilter() == filter);
    filter->Clear();
    EXPECT_TRUE(filter->Accepts(kxCircleType));
}

TEST_F(SelectionTest, setNumbersAreFixed) {
    EXPECT_EQ(kCurrent, 1);
    EXPECT_EQ(kPrevious, 2);
}

}  // namespace
