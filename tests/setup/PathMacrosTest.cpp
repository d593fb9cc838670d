#include "install/definition/MPathMacros.h"
#include "tests/setup/SetupFixture.h"

class PathMacrosTest : public SetupTest {
protected:
    PathMacrosTest() { folders.SetPath(MSpecialFolderProgramFiles, "C:/Program Files (x86)"); }
    ~PathMacrosTest() noexcept override = default;

    [[nodiscard]] std::string Expand(const char* text) const { return Text(macros.ExpandMacros(text)); }

    MPathMacros macros;
};

TEST_F(PathMacrosTest, SeparatesTheViewsOfFoldersWhoseNamesDisagreeAtTheEnd) {
    const std::tuple<bool, const char*, std::string> cases[] = {
        {false, "{programfiles}/x", "C:/Program Files (x86)/x"},
        {false, "{programfiles32}", "C:/Program Files (x86)"},
        {false, "{programfiles64}", "{programfiles64}"},
        {true, "{ProgramFiles}", "C:/Program Files"},
        {true, "{programfiles32}", "C:/Program Files (x86)"},
        {true, "{programfiles64}", "C:/Program Files"},
        {true, "{temp}|{logs}", InScratch("downloads") + "|" + InScratch("music")},
        {true, "{}|{32}|{64}",
         InScratch("pictures") + "|" + InScratch("pictures") + "|" + InScratch("pictures")},
    };
    for (const auto& [useX64, text, expanded] : cases) {
        macros.CreatePathMacros(useX64);
        EXPECT_EQ(Expand(text), expanded);
    }
}

TEST_F(PathMacrosTest, ExpandsValuesThatHoldMacrosAndKeepsTheRest) {
    macros.CreatePathMacros(false);
    macros.AddMacro("destination", "{Desktop}/Tool");
    macros.AddMacro("destination", "never reached");
    EXPECT_EQ(Expand("{DESTINATION}/a {nobody} {{versionname}} {"),
              InScratch("desktop/Tool") + "/a {nobody} {{versionname}} {");
    macros.CreatePathMacros(false);
    EXPECT_EQ(Expand("{destination}"), "{destination}");
}
