#include "foundation/module/MModule.h"
#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <functional>

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
    module.Initialize();
    EXPECT_EQ(Text(module.GetName()), Text(MFile::GetBaseName(module.GetFilePath())));
    EXPECT_EQ(MModule::GetHost(), &module);

    scratch.WriteFile(MFile::Join("data", module.GetName() + "/deep/settings.xml"), "shared");
    const auto find = [&] { return module.GetDataPath_File_User("deep/settings.xml", "sub", true); };
    EXPECT_EQ(Text(find()), Text(scratch.Join("userdata/" + module.GetName() + "/deep/settings.xml")));
    EXPECT_EQ(MReadTestFile(find()), "shared");
    MWriteTestFile(find(), "own");
    EXPECT_EQ(MReadTestFile(find()), "own");
    const MString missing = module.GetDataPath_File_User("deep/none", "sub", false);
    EXPECT_EQ(Text(missing), Text(scratch.Join("userdata/sub/deep/none")));
    EXPECT_TRUE(MFile::IsDirectory(MFile::GetDirectory(missing)));
    EXPECT_FALSE(MFile::Exists(missing));

    scratch.WriteFile("data/Data/Doc/help.txt", "one\ntwo");
    EXPECT_EQ(Text(module.LoadDocumentation("help")), "one\ntwo");
    EXPECT_EQ(Text(module.LoadDocumentation("missing")), "");
}
