#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MScratch.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

std::string Saved(const MXMLItem& root, bool isCompact, const char* encoding = "utf-8") {
    MMemoryStream stream;
    root.Save(stream, isCompact, encoding);
    return MBytesOf(stream);
}

void FillSample(MXMLItem& root) {
    root.SetName("a");
    root.SetValue("first  second");
    root.SetAttribute("z", "<>\"'&\n");
    root.SetAttribute("B", Wide(u"\U0001F600<\u010D\U0001F600"));
    root.AddSubItem("b")->AddSubItem("c")->SetValue(Wide(u"x\U0001F600y z"));
    root.AddSubItem("d");
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

TEST(XMLSaveTest, BothFormsReadBackAsTheyWere) {
    MXMLItem root;
    FillSample(root);
    const std::string whole = Saved(root, true);
    for (const bool isCompact : {false, true}) {
        const std::string document = Saved(root, isCompact);
        MXMLItem read;
        MMemoryStream stream(document.data(), static_cast<int32_t>(document.size()));
        read.Load(stream);
        EXPECT_EQ(Saved(read, true), whole);
        EXPECT_TRUE(read.GetAttribute("b").IsExactly(Wide(u"\U0001F600<\u010D\U0001F600")));
        EXPECT_EQ(Text(read.GetValue()), "first  second");
    }
}

TEST(XMLSaveTest, ALoneSurrogateTakesNoMarkupWithIt) {
    // The codec drops the unit after a lone high surrogate, and that unit was the "<" of the closing tag.
    const char16_t lone[] = {'x', 0xDAAB, 0};
    MXMLItem root("a");
    root.SetValue(Wide(lone));
    root.SetAttribute("b", Wide(lone));
    const std::string document = Saved(root, true);
    EXPECT_EQ(document.substr(document.find('\n') + 1), "<a b=\"x\">x</a>");
}

TEST(XMLSaveTest, EightBitEncodingsReadBackToo) {
    MXMLItem root("a");
    root.SetValue(Wide(u"p\u0159\u00ED\u0161\u4E00"));
    const std::string document = Saved(root, true, "windows-1250");
    EXPECT_NE(document.find("encoding=\"windows-1250\""), std::string::npos);
    EXPECT_NE(document.find("p\xF8\xED\x9A<"), std::string::npos);
    MXMLItem read;
    MMemoryStream stream(document.data(), static_cast<int32_t>(document.size()));
    read.Load(stream);
    EXPECT_TRUE(read.GetValue().IsExactly(Wide(u"p\u0159\u00ED\u0161")));
}

TEST(XMLSaveTest, IndentStopsAtThirtyTwoTabs) {
    MXMLItem root("i");
    MXMLItem* item = &root;
    for (int i = 0; i < 40; ++i) item = item->AddSubItem("i");
    const std::string document = Saved(root, false);
    EXPECT_NE(document.find("\n" + std::string(32, '\t') + "<i>"), std::string::npos);
    EXPECT_EQ(document.find(std::string(33, '\t')), std::string::npos);
}

TEST(XMLSaveTest, AnItemWithoutNameIsRefused) {
    MXMLItem root("a");
    root.AddSubItem("");
    EXPECT_EQ(FailureOf([&] { Saved(root, true); }), "0: XML entity cannot have empty name.");
    EXPECT_EQ(FailureOf([&] { Saved(root, true, "klingon"); }), "0: No codec found for encoding klingon.");
}

TEST(XMLSaveTest, CompressedAndFileFormsReadBack) {
    MXMLItem root;
    FillSample(root);
    MMemoryStream stream;
    root.SaveCompressed(stream, "utf-8");
    EXPECT_EQ(MBytesOf(stream).front(), '\x78');
    stream.Rewind();
    MXMLItem read;
    read.LoadCompressed(stream);
    EXPECT_EQ(Saved(read, true), Saved(root, true));

    const MScratch scratch;
    const MString path = scratch.Join("state.xml");
    root.SaveFile(path, false, "utf-8");
    EXPECT_EQ(scratch.ReadFile("state.xml"), Saved(root, false));
    read.LoadFile(path);
    EXPECT_EQ(Saved(read, true), Saved(root, true));
}

TEST(XMLSaveTest, BinaryValuesComeBackAtTheirExactSize) {
    std::string block;
    for (int i = 0; i < 1000; ++i) block += static_cast<char>(i * i);
    MXMLItem item("blob");
    item.StoreBinary(block.data(), 1000);
    const MString stored = item.GetValue();
    EXPECT_EQ(Text(stored.Substring(0, 2)), "78");
    std::string read(1000, '\0');
    item.LoadBinary(read.data(), 1000);
    EXPECT_EQ(read, block);
    std::string longer(1001, '\0');
    EXPECT_EQ(FailureOf([&] { item.LoadBinary(longer.data(), 1001); }),
              "0: Value doesn't have correct format.");
    EXPECT_EQ(FailureOf([&] { item.LoadBinary(longer.data(), 999); }),
              "0: Value doesn't have correct format.");
    item.SetValue("7G");
    EXPECT_EQ(FailureOf([&] { item.LoadBinary(longer.data(), 1); }),
              "0: Invalid character to be converted to a number.");
}

}  // namespace
