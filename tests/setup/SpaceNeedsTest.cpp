#include "setup/choices/MSpaceNeeds.h"
#include "tests/setup/SetupFixture.h"

/// Sizes are powers of ten, so that a sum tells what is in it.
constexpr const char* Parts = R"(
<directory id="a" name="A" default="x"/><directory id="b" name="B" default="x"/>
<files name="one" destination="{A}/{b}">
    <file name="f" op="create" filesize="1"/><file name="g" op="delete" filesize="5"/>
    <dir name="d"><file name="f" op="update" filesize="1"/><file name="g" op="leave" filesize="5"/></dir>
    <copy name="two" destination="x/{b}"/><copy destination="{b}" windows="0"/>
</files>
<files name="two" destination="{data}"><file name="f" op="create" filesize="10"/></files>
<files required="1" destination="{b}/{a}"><file name="f" op="create" filesize="100"/></files>)";

TEST_F(SetupTest, SpaceNeedsFollowWhatIsTickedAndWhereItGoes) {
    Define(Parts);
    MComponentRows rows(library);
    const MSpaceNeeds needs(library);
    EXPECT_EQ(needs.GetBytes(*rows.Find("one")), 2);
    EXPECT_EQ(needs.GetBytes(*rows.Find("two")), 12);
    rows.Find("two")->checked = false;
    EXPECT_EQ(needs.GetTickedBytes(rows), 102);
    EXPECT_EQ(needs.GetEnabledBytes("b"), 102) << "not stored yet";
    rows.Store();
    EXPECT_EQ(needs.GetEnabledBytes("a"), 2);
    EXPECT_EQ(needs.GetEnabledBytes("B"), 100);
}

TEST_F(SetupTest, DirectoriesOfOneVolumeShareItsSpace) {
    Define(Parts);
    const MComponentRows rows(library);
    const auto compare = [&](const char* volume, std::optional<int64_t> free, int64_t otherFree) {
        MList<MDirectoryFacts> directories;
        directories.Add({"a", {{"one", free}, ""}});
        directories.Add({"b", {{volume, otherFree}, ""}});
        std::string text;
        for (const MDirectorySpace& space : MSpaceNeeds(library).Compare(directories))
            text += Text(space.GetText()) + (space.isSufficient ? "; " : "!; ");
        return text;
    };
    EXPECT_EQ(compare("one", 104, 104), "2 B needed, 104 B free; 102 B needed, 104 B free; ");
    EXPECT_EQ(compare("one", 103, 103), "2 B needed, 103 B free!; 102 B needed, 103 B free!; ");
    EXPECT_EQ(compare("two", 103, 101), "2 B needed, 103 B free; 102 B needed, 101 B free!; ");
    EXPECT_EQ(compare("", std::nullopt, 102), "2 B needed; 102 B needed, 102 B free; ");
}
