#include "foundation/base/MList.h"
#include "foundation/base/MBuffer.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <vector>

namespace {

/// Counts how many of its kind are alive.
struct Counted {
    static inline int alive = 0;
    Counted() { ++alive; }
    Counted(const Counted&) { ++alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --alive; }
};

TEST(MListTest, CapacityFollowsTheCountByPowersOfTwo) {
    MList<MString> list;
    const int32_t growing[] = {0, 1, 2, 4, 4, 8, 8, 8, 8, 16};
    for (int32_t count = 0; count < 10; ++count) {
        EXPECT_EQ(list.GetCapacity(), growing[count]) << count;
        list.Add(MString::Print("%d", count));
    }
    for (int32_t count = 9; count >= 0; --count) {
        list.Remove(0);
        EXPECT_EQ(list.GetCapacity(), growing[count]) << count;
    }
}

TEST(MListTest, InsertionIsClampedAndRemovalIsChecked) {
    MList<MString> list;
    list.Insert(-3, "b");
    list.Insert(100, "c");
    list.Insert(0, "a");
    list.Exchange(0, 1);
    EXPECT_EQ(Text(list[0] + list[1] + list[2]), "bac");
    for (const int32_t index : {-1, 3})
        EXPECT_EQ(FailureOf([&] { list.Remove(index); }), "0: Index out of range.");
    EXPECT_THROW((void)list.Take(3), MException);
}

TEST(MListTest, OwningListsDeleteAndCloneTheirObjects) {
    {
        MList<Counted, MListOwning> list;
        for (int i = 0; i < 5; ++i) list.Add(new Counted);
        const MList<Counted, MListOwning> clone = list;
        EXPECT_NE(clone[0], list[0]);
        list.Remove(2);
        EXPECT_EQ(Counted::alive, 9);
        MList<Counted, MListPointers> plain;
        plain.Add(list.Take(0));
        for (Counted* element : list) plain.Add(element);
        list.Clear(true);
        EXPECT_EQ(Counted::alive, 9);
        for (Counted* element : plain) delete element;
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(MListTest, BuffersArePrivateOnceTheyChange) {
    MCHARBuffer first(4);
    std::memcpy(first.Edit(), "abcd", 4);
    MCHARBuffer second = first;
    EXPECT_EQ(second.Get(), first.Get());
    second.Edit()[0] = 'X';
    EXPECT_EQ(MBytesOf(first) + MBytesOf(second), "abcdXbcd");

    const char borrowed[] = "lent";
    MCHARBuffer third = first;
    third.Attach(borrowed, 4);
    EXPECT_EQ(third.Get(), borrowed);
    EXPECT_EQ(MBytesOf(first), "abcd");
    third.ResizeCount(6);
    third.Edit()[0] = 'b';
    EXPECT_STREQ(borrowed, "lent");
    EXPECT_EQ(MBytesOf(third).substr(0, 4), "bent");
}

using Order = int32_t (*)(int32_t index, int32_t count);

constexpr Order Orders[] = {
    [](int32_t i, int32_t) { return i; },
    [](int32_t i, int32_t count) { return count - i; },
    [](int32_t, int32_t) { return 5; },
    [](int32_t i, int32_t) { return i % 17; },
    [](int32_t i, int32_t count) { return std::min(i, count - i); },
    [](int32_t i, int32_t count) { return i == 0 || i + 1 == count ? -1 : i * 7919 % 104729; }};

TEST(MListTest, SortsEveryOrderAtEveryInterestingSize) {
    for (const Order order : Orders)
        for (const int32_t count : {0, 1, 2, 3, 7, 8, 9, 100, 1023, 1024, 1025, 5000}) {
            MList<int32_t> list;
            for (int32_t i = 0; i < count; ++i) list.Add(order(i, count));
            std::vector<int32_t> expected(list.begin(), list.end());
            std::ranges::sort(expected);
            list.Sort(std::less<>());
            EXPECT_TRUE(std::ranges::equal(list, expected)) << count;
        }
}

TEST(MListTest, SortedListsTakeBeforeEqualElementsAndFindEachOne) {
    MList<std::pair<int, char>> pairs;
    const auto less = [](const auto& a, const auto& b) { return a.first < b.first; };
    for (const auto& element : {std::pair{2, 'a'}, {1, 'b'}, {2, 'c'}, {3, 'd'}})
        pairs.AddSorted(element, less);
    std::string order;
    for (const auto& element : pairs) order += element.second;
    EXPECT_EQ(order, "bcad");

    MList<int32_t> list;
    for (int32_t i = 0; i < 37; ++i) list.Add(i * 2);
    for (int32_t wanted = -1; wanted < 76; ++wanted) {
        const int32_t found = list.FindSorted([&](int32_t element) { return element - wanted; });
        EXPECT_EQ(found, wanted % 2 == 0 && wanted < 74 ? wanted / 2 : -1) << wanted;
    }
}

}  // namespace
