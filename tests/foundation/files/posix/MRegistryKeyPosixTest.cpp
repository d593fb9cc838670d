#include "foundation/files/MFile.h"
#include "foundation/files/MRegistryKey.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

TEST(MRegistryKeyPosix, WhatIsNotWrittenWholeIsNoValueAndGoesWithTheKey) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    MRegistryKey key;
    key.Create(MRegistryRoot::LocalMachine, "test");
    const MString directory = scratch.Join("data/registry/machine/test.key");
    const MString unfinished = directory + "/publisher.value.unfinished";
    MWriteTestFile(unfinished, "te");
    EXPECT_EQ(FailureOf([&] { (void)key.GetValue("Publisher"); }), "0: Cannot get registry value Publisher");
    key.SetValue("Publisher", "Maker");
    MFile::CreatePath(unfinished);
    EXPECT_EQ(FailureOf([&] { key.SetValue("Publisher", 7); }), "0: Cannot set registry value Publisher.");
    EXPECT_EQ(Text(key.GetValue("Publisher")), "Maker");
    MFile::RemoveDirectory(unfinished);
    MWriteTestFile(unfinished, "te");
    MRegistryKey::Delete(MRegistryRoot::LocalMachine, "test");
    EXPECT_FALSE(MFile::Exists(directory));
}

}  // namespace
