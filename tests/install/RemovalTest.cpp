#include "foundation/base/MGuard.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/files/MRegistryKey.h"
#include "install/registration/MShortcuts.h"
#include "install/registration/MUninstallEntry.h"
#include "install/run/MUninstallRun.h"
#include "tests/install/InstallFixture.h"
#include "tests/support/MTestText.h"

#include <gmock/gmock.h>

namespace {

MString GetEntryKey() {
    return MString(MUninstallKeyName) + "\\Corvanth removal test";
}

}  // namespace

/// An installation made by the engine, its entry and links, and the state that a removal begins with.
class RemovalTest : public InstallTest {
protected:
    RemovalTest() { MFile::CreatePath(GetTarget()); }
    ~RemovalTest() noexcept override {
        if (!isRegistered) return;
        MGuard("RemovalTest", [] { MUninstallEntry::Delete("Corvanth removal test"); });
    }

    void InstallProduct(const std::string& children) {
        Define(children);
        Perform();
        processor.reset();
        library.SetAttribute("mainpath", GetTarget());
        library.SetAttribute("adminrights", 1);
        library.SetAttribute("installationname", "Corvanth removal test");
        library.SaveFile(MFile::Join(GetTarget(), "setup.state"), false, "utf-8");
        MShortcuts(true).CreateLinks(MShortcuts(true).GetDirectory(), library,
                                     {GetTarget(), [](const MString& text) { return text; }});
        MUninstallEntry entry;
        entry.key = "Corvanth removal test";
        entry.displayName = "Test";
        entry.setup = MFile::Join(GetTarget(), "setup");
        entry.Write();
        isRegistered = true;
    }
    void Remove() {
        MInstallViews views;
        views.dialogs = &dialogs;
        run = std::make_unique<MUninstallRun>(GetTarget(), views);
        run->PerformUninstallation();
    }
    /// What the removal has left and listed, relative to the target.
    [[nodiscard]] std::string ListTarget() const {
        std::string names;
        MFile::GetFileListRecursed(
            GetTarget(), "", [&](const MString& directory, const MFileListEntry& entry) {
                names +=
                    Text(MFile::Join(directory, entry.name).Substring(GetTarget().GetLength() + 1)) + " ";
                return true;
            });
        return names;
    }
    [[nodiscard]] std::string Shorten(const MList<MString>& paths) const {
        std::string names;
        for (const MString& path : paths) names += Text(MFile::GetFileName(path)) + " ";
        return names;
    }
    [[nodiscard]] static bool IsRegistered() {
        MRegistryKey key;
        return FailureOf([&] { key.Open(MRegistryRoot::LocalMachine, GetEntryKey()); }) == "none";
    }

    bool isRegistered = false;
    std::unique_ptr<MUninstallRun> run;
};

TEST_F(RemovalTest, TakesAwayWhatWasInstalledAndNothingElse) {
    InstallProduct(
        "<files enabled=\"1\" destination=\"x\" currentpath=\"{to}/product\"><dir name=\"sub\" op=\"create\">" +
        File("a", "1") + "</dir>" + File("X.dll", "2") +
        "<copy enabled=\"1\" destination=\"x\" currentpath=\"{to}/copy\"><extension src=\"dll\" dst=\"aaxplugin\"/></copy></files>"
        "<files enabled=\"1\" rewritable=\"0\" createpath=\"0\" destination=\"x\" currentpath=\"{to}/data\">" +
        File("Setpresets.xml", "3") +
        "</files>"
        "<files enabled=\"1\" uninstall=\"0\" destination=\"x\" currentpath=\"{to}/shared\">" +
        File("b", "4") +
        "</files>"
        "<files enabled=\"0\" destination=\"x\" currentpath=\"{to}/off\">" +
        File("c", "5") +
        "</files>"
        "<shortcutdirectory name=\"Menu\"><shortcut name=\"Target\" destination=\"{to}/data\"/>"
        "<shortcut name=\"Web\" destination=\"https://a.b\" desktop=\"1\"/></shortcutdirectory>");
    Put("off/c", "somebody's");
    EXPECT_TRUE(IsRegistered());
    EXPECT_NE(scratch.ListTree().find("Menu/Target."), std::string::npos);

    Remove();
    EXPECT_EQ(ListTarget().find("product"), std::string::npos) << ListTarget();
    EXPECT_EQ(ListTarget().find("copy"), std::string::npos) << ListTarget();
    EXPECT_EQ(Read("data/Setpresets.xml"), "3");
    EXPECT_EQ(Read("shared/b"), "4");
    EXPECT_EQ(Read("off/c"), "somebody's");
    EXPECT_FALSE(Exists("setup.state"));
    EXPECT_FALSE(IsRegistered());
    const std::string tree = scratch.ListTree();
    EXPECT_EQ(tree.find("Menu"), std::string::npos) << tree;
    EXPECT_EQ(tree.find("Web.url"), std::string::npos) << tree;
    EXPECT_EQ(run->GetFailureCount(), 0);
    EXPECT_TRUE(run->GetLeftovers().IsEmpty());
    EXPECT_TRUE(dialogs.errors.IsEmpty());
}

