#pragma once

#include "foundation/base/MException.h"
#include "foundation/base/MMemory.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

/// The array behind `MList`: capacity, block and count. Capacity follows the count exactly by
/// `NextPowerOfTwo`, upwards when adding and downwards when removing.
template <class Element>
class MListStorage {
public:
    MListStorage() = default;
    MListStorage(MListStorage&& other) noexcept { Swap(other); }
    MListStorage& operator=(MListStorage&&) = delete;
    ~MListStorage() { Clear(); }

    [[nodiscard]] int32_t GetCount() const { return count; }
    [[nodiscard]] int32_t GetCapacity() const { return capacity; }
    [[nodiscard]] Element* Begin() { return elements; }
    [[nodiscard]] const Element* Begin() const { return elements; }

    void Insert(int32_t index, Element element) {
        Reserve(count + 1);
        std::construct_at(elements + count, std::move(element));
        std::rotate(elements + index, elements + count, elements + count + 1);
        ++count;
    }
    void Remove(int32_t index) {
        std::move(elements + index + 1, elements + count, elements + index);
        std::destroy_at(elements + --count);
        if (count == 0) return Clear();
        const int32_t wanted = CapacityFor(count);
        if (wanted != capacity) Reallocate(wanted);
    }
    void Clear() {
        std::destroy_n(elements, count);
        if (elements) MMemoryFree(elements);
        elements = nullptr;
        capacity = 0;
        count = 0;
    }
    void Reserve(int32_t needed) {
        const int32_t wanted = CapacityFor(needed);
        if (wanted > capacity) Reallocate(wanted);
    }
    void Swap(MListStorage& other) noexcept {
        std::swap(capacity, other.capacity);
        std::swap(elements, other.elements);
        std::swap(count, other.count);
    }

private:
    static int32_t CapacityFor(int32_t needed) {
        return static_cast<int32_t>(NextPowerOfTwo(static_cast<uint32_t>(needed)));
    }

    void Reallocate(int32_t wanted) {
        auto* moved = static_cast<Element*>(MMemoryAlloc(sizeof(Element) * static_cast<size_t>(wanted)));
        if (elements) {
            std::uninitialized_move_n(elements, count, moved);
            std::destroy_n(elements, count);
            MMemoryFree(elements);
        }
        elements = moved;
        capacity = wanted;
    }

    Element* elements = nullptr;
    int32_t capacity = 0;
    int32_t count = 0;
};
