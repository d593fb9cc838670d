#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MScratch.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

std::string Saved(const MXMLItem& root, bool isCompact, const char* encoding = "utf-8") {
    MMemoryStream stream;
    root.Save(stream, isCompact, encoding);
    return MBytesOf(stream);
}

TEST(XMLSaveTest, PrettyFormPutsEachWordOnALine) {
    MXMLItem root("a");
    root.SetValue("one <two>");
    root.SetAttribute("k", "v");
    root.AddSubItem("b")->SetValue("x");
    root.AddSubItem("c");
    EXPECT_EQ(Saved(root, false), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                  "<a k=\"v\">\n\tone\n\t&lt;two&gt;\n\t<b>\n\t\tx\n\t</b>\n\t<c/>\n</a>\n");
    EXPECT_EQ(Saved(root, true), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                 "<a k=\"v\">one &lt;two&gt;<b>x</b><c/></a>");
}

TEST(XMLSaveTest, EveryFormReadsBackAsItWas) {
    const MString odd = Wide(u"\U0001F600<\u010D\U0001F600 <>\"'&\n");
    MXMLItem root("a");
    root.SetValue(Wide(u"first  second \U0001F600"));
    root.SetAttribute("z", odd);
    root.AddSubItem("b")->AddSubItem("c")->SetValue(Wide(u"x\U0001F600y z"));
    const std::string whole = Saved(root, true);
    const MScratch scratch;
    MMemoryStream packed;
    root.SaveCompressed(packed, "utf-8");
    EXPECT_EQ(MBytesOf(packed).front(), '\x78');
    packed.Rewind();
    root.SaveFile(scratch.Join("state.xml"), false, "utf-8");
    EXPECT_EQ(scratch.ReadFile("state.xml"), Saved(root, false));
    const std::function<void(MXMLItem&)> loads[] = {
        [&](MXMLItem& read) { read.LoadCompressed(packed); },
        [&](MXMLItem& read) { read.LoadFile(scratch.Join("state.xml")); }};
    MXMLItem* deep = &root;
    for (int i = 0; i < 40; ++i) deep = deep->AddSubItem("i");
    EXPECT_EQ(Saved(root, false).find(std::string(33, '\t')), std::string::npos);
    for (const auto& load : loads) {
        MXMLItem read;
        load(read);
        EXPECT_EQ(Saved(read, true), whole);
        EXPECT_TRUE(read.GetAttribute("z").IsExactly(odd));
    }
}

TEST(XMLSaveTest, WhatAnEncodingLacksIsLeftOutAndTakesNoMarkupWithIt) {
    // The codec drops the unit after a lone high surrogate, and that unit was the "<" of the closing tag.
    const char16_t lone[] = {'x', 0xDAAB, 0};
    MXMLItem root("a");
    root.SetValue(Wide(lone));
    root.SetAttribute("b", Wide(lone));
    EXPECT_EQ(MSaveXML(root), "<a b=\"x\">x</a>");
    root.SetValue(Wide(u"p\u0159\u00ED\u0161\u4E00"));
    const std::string document = Saved(root, true, "windows-1250");
    EXPECT_NE(document.find("encoding=\"windows-1250\""), std::string::npos);
    EXPECT_NE(document.find("p\xF8\xED\x9A<"), std::string::npos);
    EXPECT_EQ(FailureOf([&] { Saved(root, true, "klingon"); }), "0: No codec found for encoding klingon.");
    root.AddSubItem("");
    EXPECT_EQ(FailureOf([&] { Saved(root, true); }), "0: XML entity cannot have empty name.");
}

TEST(XMLSaveTest, BinaryValuesComeBackAtTheirExactSize) {
    const std::string block = MTestNoise(1000);
    MXMLItem item("blob");
    item.StoreBinary(block.data(), 1000);
    EXPECT_EQ(Text(item.GetValue().Substring(0, 2)), "78");
    std::string read(1001, '\0');
    item.LoadBinary(read.data(), 1000);
    EXPECT_EQ(read.substr(0, 1000), block);
    for (const int32_t size : {999, 1001})
        EXPECT_EQ(FailureOf([&] { item.LoadBinary(read.data(), size); }),
                  "0: Value doesn't have correct format.");
    item.SetValue("7G");
    EXPECT_EQ(FailureOf([&] { item.LoadBinary(read.data(), 1); }),
              "0: Invalid character to be converted to a number.");
}

}  // namespace
