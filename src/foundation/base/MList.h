#pragma once

#include "foundation/base/MListSort.h"
#include "foundation/base/MListStorage.h"

/// How an `MList` holds its elements.
enum MListMode : int32_t {
    MListValues = 0,    ///< the object itself, inline in the array
    MListPointers = 1,  ///< a plain pointer; only the array is freed
    MListOwning = 2,    ///< a pointer; the object is deleted on removal and cloned with the list
};

/// What the modes of `MList` differ in: the stored element and what becomes of it.
template <class T, int32_t Mode>
struct MListPolicy {
    using Element = T*;
    static Element Clone(const Element& element) {
        if constexpr (Mode == MListOwning) return element ? new T(*element) : nullptr;
        return element;
    }
    static void Dispose(Element& element) {
        if constexpr (Mode == MListOwning) delete element;
    }
};

template <class T>
struct MListPolicy<T, MListValues> {
    using Element = T;
    static const T& Clone(const T& element) { return element; }
    static void Dispose(T&) {}
};

/// The list of the library. Indices are 0-based; the capacity follows the count by powers of two,
/// growing and shrinking, and an emptied list holds no array.
///
/// `Mode` says how elements are held (see `MListMode`). An element read by index is not range-checked.
template <class T, int32_t Mode = MListValues>
class MList {
    using Policy = MListPolicy<T, Mode>;

public:
    using Element = typename Policy::Element;

    MList() = default;
    MList(const MList& other) {
        storage.Reserve(other.GetCount());
        for (const Element& element : other) Add(Policy::Clone(element));
    }
    MList(MList&& other) noexcept = default;
    MList& operator=(MList other) noexcept {
        storage.Swap(other.storage);
        return *this;
    }
    ~MList() { DisposeAll(); }

    [[nodiscard]] int32_t GetCount() const { return storage.GetCount(); }
    [[nodiscard]] bool IsEmpty() const { return GetCount() == 0; }
    [[nodiscard]] int32_t GetCapacity() const { return storage.GetCapacity(); }

    [[nodiscard]] Element& operator[](int32_t index) { return storage.Begin()[index]; }
    [[nodiscard]] const Element& operator[](int32_t index) const { return storage.Begin()[index]; }
    [[nodiscard]] Element* begin() { return storage.Begin(); }
    [[nodiscard]] Element* end() { return storage.Begin() + GetCount(); }
    [[nodiscard]] const Element* begin() const { return storage.Begin(); }
    [[nodiscard]] const Element* end() const { return storage.Begin() + GetCount(); }

    /// Makes room at once for as many elements as will soon be there.
    void Reserve(int32_t count) { storage.Reserve(count); }
    void Add(Element element) { storage.Insert(GetCount(), std::move(element)); }
    /// The index is clamped to 0..count.
    void Insert(int32_t index, Element element) {
        storage.Insert(std::clamp(index, 0, GetCount()), std::move(element));
    }
    /// Raises "Index out of range." (0).
    void Remove(int32_t index) {
        CheckIndex(index);
        Policy::Dispose(storage.Begin()[index]);
        storage.Remove(index);
    }
    /// Removes an element without deleting what it points at, and gives it to the caller.
    /// Raises "Index out of range." (0).
    Element Take(int32_t index) {
        CheckIndex(index);
        Element element = std::move(storage.Begin()[index]);
        storage.Remove(index);
        return element;
    }
    /// With `keepObjects` an owning list leaves its objects to the caller.
    void Clear(bool keepObjects = false) {
        if (!keepObjects) DisposeAll();
        storage.Clear();
    }
    void Exchange(int32_t first, int32_t second) { std::swap((*this)[first], (*this)[second]); }

    /// Sorts by `less(a, b)`. Not stable.
    template <class Less>
    void Sort(Less less) {
        MListSort(begin(), GetCount(), less);
    }
    /// Adds before the first element that is not below the new one, walking from the start.
    template <class Less>
    int32_t AddSorted(Element element, Less less) {
        int32_t index = 0;
        while (index < GetCount() && less((*this)[index], element)) ++index;
        Insert(index, std::move(element));
        return index;
    }
    /// Binary search in a sorted list: `compare(element)` is below, at or above 0 as the element is
    /// below, at or above what is looked for. Returns the index of a match, or -1.
    template <class Compare>
    [[nodiscard]] int32_t FindSorted(Compare compare) const {
        int32_t low = 0;
        int32_t high = GetCount() - 1;
        while (low <= high) {
            const int32_t middle = low + (high - low) / 2;
            const int32_t difference = compare((*this)[middle]);
            if (difference == 0) return middle;
            if (difference < 0)
                low = middle + 1;
            else
                high = middle - 1;
        }
        return -1;
    }

private:
    void CheckIndex(int32_t index) const {
        if (index < 0 || index >= GetCount()) MRaise(MExceptionGeneral, "Index out of range.");
    }
    void DisposeAll() {
        for (Element& element : *this) Policy::Dispose(element);
    }

    MListStorage<Element> storage;
};
