#include "foundation/module/MModule.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/resources/MResourceLibrary.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <optional>

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

namespace {

std::string MakeBlob(const std::string& root) {
    MXMLItem document{MString(root.c_str())};
    MResourceLibrary library;
    library.Assign(document, MBuffer());
    MMemoryStream stream;
    library.Save(stream);
    return MBytesOf(stream);
}

/// A companion file beside the test program.
class MCompanion {
public:
    explicit MCompanion(const std::string& content)
        : path(MFile::ChangeExtension(MFile::Normalize(MPlatform::GetModulePath(nullptr)), "mrf")) {
        MWriteTestFile(path, content);
    }
    ~MCompanion() { MFile::Delete(path); }

private:
    MString path;
};

}  // namespace

TEST_F(MModuleTest, ResourcesAreThoseOfTheProgramElseOfTheFileBesideIt) {
    const std::string embedded = MakeBlob("embedded");
    const std::string cutOff = embedded.substr(0, embedded.size() - 1);
    const std::string beside = MakeBlob("beside");
    const std::string data = "data";
    struct Case {
        std::string block;
        std::string file;  ///< empty for none
        const char* root;
    };
    for (const Case& expected :
         {Case{embedded, beside, "embedded"}, Case{"", beside, "beside"}, Case{cutOff, beside, "beside"},
          Case{cutOff, cutOff, ""}, Case{"", "", ""}}) {
        std::optional<MCompanion> companion;
        if (!expected.file.empty()) companion.emplace(expected.file);
        TestModule program;
        program.SetEmbeddedBlocks({std::as_bytes(std::span(expected.block)), std::as_bytes(std::span(data))});
        program.Initialize();
        EXPECT_EQ(Text(program.GetResources().GetRoot().GetName()), expected.root);
        EXPECT_EQ(MReadAll(program.GetGlobalData()), data);
        EXPECT_FALSE(program.GetName().IsEmpty());
    }
}
