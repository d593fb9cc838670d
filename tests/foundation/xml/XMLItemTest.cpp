#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLItemIterator.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

/// The names of the sub-items, walked forward by siblings; checks that walking backward agrees.
std::string NamesOf(const MXMLItem& parent) {
    std::string names;
    std::string reversed;
    MXMLItem* last = nullptr;
    MXMLItem* item = parent.GetSubItemCount() > 0 ? parent.GetSubItem(0) : nullptr;
    for (; item; item = item->GetNext()) {
        names += Text(item->GetName());
        last = item;
    }
    for (; last; last = last->GetPrevious()) reversed.insert(0, Text(last->GetName()));
    EXPECT_EQ(names, reversed);
    EXPECT_EQ(static_cast<int32_t>(names.size()), parent.GetSubItemCount());
    return names;
}

void AddAll(MXMLItem& parent, const char* names) {
    for (; *names; ++names) parent.AddSubItem(MString::Copy(names, 1));
}

TEST(XMLItemTest, AttributesAreSortedAndMatchedByFoldedNames) {
    MXMLItem item("a");
    for (const char* name : {"size", "Name", "op", "NAME", "Time"}) item.SetAttribute(name, name);
    std::string names;
    for (const MAttribute* attribute : item.GetAttributes()) names += Text(attribute->name) + " ";
    EXPECT_EQ(names, "Name op size Time ");
    EXPECT_EQ(Text(item.GetAttribute(Wide(u"n\u00E1m\u00E9"))), "NAME");
    item.RemoveAttribute("OP");
    item.RemoveAttribute("absent");
    EXPECT_EQ(item.GetAttributes().GetCount(), 3);
    EXPECT_EQ(Text(item.GetAttribute("op", "default")), "default");
    EXPECT_EQ(FailureOf([&] { (void)item.GetAttribute("op"); }),
              "0: Could not find required attribute (op).");
}

TEST(XMLItemTest, CachesHoldOnlyWhatTheLastQuestionFound) {
    const char* const noAttribute =
        "0: There is no attribute in the cache. Previous call to HasAttribute probably did not succeed.";
    const char* const noItem =
        "0: There is no subitem in the cache. Previous call to HasSubItem probably did not succeed.";
    MXMLItem item("a");
    item.SetAttribute("x", 5);
    EXPECT_TRUE(item.HasAttribute("X"));
    EXPECT_EQ(Text(item.GetCachedAttribute()), "5");
    EXPECT_FALSE(item.HasAttribute("y"));
    EXPECT_EQ(FailureOf([&] { (void)item.GetCachedAttribute(); }), noAttribute);
    EXPECT_TRUE(item.HasAttribute("x"));
    item.RemoveAttribute("x");
    EXPECT_EQ(FailureOf([&] { (void)item.GetCachedAttribute(); }), noAttribute);

    item.AddSubItem("b");
    EXPECT_TRUE(item.HasSubItem("B"));
    EXPECT_EQ(item.GetCachedSubItem(), item.GetSubItem(0));
    item.RemoveSubItems("b");
    EXPECT_EQ(FailureOf([&] { (void)item.GetCachedSubItem(); }), noItem);
    EXPECT_EQ(FailureOf([&] { (void)item.GetSubItem("b"); }), "0: Could not find required subitem (b).");
}

