#include "foundation/module/MModule.h"
#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class TestModule final : public MModule {
public:
    int32_t Main() override { return body(); }

    std::function<int32_t()> body;
};

void* ReturnArgument(void* argument) {
    return argument;
}

class MModuleTest : public testing::Test {
protected:
    ~MModuleTest() noexcept override = default;

    MScratch scratch;
    MScratchFolders folders{scratch};
    TestModule module;
};

}  // namespace

TEST_F(MModuleTest, NothingThatIsThrownLeavesMain) {
    module.body = [] { return 7; };
    EXPECT_EQ(module.PerformMain_(), 7);
    module.body = []() -> int32_t { MRaise(MExceptionGeneral, "text"); };
    EXPECT_EQ(module.PerformMain_(), -1);
    module.body = []() -> int32_t { throw 1; };
    EXPECT_EQ(module.PerformMain_(), -1);
}

TEST_F(MModuleTest, KnowsItsFileAndTakesItsNameFromIt) {
    module.Initialize();
    EXPECT_TRUE(MFile::IsFile(module.GetFilePath()));
    EXPECT_EQ(Text(module.GetName()), Text(MFile::GetBaseName(module.GetFilePath())));
}

TEST_F(MModuleTest, TheFirstServiceOfANameIsCalled) {
    int32_t value = 0;
    module.AddService("Known", ReturnArgument);
    module.AddService("known", [](void*) -> void* { return nullptr; });
    EXPECT_EQ(module.CallService("KNOWN", &value), &value);
    EXPECT_EQ(module.CallService("unknown", &value), nullptr);
    for (int32_t i = 2; i < MModule::MaximumServices; ++i) module.AddService("more", ReturnArgument);
    EXPECT_THROW(module.AddService("beyond", ReturnArgument), MException);
}

TEST_F(MModuleTest, TheSharedDirectoryStandsInForTheUsers) {
    EXPECT_EQ(Text(MModule::GetDataPath_User("sub", true)), Text(scratch.Join("data/sub")));
    EXPECT_FALSE(MFile::Exists(scratch.Join("userdata")));
    EXPECT_EQ(Text(MModule::GetDataPath_User("sub")), Text(scratch.Join("userdata/sub")));
    EXPECT_TRUE(MFile::IsDirectory(scratch.Join("userdata/sub")));
    EXPECT_EQ(Text(MModule::GetDataPath_User("sub", true)), Text(scratch.Join("userdata/sub")));
}

TEST_F(MModuleTest, AMissingFileOfTheUserIsCopiedFromTheSharedOne) {
    scratch.WriteFile("data/sub/settings.xml", "shared");
    const MString path = module.GetDataPath_File_User("settings.xml", "sub", false);
    EXPECT_EQ(Text(path), Text(scratch.Join("userdata/sub/settings.xml")));
    EXPECT_EQ(MReadTestFile(path), "shared");
    MWriteTestFile(path, "own");
    EXPECT_EQ(MReadTestFile(module.GetDataPath_File_User("settings.xml", "sub", false)), "own");
}

TEST_F(MModuleTest, DocumentationIsReadWholeAndMayBeMissing) {
    scratch.WriteFile("data/Data/Doc/help.txt", "one\ntwo");
    EXPECT_EQ(Text(module.LoadDocumentation("help")), "one\ntwo");
    EXPECT_EQ(Text(module.LoadDocumentation("missing")), "");
}
