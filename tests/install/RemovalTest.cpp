#include "foundation/base/MGuard.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/files/MRegistryKey.h"
#include "install/registration/MRegistrationOwner.h"
#include "install/registration/MShortcuts.h"
#include "install/registration/MUninstallEntry.h"
#include "install/run/MUninstallRun.h"
#include "tests/install/InstallFixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

const char* const EntryName = "Corvanth removal test";

MString Keep(const MString& text) {
    return text;
}

}  // namespace

/// An installation made by the engine, its entry and links, and the state that a removal begins with.
class RemovalTest : public InstallTest {
protected:
    RemovalTest() { MFile::CreatePath(GetTarget()); }
    ~RemovalTest() noexcept override {
        if (isRegistered) MGuard("RemovalTest", [] { DeleteEntry(); });
    }

    void InstallProduct(const std::string& children) {
        Define(children);
        Perform();
        processor.reset();
        library.SetAttribute("mainpath", GetTarget());
        library.SetAttribute("adminrights", 1);
        library.SetAttribute("installationname", EntryName);
        MRegistrationOwner::Note(library);
        library.SaveFile(InTarget("setup.state"), false, "utf-8");
        Register("target");
    }
    /// Creates the links of the definition, and the entry, as if it had been installed in that folder.
    void Register(const char* folder) {
        const auto expand = [&](MString path) {
            path.Replace(GetTarget(), scratch.Join(folder));
            return path;
        };
        const MShortcuts shortcuts(true);
        shortcuts.CreateLinks(shortcuts.GetDirectory(), library, {scratch.Join(folder), expand});
        MUninstallEntry{EntryName, "Test", MFile::Join(scratch.Join(folder), "setup")}.Write();
        isRegistered = true;
    }
    void Remove() {
        MInstallViews views;
        views.dialogs = &dialogs;
        run = std::make_unique<MUninstallRun>(GetTarget(), views);
        run->PerformUninstallation();
    }
    [[nodiscard]] std::string Shorten(const MList<MString>& paths) const {
        std::string names;
        for (const MString& path : paths) names += Text(MFile::GetFileName(path)) + " ";
        return names;
    }
    static void DeleteEntry() {
        MRegistryKey::Delete(MRegistryRoot::LocalMachine, MString(MUninstallKeyName) + "\\" + EntryName);
    }
    [[nodiscard]] static bool IsRegistered() {
        MRegistryKey key;
        const MString name = MString(MUninstallKeyName) + "\\" + EntryName;
        return FailureOf([&] { key.Open(MRegistryRoot::LocalMachine, name); }) == "none";
    }

    bool isRegistered = false;
    std::unique_ptr<MUninstallRun> run;
};

