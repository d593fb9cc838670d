#pragma once

#include <cstdint>
#include <utility>
#include <vector>

/// The sort behind `MList::Sort`: a quicksort whose pivot is the median of the first, the middle and
/// the last element. Short ranges end in an insertion sort; the halves of long ranges wait on an
/// explicit list, so the stack stays small whatever the input. Not stable.
namespace MListSortDetails {

constexpr int32_t SimpleSortBelow = 8;
constexpr int32_t ListRangesFrom = 1024;

template <class Element, class Less>
void InsertionSort(Element* first, int32_t count, Less& less) {
    for (int32_t i = 1; i < count; ++i)
        for (int32_t j = i; j > 0 && less(first[j], first[j - 1]); --j) std::swap(first[j], first[j - 1]);
}

/// Puts the median of three into the middle, with the smaller and the larger one at the ends.
template <class Element, class Less>
void OrderEndsAndMiddle(Element* first, int32_t count, Less& less) {
    Element& middle = first[count / 2];
    Element& last = first[count - 1];
    if (less(middle, first[0])) std::swap(middle, first[0]);
    if (less(last, middle)) std::swap(last, middle);
    if (less(middle, first[0])) std::swap(middle, first[0]);
}

/// Splits a range of at least three elements around its pivot; returns the pivot's final index.
template <class Element, class Less>
int32_t Partition(Element* first, int32_t count, Less& less) {
    OrderEndsAndMiddle(first, count, less);
    const int32_t pivot = count - 2;
    std::swap(first[count / 2], first[pivot]);
    int32_t low = 0;
    int32_t high = pivot;
    while (true) {
        while (less(first[++low], first[pivot])) {}
        while (low < high && less(first[pivot], first[--high])) {}
        if (low >= high) break;
        std::swap(first[low], first[high]);
    }
    std::swap(first[low], first[pivot]);
    return low;
}

template <class Element, class Less>
void SortRecursively(Element* first, int32_t count, Less& less) {
    if (count < SimpleSortBelow) return InsertionSort(first, count, less);
    const int32_t pivot = Partition(first, count, less);
    SortRecursively(first, pivot, less);
    SortRecursively(first + pivot + 1, count - pivot - 1, less);
}

}  // namespace MListSortDetails

/// Sorts `count` elements from `first` by `less(a, b)`.
template <class Element, class Less>
void MListSort(Element* first, int32_t count, Less& less) {
    using namespace MListSortDetails;
    std::vector<std::pair<Element*, int32_t>> ranges{{first, count}};
    while (!ranges.empty()) {
        const auto [start, length] = ranges.back();
        ranges.pop_back();
        if (length < ListRangesFrom) {
            SortRecursively(start, length, less);
            continue;
        }
        const int32_t pivot = Partition(start, length, less);
        ranges.emplace_back(start, pivot);
        ranges.emplace_back(start + pivot + 1, length - pivot - 1);
    }
}
