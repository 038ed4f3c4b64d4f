// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <QtGlobal>
#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

/// A growing list of plain values, one behind the other in memory. It grows by a quarter, and a
/// large one without being copied: the system moves its pages.
template <typename Value>
class PathList {
    static_assert(std::is_trivially_copyable_v<Value>);

public:
    using value_type = Value;
    using const_iterator = const Value*;

    PathList() = default;
    PathList(PathList&& other) noexcept { swap(other); }
    PathList& operator=(PathList&& other) noexcept {
        PathList(std::move(other)).swap(*this);
        return *this;
    }
    PathList(const PathList&) = delete;
    PathList& operator=(const PathList&) = delete;
    ~PathList() { std::free(m_values); }

    qsizetype size() const { return m_size; }
    qsizetype capacity() const { return m_capacity; }
    bool empty() const { return m_size == 0; }
    const Value* data() const { return m_values; }
    const Value& operator[](qsizetype index) const { return m_values[index]; }
    const Value& at(qsizetype index) const { return m_values[index]; }
    const Value* begin() const { return m_values; }
    const Value* end() const { return m_values + m_size; }
    QVector<Value> toVector() const { return QVector<Value>(begin(), end()); }

    void append(const Value& value) {
        if (m_size == m_capacity) {
            setCapacity(m_capacity + std::max(kLeastGrowth, m_capacity / 4));
        }
        new (m_values + m_size) Value(value);
        ++m_size;
    }
    /// Gives back what is not used.
    void squeeze() { setCapacity(m_size); }
    void swap(PathList& other) noexcept {
        std::swap(m_values, other.m_values);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }

private:
    static constexpr qsizetype kLeastGrowth = 256;

    void setCapacity(qsizetype capacity) {
        if (capacity == 0) {
            PathList().swap(*this);
            return;
        }
        void* values = std::realloc(m_values, static_cast<std::size_t>(capacity) * sizeof(Value));
        if (values == nullptr) {
            throw std::bad_alloc();
        }
        m_values = static_cast<Value*>(values);
        m_capacity = capacity;
    }

    Value* m_values = nullptr;
    qsizetype m_size = 0;
    qsizetype m_capacity = 0;
};

template <typename Value>
bool operator==(const PathList<Value>& a, const PathList<Value>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}
