// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>

/// A counted reference to an object of class `T`, which derives from `kxRefCounted_c`.
/// Holds null or keeps its object alive. Use on the host's user-interface thread.
template <class T>
class kxInterfacePtr {
public:
    kxInterfacePtr() noexcept = default;
    kxInterfacePtr(std::nullptr_t) noexcept {}
    kxInterfacePtr(T* object) noexcept : m_object(object) { addRef(); }
    kxInterfacePtr(const kxInterfacePtr& other) noexcept : m_object(other.m_object) { addRef(); }
    kxInterfacePtr(kxInterfacePtr&& other) noexcept : m_object(std::exchange(other.m_object, {})) {}
    template <class U>
    kxInterfacePtr(const kxInterfacePtr<U>& other) noexcept : m_object(other.get()) {
        addRef();
    }
    ~kxInterfacePtr() {
        if (m_object != nullptr) {
            m_object->Release();
        }
    }

    kxInterfacePtr& operator=(kxInterfacePtr other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    template <class U>
    bool operator==(const kxInterfacePtr<U>& other) const noexcept {
        return m_object == other.get();
    }
    template <class U>
    bool operator!=(const kxInterfacePtr<U>& other) const noexcept {
        return m_object != other.get();
    }

private:
    void addRef() const noexcept {
        if (m_object != nullptr) {
            m_object->AddRef();
        }
    }

    T* m_object = nullptr;
};
