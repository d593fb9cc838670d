#include "foundation/base/MBuffer.h"
#include "foundation/base/MList.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// Counts how many of its kind are alive.
struct Counted {
    static inline int alive = 0;
    Counted() { ++alive; }
    Counted(const Counted&) { ++alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --alive; }
};

TEST(MListCapacityTest, CapacityFollowsTheCountByPowersOfTwo) {
    MList<MString> list;
    const int32_t growing[] = {0, 1, 2, 4, 4, 8, 8, 8, 8, 16};
    for (int32_t count = 0; count < 10; ++count) {
        EXPECT_EQ(list.GetCapacity(), growing[count]) << count;
        list.Add(MString::Print("%d", count));
    }
    for (int32_t count = 8; count > 4; --count) {
        list.Remove(0);
        list.Remove(list.GetCount() - 1);
        list.Add("x");
        EXPECT_EQ(list.GetCapacity(),
                  static_cast<int32_t>(NextPowerOfTwo(static_cast<uint32_t>(list.GetCount()))));
    }
    while (!list.IsEmpty()) list.Remove(0);
    EXPECT_EQ(list.GetCapacity(), 0);
}

TEST(MListCapacityTest, InsertionIsClampedAndRemovalIsChecked) {
    MList<MString> list;
    list.Insert(-3, "b");
    list.Insert(100, "c");
    list.Insert(0, "a");
    EXPECT_EQ(Text(list[0] + list[1] + list[2]), "abc");
    for (const int32_t index : {-1, 3}) {
        EXPECT_EQ(FailureOf([&] { list.Remove(index); }), "0: Index out of range.");
        EXPECT_EQ(FailureOf([&] { (void)list.Take(index); }), "0: Index out of range.");
    }
}

TEST(MListCapacityTest, OwningListsDeleteAndCloneTheirObjects) {
    {
        MList<Counted, MListOwning> list;
        for (int i = 0; i < 5; ++i) list.Add(new Counted);
        const MList<Counted, MListOwning> clone = list;
        EXPECT_EQ(Counted::alive, 10);
        EXPECT_NE(clone[0], list[0]);
        list.Remove(2);
        EXPECT_EQ(Counted::alive, 9);
        Counted* kept = list.Take(0);
        EXPECT_EQ(Counted::alive, 9);
        MList<Counted, MListPointers> plain;
        for (Counted* element : list) plain.Add(element);
        list.Clear(true);
        EXPECT_EQ(Counted::alive, 9);
        for (Counted* element : plain) delete element;
        delete kept;
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(MListCapacityTest, BuffersArePrivateOnceTheyChange) {
    MCHARBuffer first(4);
    std::memcpy(first.Edit(), "abcd", 4);
    MCHARBuffer second = first;
    EXPECT_EQ(first.GetReferenceCount(), 2);
    second.Edit()[0] = 'X';
    EXPECT_EQ(MBytesOf(first), "abcd");
    EXPECT_EQ(MBytesOf(second), "Xbcd");

    const char borrowed[] = "lent";
    MCHARBuffer third;
    third.Attach(borrowed, 4);
    EXPECT_EQ(third.Get(), borrowed);
    third.ResizeCount(6);
    third.Edit()[0] = 'b';
    EXPECT_STREQ(borrowed, "lent");
    EXPECT_EQ(MBytesOf(third).substr(0, 4), "bent");
    third.Resize(0);
    EXPECT_EQ(third.GetSize(), 0);
}

}  // namespace
