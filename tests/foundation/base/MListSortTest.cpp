#include "foundation/base/MList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <random>

namespace {

struct Order {
    const char* name;
    std::function<int32_t(int32_t index, int32_t count)> valueAt;
};

std::mt19937 randomSource(7);

const Order Orders[] = {
    {"ascending", [](int32_t i, int32_t) { return i; }},
    {"descending", [](int32_t i, int32_t count) { return count - i; }},
    {"equal", [](int32_t, int32_t) { return 5; }},
    {"two values", [](int32_t i, int32_t) { return i % 2; }},
    {"organ pipe", [](int32_t i, int32_t count) { return std::min(i, count - i); }},
    {"saw", [](int32_t i, int32_t) { return i % 17; }},
    {"random", [](int32_t, int32_t) { return static_cast<int32_t>(randomSource() % 100000); }},
    {"ends low", [](int32_t i, int32_t count) { return i == 0 || i + 1 == count ? -1 : i * 7919 % 104729; }},
};

TEST(MListSortTest, SortsEveryOrderAtEveryInterestingSize) {
    for (const Order& order : Orders) {
        for (const int32_t count : {0, 1, 2, 3, 7, 8, 9, 100, 1023, 1024, 1025, 5000}) {
            MList<int32_t> list;
            for (int32_t i = 0; i < count; ++i) list.Add(order.valueAt(i, count));
            std::vector<int32_t> expected(list.begin(), list.end());
            std::ranges::sort(expected);
            list.Sort(std::less<>());
            EXPECT_TRUE(std::ranges::equal(list, expected)) << order.name << " of " << count;
        }
    }
}

TEST(MListSortTest, SortedAdditionGoesBeforeEqualElements) {
    MList<std::pair<int, char>> list;
    const auto less = [](const auto& a, const auto& b) { return a.first < b.first; };
    for (const auto& element : {std::pair{2, 'a'}, {1, 'b'}, {2, 'c'}, {3, 'd'}})
        list.AddSorted(element, less);
    std::string order;
    for (const auto& element : list) order += element.second;
    EXPECT_EQ(order, "bcad");
}

TEST(MListSortTest, FindsEachElementOfASortedList) {
    MList<int32_t> list;
    for (int32_t i = 0; i < 37; ++i) list.Add(i * 2);
    for (int32_t wanted = -1; wanted < 76; ++wanted) {
        const int32_t found = list.FindSorted([&](int32_t element) { return element - wanted; });
        EXPECT_EQ(found, wanted % 2 == 0 && wanted < 74 ? wanted / 2 : -1) << wanted;
    }
}

}  // namespace
