// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxRefCounted.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

class Counted final : public kxRefCounted_c {
public:
    explicit Counted(int* destroyed) : m_destroyed(destroyed) {}

protected:
    ~Counted() override { ++*m_destroyed; }

private:
    int* m_destroyed;
};

TEST(kxRefCounted, startsWithoutReferencesAndIsDestroyedByTheLastRelease) {
    int destroyed = 0;
    const auto* object = new Counted(&destroyed);
    EXPECT_EQ(object->GetRefCount(), 0);
    object->AddRef();
    object->AddRef();
    EXPECT_EQ(object->GetRefCount(), 2);
    object->Release();
    EXPECT_EQ(object->GetRefCount(), 1);
    EXPECT_EQ(destroyed, 0);
    object->Release();
    EXPECT_EQ(destroyed, 1);
}

TEST(kxRefCounted, canNotBeCopiedOrDeletedFromOutside) {
    EXPECT_FALSE(std::is_copy_constructible_v<Counted>);
    EXPECT_FALSE(std::is_copy_assignable_v<Counted>);
    EXPECT_FALSE(std::is_destructible_v<kxRefCounted_c>);
}

}  // namespace
