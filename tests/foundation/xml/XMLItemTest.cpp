#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLItemIterator.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <functional>

namespace {

/// The names of the sub-items, each of which has to know its siblings.
std::string NamesOf(const MXMLItem& parent) {
    std::string names;
    const int32_t count = parent.GetSubItemCount();
    for (int32_t i = 0; i < count; ++i) {
        const MXMLItem* item = parent.GetSubItem(i);
        EXPECT_EQ(item->GetPrevious(), i == 0 ? nullptr : parent.GetSubItem(i - 1));
        EXPECT_EQ(item->GetNext(), i + 1 == count ? nullptr : parent.GetSubItem(i + 1));
        names += Text(item->GetName());
    }
    return names;
}

TEST(XMLItemTest, AttributesAreSortedAndMatchedByFoldedNames) {
    MXMLItem item("a");
    for (const char* name : {"size", "Name", "op", "NAME", "Time"}) item.SetAttribute(name, name);
    EXPECT_EQ(MSaveXML(item), "<a Name=\"NAME\" op=\"op\" size=\"size\" Time=\"Time\"/>");
    EXPECT_EQ(Text(item.GetAttribute(Wide(u"n\u00E1m\u00E9"))), "NAME");
    item.RemoveAttribute("OP");
    item.RemoveAttribute("absent");
    EXPECT_EQ(item.GetAttributes().GetCount(), 3);
    EXPECT_EQ(Text(item.GetAttribute("op", "default")), "default");
    EXPECT_EQ(FailureOf([&] { (void)item.GetAttribute("op"); }),
              "0: Could not find required attribute (op).");
    item.SetAttribute("size", int64_t{5'000'000'000});
    EXPECT_EQ(item.GetInt64Attribute("size"), 5'000'000'000);
    EXPECT_EQ(item.GetInt32Attribute("size"), 705'032'704);
    EXPECT_EQ(item.GetInt32Attribute("name", 7), 0);
    EXPECT_EQ(item.GetInt32Attribute("none", 7) + item.GetInt64Attribute("none", -1), 6);
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

    const std::function<void()> removals[] = {
        [&] { item.RemoveSubItem(0); }, [&] { item.RemoveSubItems("b"); }, [&] { item.RemoveAllSubItems(); },
        [&] { (void)item.HasSubItem("c"); }};
    for (const auto& remove : removals) {
        item.AddSubItem("b");
        EXPECT_TRUE(item.HasSubItem("B"));
        EXPECT_EQ(item.GetCachedSubItem(), item.GetSubItem(0));
        remove();
        EXPECT_EQ(FailureOf([&] { (void)item.GetCachedSubItem(); }), noItem);
    }
    EXPECT_EQ(FailureOf([&] { (void)item.GetSubItem("c"); }), "0: Could not find required subitem (c).");
}

TEST(XMLItemTest, SiblingsStayLinkedThroughEveryChange) {
    MXMLItem root;
    MLoadXML(root, "<r><a/><b/><c/><a/><b/></r>");
    for (const auto& [index, names] : {std::pair{4, "abca"}, {0, "bca"}, {1, "ba"}}) {
        root.RemoveSubItem(index);
        EXPECT_EQ(NamesOf(root), names);
    }
    for (const char* name : {"b", "c"}) root.AddSubItem(name);
    root.RemoveSubItems("B");
    EXPECT_EQ(NamesOf(root), "ac");
    root.GetSubItem("a")->SetAttribute("key", "Z");
    root.GetSubItem("c")->SetAttribute("key", "b");
    root.AddSubItem("d");
    root.SortSubItems("key");
    EXPECT_EQ(NamesOf(root), "dca");
    EXPECT_EQ(FailureOf([&] { root.RemoveSubItem(3); }), "0: Index out of range.");
}

TEST(XMLItemTest, SearchesDepthFirstAndAddsWhatIsNotFound) {
    MXMLItem root;
    MLoadXML(root, "<r><a><x>deep</x></a><x>near</x><b><x><x/></x></b></r>");
    EXPECT_TRUE(root.HasSubItem("x"));
    EXPECT_EQ(Text(root.GetCachedSubItem()->GetValue()), "near");
    EXPECT_TRUE(root.HasSubItem("x", true));
    EXPECT_EQ(Text(root.GetCachedSubItem()->GetValue()), "deep");
    EXPECT_EQ(root.CountSubItems("X"), 4);
    MList<MXMLItem, MListPointers> all;
    root.CollectSubItems("x", all);
    EXPECT_EQ(all[3]->GetDepth(), 3);

    MXMLItem* first = root.GetOrAddSubItem("dir", "id", "One");
    EXPECT_EQ(root.GetOrAddSubItem("DIR", "ID", "one"), first);
    EXPECT_NE(root.GetOrAddSubItem("dir", "id", "two"), first);
    EXPECT_EQ(root.GetOrAddSubItem("dir"), first);
    EXPECT_EQ(root.FindSubItem("dir", "id", "three"), nullptr);
    EXPECT_EQ(root.GetSubItemCount(), 5);
}

TEST(XMLItemTest, CopyTakesEverythingEvenFromBelowItself) {
    MXMLItem root;
    MLoadXML(root, "<r gone=\"1\"><outer><inner k=\"v\">text<x/><y/></inner></outer></r>");
    for (int32_t i = 0; i < 2; ++i) {
        root.CopyFrom(i == 0 ? *root.GetSubItem(0)->GetSubItem(0) : root);
        EXPECT_EQ(MSaveXML(root), "<inner k=\"v\">text<x/><y/></inner>");
        EXPECT_EQ(NamesOf(root), "xy");
    }
    EXPECT_EQ(root.GetSubItem(1)->GetParent(), &root);
}

TEST(XMLItemTest, IteratorsWalkAndRemove) {
    MXMLItem root("r");
    for (const char* name : {"File", "dir", "file", "files", "FILE"}) root.AddSubItem(name);
    MXMLItemIterator iterator(root, "file");
    EXPECT_EQ(FailureOf([&] { (void)iterator.GetCurrent(); }),
              "0: XML item iterator has not been initialized.");
    while (iterator.Next()) {
        iterator.RemoveCurrent();
        EXPECT_THROW(iterator.RemoveCurrent(), MException);
    }
    EXPECT_EQ(MSaveXML(root), "<r><dir/><files/></r>");
    MXMLItemIterator prefixed(root, "FI", MXMLItemIterator::Match::Prefix);
    ASSERT_NE(prefixed.Next(), nullptr);
    EXPECT_EQ(Text(prefixed.GetCurrent()->GetName()), "files");
    EXPECT_EQ(prefixed.Next(), nullptr);
}

}  // namespace