TEST(XMLItemTest, NumbersAreReadAsFarAsTheyGo) {
    MXMLItem item("a");
    item.SetAttribute("big", int64_t{5'000'000'000});
    item.SetAttribute("text", "x1");
    EXPECT_EQ(item.GetInt64Attribute("big"), 5'000'000'000);
    EXPECT_EQ(item.GetInt32Attribute("big"), 705'032'704);
    EXPECT_EQ(item.GetInt32Attribute("text", 7), 0);
    EXPECT_EQ(item.GetInt32Attribute("none", 7), 7);
    EXPECT_EQ(item.GetInt64Attribute("none", -1), -1);
    EXPECT_THROW((void)item.GetInt32Attribute("none"), MException);
}

TEST(XMLItemTest, SiblingsStayLinkedThroughEveryChange) {
    MXMLItem root("r");
    AddAll(root, "abcab");
    EXPECT_EQ(NamesOf(root), "abcab");
    root.RemoveSubItem(4);
    EXPECT_EQ(NamesOf(root), "abca");
    root.RemoveSubItem(0);
    EXPECT_EQ(NamesOf(root), "bca");
    root.RemoveSubItem(1);
    EXPECT_EQ(NamesOf(root), "ba");
    AddAll(root, "bc");
    root.RemoveSubItems("B");
    EXPECT_EQ(NamesOf(root), "ac");
    root.GetSubItem("a")->SetAttribute("key", "Z");
    root.GetSubItem("c")->SetAttribute("key", "b");
    root.AddSubItem("d");
    root.SortSubItems("key");
    EXPECT_EQ(NamesOf(root), "dca");
    EXPECT_EQ(FailureOf([&] { root.RemoveSubItem(3); }), "0: Index out of range.");
}

TEST(XMLItemTest, SearchesDepthFirst) {
    MXMLItem root("r");
    root.AddSubItem("a")->AddSubItem("x")->SetValue("deep");
    root.AddSubItem("x")->SetValue("near");
    root.AddSubItem("b")->AddSubItem("x")->AddSubItem("x");
    EXPECT_TRUE(root.HasSubItem("x"));
    EXPECT_EQ(Text(root.GetCachedSubItem()->GetValue()), "near");
    EXPECT_TRUE(root.HasSubItem("x", true));
    EXPECT_EQ(Text(root.GetCachedSubItem()->GetValue()), "deep");
    EXPECT_EQ(root.CountSubItems("X"), 4);
    MList<MXMLItem, MListPointers> all;
    root.CollectSubItems("x", all);
    ASSERT_EQ(all.GetCount(), 4);
    EXPECT_EQ(all[3]->GetDepth(), 3);
}

TEST(XMLItemTest, FindOrAddMatchesNameAttributeAndValue) {
    MXMLItem root("r");
    MXMLItem* first = root.GetOrAddSubItem("dir", "id", "One");
    EXPECT_EQ(root.GetOrAddSubItem("DIR", "ID", "one"), first);
    EXPECT_NE(root.GetOrAddSubItem("dir", "id", "two"), first);
    EXPECT_EQ(root.GetOrAddSubItem("dir"), first);
    EXPECT_EQ(root.FindSubItem("dir", "id", "three"), nullptr);
    EXPECT_EQ(root.GetSubItemCount(), 2);
}

TEST(XMLItemTest, CopyTakesEverythingEvenFromBelowItself) {
    MXMLItem root("r");
    root.SetAttribute("gone", 1);
    MXMLItem* inner = root.AddSubItem("outer")->AddSubItem("inner");
    inner->SetAttribute("k", "v");
    inner->SetValue("text");
    AddAll(*inner, "xy");
    root.CopyFrom(*inner);
    EXPECT_EQ(Text(root.GetName() + root.GetValue() + root.GetAttribute("k")), "innertextv");
    EXPECT_FALSE(root.HasAttribute("gone"));
    EXPECT_EQ(NamesOf(root), "xy");
    EXPECT_EQ(root.GetSubItem(1)->GetParent(), &root);
    EXPECT_EQ(root.GetSubItem(1)->GetDepth(), 1);
    root.CopyFrom(root);
    EXPECT_EQ(NamesOf(root), "xy");
}

TEST(XMLItemTest, IteratorsWalkAndRemove) {
    MXMLItem root("r");
    for (const char* name : {"File", "dir", "file", "files", "FILE"}) root.AddSubItem(name);
    MXMLItemIterator iterator(root, "file");
    EXPECT_EQ(FailureOf([&] { (void)iterator.GetCurrent(); }),
              "0: XML item iterator has not been initialized.");
    int32_t seen = 0;
    while (iterator.Next()) {
        ++seen;
        iterator.RemoveCurrent();
        EXPECT_THROW(iterator.RemoveCurrent(), MException);
    }
    EXPECT_EQ(seen, 3);
    EXPECT_EQ(root.GetSubItemCount(), 2);

    MXMLItemIterator prefixed(root, "FI", MXMLItemIterator::Match::Prefix);
    ASSERT_NE(prefixed.Next(), nullptr);
    EXPECT_EQ(Text(prefixed.GetCurrent()->GetName()), "files");
    EXPECT_EQ(prefixed.Next(), nullptr);
    EXPECT_EQ(prefixed.Next(), nullptr);
}

}  // namespace
