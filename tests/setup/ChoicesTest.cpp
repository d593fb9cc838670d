#include "setup/choices/MComponentRows.h"
#include "setup/choices/MConfigurationChoice.h"
#include "setup/choices/MDirectoryChoices.h"
#include "setup/choices/MLicenceText.h"
#include "tests/setup/SetupFixture.h"

class ChoicesTest : public SetupTest {
protected:
    /// "enabled" of every `files` and `copy` element in document order.
    [[nodiscard]] std::string GetEnabled() const {
        std::string states;
        for (const MXMLItem* files : library.GetSubItems()) {
            if (!(files->GetName() == "files")) continue;
            states += Text(files->GetAttribute("enabled", "-"));
            for (const MXMLItem* copy : files->GetSubItems())
                states += Text(copy->GetAttribute("enabled", "-"));
        }
        return states;
    }
    /// The paths proposed for the rows, relative to the scratch directory.
    [[nodiscard]] std::string Propose() {
        MSetupSession session(library);
        return Propose(session);
    }
    [[nodiscard]] std::string Propose(MSetupSession& session) const {
        MDirectoryChoices choices(session);
        choices.LoadDefaults();
        std::string paths;
        for (int32_t i = 0; i < choices.GetCount(); ++i)
            paths += Text(choices.GetRow(i).path).substr(Text(scratch.GetPath()).size() + 1) + " ";
        return paths;
    }
    void MakeDirectory(const char* name) const { MFile::CreatePath(scratch.Join(name)); }
};

TEST_F(ChoicesTest, ElementsOfOneNameAreOneSwitch) {
    Define(
        "<files name=\"VST\" destination=\"x\"><copy destination=\"y\"/><copy name=\"AAX\" destination=\"z\"/></files>"
        "<files name=\"vst\" destination=\"x\"/><files required=\"1\" destination=\"x\"/>"
        "<files name=\"Foreign\" windows=\"0\" destination=\"x\"/>");
    MComponentRows rows(library);
    ASSERT_EQ(rows.GetCount(), 2);
    EXPECT_EQ(GetEnabled(), "111110");
    rows.Find("VST")->checked = false;
    rows.Store();
    EXPECT_EQ(GetEnabled(), "001010");
}

TEST_F(ChoicesTest, ConfigurationsDecideByTheFirstElementAndThePiecesAsTheyStand) {
    Define(
        "<files name=\"always\"/><files name=\"never\" configurations=\"\"/>"
        "<files name=\"two\" configurations=\"full,Small\"/><files name=\"blank\" configurations=\"full, small\"/>"
        "<files name=\"first\" configurations=\"small\"/><files name=\"first\" configurations=\"full\"/>");
    MComponentRows rows(library);
    const std::pair<const char*, const char*> cases[] = {
        {"small", "101011"}, {"FULL", "101100"}, {"", "100000"}, {"other", "100000"}};
    for (const auto& [configuration, enabled] : cases) {
        rows.ApplyConfiguration(configuration);
        rows.Store();
        EXPECT_EQ(GetEnabled(), enabled) << configuration;
    }
}

TEST_F(ChoicesTest, AConfigurationSetsWhatTheRunNeedsToKnow) {
    folders.SetPath(MSpecialFolderProgramFiles, "C:/Program Files (x86)");
    Define(
        "<configuration id=\"mac\" name=\"m\" windows=\"0\"/><configuration id=\"full\" name=\"f\" setup=\"0\" x64=\"1\"/>"
        "<configuration id=\"small\" name=\"s\"/>");
    MSetupSession session(library);
    const MConfigurationChoice choice(library, true);
    EXPECT_EQ(choice.GetAlternatives().GetCount(), 2);
    choice.Apply(*choice.GetProposal(), session);
    EXPECT_EQ(Text(session.ConfigurationId), "full");
    EXPECT_FALSE(session.ShowComponents);
    EXPECT_EQ(Text(session.Macros.ExpandMacros("{programfiles64}")), "C:/Program Files");
    choice.Apply(*choice.Find("SMALL"), session);
    EXPECT_EQ(Text(session.Macros.ExpandMacros("{programfiles64}")), "{programfiles64}");
    const MConfigurationChoice narrow(library, false);
    EXPECT_EQ(FailureOf([&] { narrow.Apply(*narrow.Find("full"), session); }),
              "0: This configuration does not support 32-bit operating system.");
    EXPECT_EQ(Text(session.Macros.ExpandMacros("{programfiles64}")), "{programfiles64}");
}

