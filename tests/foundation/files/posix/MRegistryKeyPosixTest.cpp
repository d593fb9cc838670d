#include "foundation/files/MFile.h"
#include "foundation/files/MRegistryKey.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

/// No file may grow beyond a number of bytes as long as the object lives: writing more fails as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    void (*handler)(int);
    rlimit before{};
};

TEST(MRegistryKeyPosix, AValueThatCannotBeWrittenWholeStaysAsItWas) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    MRegistryKey key;
    key.Create(MRegistryRoot::LocalMachine, "software\\test");
    key.SetValue("UninstallString", "/opt/old/setup.run");
    const std::string tree = scratch.ListTree();
    {
        const FileSizeLimit limit(20);
        EXPECT_EQ(FailureOf([&] { key.SetValue("UninstallString", "/opt/new and longer/setup.run"); }),
                  "0: Cannot set registry value UninstallString.");
    }
    EXPECT_EQ(Text(key.GetValue("UninstallString")), "/opt/old/setup.run");
    EXPECT_EQ(scratch.ListTree(), tree);
}

TEST(MRegistryKeyPosix, WhatAKilledRunLeavesIsNoValueAndDeletedWithTheKey) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    MRegistryKey key;
    key.Create(MRegistryRoot::LocalMachine, "test");
    const MString directory = scratch.Join("data/registry/machine/test.key");
    MWriteTestFile(directory + "/publisher.value.unfinished", "te");
    EXPECT_EQ(FailureOf([&] { (void)key.GetValue("Publisher"); }), "0: Cannot get registry value Publisher");
    key.SetValue("Publisher", "Maker");
    EXPECT_EQ(Text(key.GetValue("Publisher")), "Maker");
    MWriteTestFile(directory + "/publisher.value.unfinished", "te");
    MRegistryKey::Delete(MRegistryRoot::LocalMachine, "test");
    EXPECT_FALSE(MFile::Exists(directory));
}

}  // namespace