TEST_F(RemovalTest, TakesAwayWhatWasInstalledAndNothingElse) {
    InstallProduct(
        Files(
            "/product",
            "<dir name=\"sub\" op=\"create\">" + File("a", "1") + "</dir>" + File("X.dll", "2") +
                R"(<copy enabled="1" currentpath="{to}/copy"><extension src="dll" dst="aaxplugin"/></copy>)") +
        Files("/data", File("Setpresets.xml", "3"), R"(rewritable="0" createpath="0")") +
        Files("/shared", File("b", "4"), R"(uninstall="0")") +
        R"(<files enabled="0" currentpath="{to}/off">)" + File("c", "5") +
        R"(</files><shortcutdirectory name="Menu"><shortcut name="Target" destination="{to}/data"/>)"
        R"(<shortcut name="Web" destination="https://a.b" desktop="1"/></shortcutdirectory>)");
    Put("off/c", "somebody's");
    EXPECT_TRUE(IsRegistered());
    EXPECT_THAT(scratch.ListTree(), HasSubstr("Menu/Target."));

    Remove();
    const std::string tree = scratch.ListTree();
    for (const char* gone : {"product", "copy", "Menu", "Web.", "setup.state"})
        EXPECT_THAT(tree, Not(HasSubstr(gone)));
    EXPECT_EQ(Read("data/Setpresets.xml"), "3");
    EXPECT_EQ(Read("shared/b"), "4");
    EXPECT_EQ(Read("off/c"), "somebody's");
    EXPECT_FALSE(IsRegistered());
    EXPECT_EQ(run->GetFailureCount(), 0);
    EXPECT_TRUE(run->GetLeftovers().IsEmpty());
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(RemovalTest, CountsWhatStaysAndTellsKeptFoldersFromLeftovers) {
    InstallProduct(Files("/product", File("a", "1") + File("b", "2") + "<dir name=\"kept\" uninstall=\"0\">" +
                                         File("c", "3") + "</dir>"));
    MFile::Delete(InTarget("product/a"));
    Put("product/a/inside", "a directory that has taken the file's name");
    Remove();
    EXPECT_FALSE(Exists("product/b"));
    EXPECT_TRUE(Exists("product/a/inside"));
    EXPECT_EQ(Read("product/kept/c"), "3");
    EXPECT_EQ(run->GetFailureCount(), 3);
    EXPECT_EQ(Shorten(run->GetLeftovers()), "a ");
    EXPECT_EQ(Shorten(run->GetKeptDirectories()), "kept product ");
}

TEST_F(RemovalTest, AMissingKeyIsToldBeforeTheStateGoes) {
    InstallProduct(Files("/product", File("a", "1")) + R"(<shortcut name="Web" destination="https://a.b"/>)");
    DeleteEntry();
    // The state is what a later run would need to remove what this one has not.
    bool isStateThere = false;
    bool isLinkThere = true;
    dialogs.onError = [&] {
        isStateThere = Exists("setup.state");
        isLinkThere = !MFile::FindLink(scratch.Join("startmenuprograms/Web")).IsEmpty();
    };
    Remove();
    EXPECT_THAT(dialogs.errors, ElementsAre("Cannot delete registry key Corvanth removal test."));
    EXPECT_TRUE(isStateThere);
    EXPECT_FALSE(isLinkThere);
    EXPECT_EQ(run->GetLeftovers().GetCount(), 1);
    EXPECT_TRUE(MFile::GetFileList(GetTarget()).IsEmpty());
}

TEST_F(RemovalTest, AnotherInstallationOfTheNameKeepsItsEntryAndLinks) {
    const MString menu = scratch.Join("startmenuprograms/Menu");
    const auto isLink = [&](const char* name) { return !MFile::FindLink(MFile::Join(menu, name)).IsEmpty(); };
    for (const bool isOtherLast : {true, false}) {
        InstallProduct(
            Files("/product", File("a", "1") + File("ours", "2")) +
            R"(<shortcutdirectory name="Menu"><shortcut name="Tool" destination="{to}/product/a"/>)"
            R"(<shortcut name="Ours" destination="{to}/product/ours"/>)"
            R"(<shortcut name="Theirs" destination="{to}/product/theirs"/>)"
            R"(<shortcut name="Web" destination="https://a.b"/></shortcutdirectory>)");
        for (const char* file : {"a", "theirs"}) scratch.WriteFile(MString("other/product/") + file, "1");
        scratch.WriteFile("other/setup.state", "<install/>");
        Register("other");
        if (!isOtherLast) Register("target");
        Remove();
        EXPECT_EQ(IsRegistered(), isOtherLast);
        EXPECT_EQ(isLink("Tool"), isOtherLast);
        EXPECT_EQ(isLink("Web"), isOtherLast);
        EXPECT_TRUE(isLink("Theirs"));
        EXPECT_FALSE(isLink("Ours"));
        EXPECT_TRUE(dialogs.errors.empty());
        EXPECT_EQ(Shorten(run->GetLeftovers()), "");
        EXPECT_EQ(Shorten(run->GetKeptDirectories()), "Menu ");
    }
}

TEST_F(RemovalTest, LinksAndEntryAreFoundWhereTheInstallationHasPutThem) {
    for (const char* note : {"linkowner", "none"}) {
        folders.SetOwner(MFolderOwner::User);
        InstallProduct(
            Files("/product", File("a", "1")) +
            R"(<shortcutdirectory name="Menu"><shortcut name="Tool" destination="{to}/product/a"/>)"
            R"(<shortcut name="Desk" desktop="1" destination="{to}"/></shortcutdirectory>)");
        EXPECT_THAT(scratch.ListTree(), HasSubstr("userstartmenuprograms/Menu/Tool."));
        EXPECT_EQ(Text(library.GetAttribute("linkowner")), "user");
        for (const char* name : {"linkowner", "entryowner"})
            if (!library.HasAttribute(note)) library.RemoveAttribute(name);
        library.SaveFile(InTarget("setup.state"), false, "utf-8");
        folders.SetOwner(MFolderOwner::Everybody);
        Remove();
        EXPECT_TRUE(dialogs.errors.empty()) << note;
        EXPECT_THAT(scratch.ListTree(),
                    Not(testing::AnyOf(HasSubstr("Menu"), HasSubstr("Desk."), HasSubstr(".value"))))
            << note;
        EXPECT_FALSE(IsRegistered());
    }
}

// A removal may have waited for another setup.
TEST_F(RemovalTest, RemovesWhatStandsWhenItBegins) {
    const auto stateOf = [this](const std::string& file) {
        return Place("<install name=\"x\" mainpath=\"{to}\"><files enabled=\"1\" currentpath=\"{to}\">") +
               "<file name=\"" + file + "\" op=\"create\"/></files></install>";
    };
    Put("old", "1");
    Put("new", "1");
    Put("setup.state", stateOf("old"));
    MInstallViews views;
    views.dialogs = &dialogs;
    MUninstallRun first(GetTarget(), views);
    MUninstallRun second(GetTarget(), views);
    Put("setup.state", stateOf("new"));
    first.PerformUninstallation();
    EXPECT_TRUE(Exists("old"));
    EXPECT_FALSE(Exists("new"));
    EXPECT_THAT(FailureOf([&] { second.PerformUninstallation(); }), HasSubstr("by another setup"));
}

TEST_F(RemovalTest, AStateThatLeadsElsewhereRemovesNothing) {
    Put("victim", "1");
    const char* const states[] = {
        R"(<files enabled="1" currentpath="{to}/in"><file name="../victim" op="create"/></files>)",
        R"(<files enabled="1" currentpath="{to}/in"><dir name=".."><file name="victim"/></dir></files>)",
        R"(<shortcutdirectory name="../../target"><shortcut name="victim"/></shortcutdirectory>)",
        R"(<shortcutdirectory name="in"><shortcutdirectory name="../.."><shortcut name="victim"/>)"
        R"(</shortcutdirectory></shortcutdirectory>)",
        R"(<shortcutdirectory name="in"><shortcut name="../../target/victim"/></shortcutdirectory>)",
    };
    for (const char* content : states) {
        Put("setup.state", Place("<install name=\"x\" mainpath=\"{to}\">") + Place(content) + "</install>");
        EXPECT_THAT(FailureOf([this] { Remove(); }), HasSubstr("leads out of its directory")) << content;
        EXPECT_EQ(Read("victim"), "1");
        EXPECT_TRUE(Exists("setup.state"));
    }
}

TEST_F(RemovalTest, LinksFollowTheirTargets) {
    Put("there", "1");
    Define(R"(<shortcut name="Ours" preset="uninstall"/><shortcut name="Unknown" preset="other"/>)"
           R"(<shortcut name="Missing" destination="{to}/missing"/><shortcut name="Empty" destination=""/>)"
           R"(<shortcutdirectory name="Folder"><shortcut name="Gone" destination="{to}/gone"/>)"
           R"(<shortcutdirectory name="Inner"><shortcut name="Site" destination="HTTP://a.b/%7Bsite%7D"/>)"
           R"(</shortcutdirectory></shortcutdirectory>)");
    for (const bool adminRights : {true, false}) {
        MShortcuts shortcuts(adminRights);
        const MString directory = shortcuts.GetDirectory();
        shortcuts.CreateLinks(directory, library, {InTarget("there"), Keep});
        EXPECT_EQ(Text(MFile::GetFileName(directory)),
                  adminRights ? "startmenuprograms" : "userstartmenuprograms");
        EXPECT_FALSE(MFile::FindLink(MFile::Join(directory, "Ours")).IsEmpty());
        for (const char* name : {"Unknown", "Missing", "Empty", "Folder/Gone"})
            EXPECT_TRUE(MFile::FindLink(MFile::Join(directory, name)).IsEmpty()) << name;
        const MString site = MFile::FindLink(MFile::Join(directory, "Folder/Inner/Site"));
        EXPECT_THAT(MReadTestFile(site), HasSubstr("HTTP://a.b/%"));
        shortcuts.RemoveLinks(directory, library, {GetTarget()});
        EXPECT_TRUE(MFile::GetFileList(directory).IsEmpty());
        MWriteTestFile(MFile::Join(directory, "Folder"), "in the way");
        EXPECT_THROW(shortcuts.CreateLinks(directory, library, {InTarget("there"), Keep}), MException);
    }
}
