#include "install/definition/MPathMacros.h"
#include "tests/setup/SetupFixture.h"

class PathMacrosTest : public SetupTest {
protected:
    void Create(bool useX64) {
        folders.SetPath(MSpecialFolderProgramFiles, "C:/Program Files (x86)");
        macros.CreatePathMacros(useX64);
    }
    [[nodiscard]] std::string Expand(const char* text) const { return Text(macros.ExpandMacros(text)); }

    MPathMacros macros;
};

TEST_F(PathMacrosTest, SeparatesThe32BitFromThe64BitView) {
    Create(false);
    EXPECT_EQ(Expand("{programfiles}/x"), "C:/Program Files (x86)/x");
    EXPECT_EQ(Expand("{programfiles32}"), "C:/Program Files (x86)");
    EXPECT_EQ(Expand("{programfiles64}"), "{programfiles64}");
    Create(true);
    EXPECT_EQ(Expand("{programfiles}"), "C:/Program Files");
    EXPECT_EQ(Expand("{programfiles32}"), "C:/Program Files (x86)");
    EXPECT_EQ(Expand("{programfiles64}"), "C:/Program Files");
}

TEST_F(PathMacrosTest, NamesAndFoldersDisagreeAtTheEndOfTheTable) {
    Create(true);
    EXPECT_EQ(Expand("{temp}"), InScratch("downloads"));
    EXPECT_EQ(Expand("{logs}"), InScratch("music"));
    EXPECT_EQ(Expand("{}|{32}|{64}"),
              InScratch("pictures") + "|" + InScratch("pictures") + "|" + InScratch("pictures"));
}

TEST_F(PathMacrosTest, ExpandsAnyCaseAndValuesThatHoldMacrosAndKeepsTheRest) {
    Create(false);
    macros.AddMacro("destination", "{Desktop}/Tool");
    EXPECT_EQ(Expand("{DESTINATION}/a {nobody} {{versionname}} {"),
              InScratch("desktop/Tool") + "/a {nobody} {{versionname}} {");
    macros.AddMacro("destination", "never reached");
    EXPECT_EQ(Expand("{destination}"), InScratch("desktop/Tool"));
    Create(false);
    EXPECT_EQ(Expand("{destination}"), "{destination}");
}
