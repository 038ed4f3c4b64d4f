// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxInterfacePtr.h>

#include <gtest/gtest.h>
#include <kx/kxRefCounted.h>

#include <type_traits>
#include <utility>

namespace {

class Base : public kxRefCounted_c {
public:
    explicit Base(bool* destroyed) : m_destroyed(destroyed) {}

protected:
    ~Base() override { *m_destroyed = true; }

private:
    bool* m_destroyed;
};

class Derived final : public Base {
public:
    using Base::Base;
};

class kxInterfacePtrTest : public testing::Test {
protected:
    bool m_destroyed = false;
    kxInterfacePtr<Derived> m_pointer{new Derived(&m_destroyed)};
};

TEST_F(kxInterfacePtrTest, countsTheReferences) {
    EXPECT_EQ(m_pointer->GetRefCount(), 1);
    {
        const kxInterfacePtr<Derived> second(m_pointer);
        const kxInterfacePtr<Derived> third(m_pointer.get());
        EXPECT_EQ(m_pointer->GetRefCount(), 3);
    }
    EXPECT_EQ(m_pointer->GetRefCount(), 1);
    EXPECT_FALSE(m_destroyed);
    m_pointer = nullptr;
    EXPECT_TRUE(m_destroyed);
}

TEST_F(kxInterfacePtrTest, movingKeepsTheCountAndEmptiesTheSource) {
    kxInterfacePtr<Derived> target(std::move(m_pointer));
    EXPECT_FALSE(m_pointer);  // NOLINT(bugprone-use-after-move): empty by promise
    EXPECT_EQ(target->GetRefCount(), 1);
    m_pointer = std::move(target);
    EXPECT_EQ(m_pointer->GetRefCount(), 1);
}

TEST_F(kxInterfacePtrTest, assigningItselfChangesNothing) {
    const kxInterfacePtr<Derived>& same = m_pointer;
    m_pointer = same;
    EXPECT_EQ(m_pointer->GetRefCount(), 1);
    kxInterfacePtr<Derived>& movable = m_pointer;
    m_pointer = std::move(movable);
    ASSERT_TRUE(m_pointer);
    EXPECT_EQ(m_pointer->GetRefCount(), 1);
    m_pointer = m_pointer.get();
    EXPECT_EQ(m_pointer->GetRefCount(), 1);
    EXPECT_FALSE(m_destroyed);
}

TEST_F(kxInterfacePtrTest, assigningAnotherReleasesTheFirst) {
    bool otherDestroyed = false;
    m_pointer = new Derived(&otherDestroyed);
    EXPECT_TRUE(m_destroyed);
    EXPECT_FALSE(otherDestroyed);
    m_pointer = kxInterfacePtr<Derived>();
    EXPECT_TRUE(otherDestroyed);
}

TEST_F(kxInterfacePtrTest, convertsToTheBaseOnly) {
    kxInterfacePtr<Base> base = m_pointer;
    EXPECT_EQ(m_pointer->GetRefCount(), 2);
    EXPECT_TRUE(base == m_pointer);
    EXPECT_FALSE(base != m_pointer);
    m_pointer = nullptr;
    EXPECT_FALSE(m_destroyed);
    EXPECT_TRUE(base != m_pointer);
    base = nullptr;
    EXPECT_TRUE(m_destroyed);
}

TEST(kxInterfacePtr, isNullByDefault) {
    const kxInterfacePtr<Derived> empty;
    const kxInterfacePtr<Derived> fromNull(nullptr);
    const kxInterfacePtr<Derived> fromNullObject(static_cast<Derived*>(nullptr));
    EXPECT_FALSE(empty);
    EXPECT_EQ(empty.get(), nullptr);
    EXPECT_TRUE(empty == fromNull);
    EXPECT_TRUE(empty == fromNullObject);
    const kxInterfacePtr<Base> converted = empty;
    EXPECT_FALSE(converted);
}

TEST(kxInterfacePtr, doesNotTurnIntoANumberUnasked) {
    EXPECT_FALSE((std::is_convertible_v<kxInterfacePtr<Base>, bool>));
    EXPECT_FALSE((std::is_convertible_v<kxInterfacePtr<Base>, Base*>));
}

}  // namespace