TEST_F(ChoicesTest, AProposalPrefersWhatIsThereInTheOrderOfTheDefinition) {
    Define(
        "<directory id=\"a\" name=\"A\" default=\"{scratch}/one/product\"><default>{scratch}/two/product</default>"
        "<default>{scratch}/three/product</default></directory>");
    EXPECT_EQ(Propose(), "one/product ");
    const std::pair<const char*, const char*> made[] = {{"three", "three/product "},
                                                        {"two", "two/product "},
                                                        {"three/product", "three/product "},
                                                        {"one", "three/product "},
                                                        {"one/product", "one/product "}};
    for (const auto& [directory, proposal] : made) {
        MakeDirectory(directory);
        EXPECT_EQ(Propose(), proposal);
    }
}

TEST_F(ChoicesTest, RemembersDirectoriesForTheNextProductUnderTheirOwnKeys) {
    Define(R"(<directory id="vst" name="V" default="{scratch}/default" StoreSystemDefaults="1"/>)"
           R"(<directory id="own" name="O" default="{scratch}/default"/>)");
    const MString file = scratch.WriteFile(
        "userdata/DefaultPaths.xml", "<DefaultPaths><Path id=\"other\">C:/other</Path><Path id=\"vst64\">" +
                                         InScratch("wide") + "</Path></DefaultPaths>");
    MSetupSession session(library);
    MDirectoryChoices choices(session);
    choices.Find("vst")->path = scratch.Join("shared");
    choices.Find("own")->path = scratch.Join("elsewhere");
    choices.Remember();
    // What is no directory any more is not proposed.
    EXPECT_EQ(Propose(), "default default ");
    for (const char* name : {"shared", "elsewhere", "wide"}) MakeDirectory(name);
    EXPECT_EQ(Propose(), "shared default ");
    session.UseX64 = true;
    EXPECT_EQ(Propose(session), "wide default ");
    EXPECT_NE(MReadTestFile(file).find("C:/other"), std::string::npos);
    // A macro in a path would be expanded later.
    MakeDirectory("{own}");
    choices.Find("vst")->path = scratch.Join("{own}");
    choices.Remember();
    EXPECT_EQ(Propose(session), "default default ");
    for (const char* broken : {"", "no xml", "<DefaultPaths><Path id=\"vst\">"}) {
        MWriteTestFile(file, broken);
        EXPECT_EQ(Propose(), "default default ") << broken;
    }
}

TEST_F(ChoicesTest, AnEarlierInstallationWinsForTheDestinationOnly) {
    Define(R"(<directory id="destination" name="D" default="{scratch}/default"/>)"
           R"(<directory id="data" name="E" default="{scratch}/default"/>)");
    scratch.WriteFile("programfiles/Corvanth/Test Product/setup.state", "<install/>");
    EXPECT_EQ(Propose(), "programfiles/Corvanth/Test Product default ");
}

TEST_F(ChoicesTest, OnlyDirectoriesThatAnEnabledPartUsesAreAvailable) {
    Define(
        "<directory id=\"used\" name=\"U\" default=\"a\"/><directory id=\"copied\" name=\"C\" default=\"a\"/>"
        "<directory id=\"off\" name=\"F\" default=\"a\"/><directory id=\"wide\" name=\"W\" default=\"a\" x64=\"1\"/>"
        "<files enabled=\"1\" destination=\"{USED}/x\"/><files enabled=\"0\" destination=\"{off}\">"
        "<copy enabled=\"1\" destination=\"y/{copied}\"/></files><files destination=\"{off}{wide}\"/>");
    MSetupSession session(library);
    MDirectoryChoices choices(session);
    ASSERT_EQ(choices.GetCount(), 3);
    EXPECT_FALSE(choices.UpdateAvailability());
    std::string available;
    for (const char* id : {"used", "copied", "off", "wide"})
        available += Text(library.FindSubItem("directory", "id", id)->GetAttribute("Available"));
    EXPECT_EQ(available, "1100");
}

TEST(LicenceTextTest, ReadsTheEncodingsOfMakers) {
    const std::pair<std::string, std::string> cases[] = {
        {"\xEF\xBB\xBF\xC5\xBE\r\nx", "\xC5\xBE\nx"},
        {"\xE9\x80", "\xC3\xA9\xE2\x82\xAC"},
        {std::string("\xFF\xFE\x7E\x01\r\0\n\0x", 9), "\xC5\xBE\n"},
        {std::string("a\0b", 3), "ab"},
    };
    for (const auto& [bytes, text] : cases) {
        MMemoryStream stream = MStreamOf(bytes);
        EXPECT_EQ(Text(MReadLicence(stream)), text);
    }
}