TEST_F(RemovalTest, CountsWhatStaysAndTellsKeptFoldersFromLeftovers) {
    InstallProduct("<files enabled=\"1\" destination=\"x\" currentpath=\"{to}/product\">" + File("a", "1") +
                   File("b", "2") + "</files>");
    MFile::Delete(MFile::Join(GetTarget(), "product/a"));
    Put("product/a/inside", "a directory that has taken the file's name");
    Remove();
    EXPECT_EQ(ListTarget(), "product product/a product/a/inside ");
    EXPECT_EQ(run->GetFailureCount(), 2);
    EXPECT_EQ(Shorten(run->GetLeftovers()), "a ");
    EXPECT_EQ(Shorten(run->GetKeptDirectories()), "product ");
}

TEST_F(RemovalTest, AMissingKeyIsToldAndTheRunGoesOn) {
    InstallProduct("<files enabled=\"1\" destination=\"x\" currentpath=\"{to}/product\">" + File("a", "1") +
                   "</files>");
    MUninstallEntry::Delete("Corvanth removal test");
    Remove();
    ASSERT_EQ(dialogs.errors.GetCount(), 1);
    EXPECT_EQ(Text(dialogs.errors[0]), "Cannot delete registry key Corvanth removal test.");
    EXPECT_EQ(run->GetLeftovers().GetCount(), 1);
    EXPECT_EQ(ListTarget(), "");
}

TEST_F(RemovalTest, AStateThatLeadsElsewhereRemovesNothing) {
    Put("victim", "1");
    const char* const states[] = {
        "<files enabled=\"1\" currentpath=\"{to}/in\"><file name=\"../victim\" op=\"create\"/></files>",
        "<files enabled=\"1\" currentpath=\"{to}/in\"><dir name=\"..\"><file name=\"victim\"/></dir></files>",
        "<shortcutdirectory name=\"../../target\"><shortcut name=\"victim\"/></shortcutdirectory>",
    };
    for (const char* content : states) {
        std::string state = std::string("<install name=\"x\" mainpath=\"{to}\">") + content + "</install>";
        for (size_t at; (at = state.find("{to}")) != std::string::npos;)
            state.replace(at, 4, Text(GetTarget()));
        Put("setup.state", state);
        EXPECT_THAT(FailureOf([this] { Remove(); }), testing::HasSubstr("leads out of its directory"))
            << state;
        EXPECT_EQ(Read("victim"), "1");
        EXPECT_TRUE(Exists("setup.state"));
    }
}

TEST_F(RemovalTest, LinksFollowTheirTargets) {
    Put("there", "1");
    Define(
        "<shortcut name=\"Ours\" preset=\"uninstall\"/><shortcut name=\"Unknown\" preset=\"other\"/>"
        "<shortcut name=\"Missing\" destination=\"{to}/missing\"/><shortcut name=\"Empty\" destination=\"\"/>"
        "<shortcutdirectory name=\"Folder\"><shortcut name=\"Gone\" destination=\"{to}/gone\"/>"
        "<shortcutdirectory name=\"Inner\"><shortcut name=\"Site\" destination=\"HTTP://a.b/%7Bsite%7D\"/></shortcutdirectory>"
        "</shortcutdirectory>");
    for (const bool adminRights : {true, false}) {
        MShortcuts shortcuts(adminRights);
        shortcuts.CreateLinks(shortcuts.GetDirectory(), library,
                              {MFile::Join(GetTarget(), "there"), [](const MString& text) { return text; }});
        const MString directory = shortcuts.GetDirectory();
        EXPECT_EQ(Text(MFile::GetFileName(directory)),
                  adminRights ? "startmenuprograms" : "userstartmenuprograms");
        EXPECT_FALSE(MFile::FindLink(MFile::Join(directory, "Ours")).IsEmpty());
        for (const char* name : {"Unknown", "Missing", "Empty", "Folder/Gone"})
            EXPECT_TRUE(MFile::FindLink(MFile::Join(directory, name)).IsEmpty()) << name;
        EXPECT_EQ(MReadTestFile(MFile::Join(directory, "Folder/Inner/Site.url")),
                  "[InternetShortcut]\nURL=HTTP://a.b/%7Bsite%7D\n");
        shortcuts.RemoveLinks(directory, library);
        EXPECT_TRUE(MFile::GetFileList(directory).IsEmpty());
    }
}
