#pragma once

#include "foundation/base/MList.h"

#include <algorithm>

/// The place of a pointer in a list, or -1.
template <class T, int32_t Mode>
[[nodiscard]] int32_t MFindInList(const MList<T, Mode>& list, const T* element) {
    const auto found = std::find(list.begin(), list.end(), element);
    return found == list.end() ? -1 : static_cast<int32_t>(found - list.begin());
}

/// Removes a pointer from a list if it is there.
template <class T>
void MRemoveFromList(MList<T, MListPointers>& list, const T* element) {
    const int32_t index = MFindInList(list, element);
    if (index >= 0) list.Remove(index);
}
