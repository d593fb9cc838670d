#include "foundation/files/MFolderFacts.h"

#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

using testing::HasSubstr;

TEST(MFolderFacts, WhatIsMissingIsJudgedByWhatStandsAboveIt) {
    const MScratch scratch;
    const MFolderFacts here = MFindFolderFacts(scratch.GetPath());
    const MFolderFacts missing = MFindFolderFacts(scratch.Join("a/b/../c"));
    for (const MFolderFacts* facts : {&here, &missing}) {
        EXPECT_EQ(Text(facts->fault), "");
        EXPECT_GT(facts->volume.freeBytes.value_or(0), 0);
        EXPECT_FALSE(facts->volume.name.IsEmpty());
        EXPECT_TRUE(facts->volume.name.IsExactly(here.volume.name));
    }
    EXPECT_EQ(scratch.ListTree(), "");
}

TEST(MFolderFacts, SaysWhatStandsAgainstAFolder) {
    const MScratch scratch;
    const MString file = scratch.WriteFile("file", "x");
    const struct {
        MString path;
        std::string fault;
    } cases[] = {{file, Text(file) + "\" stands in the way"},
                 {MFile::Join(file, "below/it"), Text(file) + "\" stands in the way"},
                 {MFile::Join(scratch.Join("new"), MString::Print("%0300d", 1)), "longer than"},
                 {"", "no complete path"},
                 {"relative/path", "no complete path"}};
    for (const auto& [path, fault] : cases) EXPECT_THAT(Text(MFindFolderFacts(path).fault), HasSubstr(fault));
    EXPECT_EQ(scratch.ListTree(), "file\n");
}
