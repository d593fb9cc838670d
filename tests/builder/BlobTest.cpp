#include "foundation/files/MFile.h"
#include "streams/resources/MResourceLibrary.h"
#include "tests/builder/BuilderFixture.h"

namespace {

class BlobTest : public BuilderFixture {
protected:
    int32_t PackBlob() { return Run({"blob", "@pictures", "@style.xml", "--output", "@out.mstyle"}); }

    /// Packs, is refused, and leaves nothing behind.
    void ExpectRefused(const std::string& reason) {
        EXPECT_EQ(PackBlob(), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), HasSubstr(reason));
        EXPECT_THAT(scratch.ListTree(), testing::Not(HasSubstr("out.mstyle")));
    }

    void WritePictures() {
        scratch.WriteFile(
            "style.xml",
            "<mstyle name=\"\xF0\x9F\x98\x80 smile\"><colors a=\"&lt;&#10;\">red  green</colors><resources>"
            "<resourcecursors_arrow hotx=\"3\" id=\"old\" compressed=\"1\"/>"
            "</resources><fonts/></mstyle>");
        scratch.WriteFile("pictures/icons/Play.png", text);
        scratch.WriteFile("pictures/cursors/arrow.cur", "arrow");
        scratch.WriteFile("pictures/a.b-c.txt", "");
    }

    const std::string text = std::string(5000, 'p');
};

TEST_F(BlobTest, AFolderAndItsDescriptionBecomeABlob) {
    WritePictures();
    ASSERT_EQ(PackBlob(), MBuilderExitDone) << JoinComplaints();
    EXPECT_THAT(output.told, HasSubstr("out.mstyle: 3 items, 5005 bytes in, "));

    MResourceLibrary library;
    library.LoadFile(scratch.Join("out.mstyle"));
    EXPECT_EQ(Text(library.GetRoot().GetAttribute("name")), "\xF0\x9F\x98\x80 smile");
    EXPECT_THAT(MSaveXML(library.GetRoot()), HasSubstr("<colors a=\"&lt;&#10;\">red  green</colors>"));
    EXPECT_EQ(Text(library.GetRoot().GetSubItem(2)->GetName()), "fonts");
    ASSERT_EQ(library.GetResourceCount(), 3);
    std::string picture(text.size(), 0);
    library.GetResource("icons_play").Open().ReadRequired(picture.data(), 5000);
    EXPECT_EQ(picture, text);
    EXPECT_EQ(MReadAll(library.GetResource("cursors_arrow").OpenMemory()), "arrow");
    EXPECT_EQ(library.GetResource("a.b-c").GetStoredSize(), 0);
    EXPECT_TRUE(library.GetResource("icons_play").IsCompressed());
    EXPECT_LT(library.GetResource("icons_play").GetStoredSize(), 100);
    EXPECT_FALSE(library.GetResource("cursors_arrow").IsCompressed());
    EXPECT_EQ(library.GetResource("cursors_arrow").GetItem().GetInt32Attribute("hotx"), 3);
    EXPECT_EQ(Text(library.GetResource("icons_play").GetItem().GetName()), "resourceicons_Play");

    ASSERT_EQ(Run({"blob", "@out.mstyle"}), MBuilderExitDone) << JoinComplaints();
    EXPECT_THAT(output.told, StartsWith("root        mstyle\ndata        "));
    for (const char* line : {"items       3\n", "           0            0  plain  a.b-c\n",
                             "           0            5  plain  cursors_arrow\n", "  zlib   icons_Play\n"})
        EXPECT_THAT(output.told, HasSubstr(line));
}

TEST_F(BlobTest, TheSameSourcesGiveTheseBytes) {
    scratch.WriteFile("style.xml", "<m/>");
    scratch.WriteFile("pictures/b/x", std::string(40, 'x'));
    scratch.WriteFile("pictures/a.txt", "hello");
    ASSERT_EQ(PackBlob(), MBuilderExitDone) << JoinComplaints();
    EXPECT_EQ(MTestDigest(scratch.ReadFile("out.mstyle")), "DF5BA0068EC54537B27D12E9C858C85F");
}

TEST_F(BlobTest, TheDescriptionInTheFolderIsNoItemAndTheOutputStaysOutside) {
    scratch.WriteFile("pictures/style.xml", "<m/>");
    scratch.WriteFile("pictures/a", "a");
    EXPECT_EQ(Run({"blob", "@pictures", "@pictures/style.xml", "--output", "@out.mstyle"}), MBuilderExitDone)
        << JoinComplaints();
    EXPECT_THAT(output.told, HasSubstr("1 items"));
    EXPECT_EQ(Run({"blob", "@pictures", "@pictures/style.xml", "--output", "@pictures/b"}),
              MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("is in the folder to pack"));
    scratch.WriteFile("x.xml", "<m/>");
    EXPECT_EQ(Run({"blob", "@pictures", "@x.xml", "--output", "@x.xml"}), MBuilderExitFailed);
    EXPECT_EQ(scratch.ReadFile("x.xml"), "<m/>");
    EXPECT_EQ(scratch.ListTree(), "out.mstyle\npictures/\npictures/a\npictures/style.xml\nstub\nx.xml\n");
}

TEST_F(BlobTest, NamesThatMakeNoIdAreRefused) {
    for (const char* name : {"my icon.png", ".hidden", "a&b.png", "\xC3\xA4.png", "deep er/x"}) {
        scratch.WriteFile("style.xml", "<m/>");
        scratch.WriteFile("pictures/" + Name(name), "x");
        ExpectRefused("cannot be an item");
        MFile::DeleteTree(scratch.Join("pictures"));
    }
    scratch.WriteFile("pictures/a/b.png", "x");
    scratch.WriteFile("pictures/A_b.jpg", "y");
    ExpectRefused("have one id, ");
}

TEST_F(BlobTest, DescriptionsThatDoNotFitAreRefused) {
    scratch.WriteFile("pictures/a", "x");
    ExpectRefused("style.xml\" could not be open");
    scratch.WriteFile("style.xml", "<m>\n<b>\n</m>");
    ExpectRefused("style.xml:3: Invalid file contents. Invalid closing element name.");
    scratch.WriteFile("style.xml", "<m><resources><resourceb offset=\"0\"/></resources></m>");
    ExpectRefused("an element \"resourceb\", and the folder has no file for it");
}

TEST_F(BlobTest, WhatIsNoBlobIsNotListed) {
    WritePictures();
    ASSERT_EQ(PackBlob(), MBuilderExitDone) << JoinComplaints();
    const std::string blob = scratch.ReadFile("out.mstyle");
    scratch.WriteFile("cut", blob.substr(0, blob.size() - 1));
    for (const char* name : {"@cut", "@style.xml", "@pictures"}) {
        EXPECT_EQ(Run({"blob", name}), MBuilderExitFailed) << name;
        EXPECT_EQ(output.told, "") << name;
        EXPECT_EQ(output.complaints.size(), 1u) << name;
    }
    EXPECT_EQ(Run({"blob", "@stub", "@style.xml", "--output", "@x"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("is no folder"));
}

}  // namespace
