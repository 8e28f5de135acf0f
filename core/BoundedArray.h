#pragma once

#include "RuntimeError.h"

#include <array>
#include <cstddef>

// A fixed array addressed by the program's own numbering (fields 1..36, free
// texts 0..14, pending marks 1..15). An index outside the bounds is the
// program's "Subscript out of range", never undefined behaviour.
template <typename T, int Lower, int Upper> class BoundedArray {
    static_assert(Lower <= Upper);

public:
    static constexpr int lower = Lower;
    static constexpr int upper = Upper;

    T& operator()(int i) { return m_items[slot(i)]; }
    const T& operator()(int i) const { return m_items[slot(i)]; }

    void fill(const T& value) { m_items.fill(value); }
    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    bool operator==(const BoundedArray& other) const { return m_items == other.m_items; }

private:
    static std::size_t slot(int i)
    {
        if (i < Lower || i > Upper)
            throw RuntimeError::subscriptOutOfRange();
        return static_cast<std::size_t>(i - Lower);
    }

    std::array<T, Upper - Lower + 1> m_items{};
};
