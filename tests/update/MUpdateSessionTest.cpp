#include "update/MUpdateSession.h"

#include "streams/ciphers/MRSAKey.h"
#include "streams/hashes/MSHA256Stream.h"
#include "tests/install/InstallFixture.h"
#include "tests/support/MTestKey.h"
#include "tests/update/DownloadFixture.h"

namespace {

/// What a server offers to the installation in "target", whose first part the user has in two folders and whose
/// third comes from the installer.
class UpdateSessionTest : public testing::Test {
protected:
    UpdateSessionTest() {
        const std::string address = Text(server.GetAddress()).substr(strlen("http://"));
        SetState(
            "<install name=\"Reverb\" id=\"reverb\" time=\"2026-01-01 00:00:00\" mainpath=\"{to}\" updateaddress=\"" +
            address + "\">" + "<files enabled=\"1\" currentpath=\"{to}/bin\" path=\"old\">" +
            Copy("currentpath=\"{to}/copy/x.vst\"") + File("a.txt", "create") + File("gone.txt", "create") +
            "</files><files enabled=\"1\" rewritable=\"0\" currentpath=\"{to}/presets\">" +
            File("Roompresets.xml", "create") + "</files><files enabled=\"1\" currentpath=\"{to}/third\">" +
            File("third.txt", "create") + "</files></install>");
        for (const char* file : {"bin/a.txt", "bin/gone.txt", "copy/x.vst/a.txt", "third/third.txt"})
            scratch.WriteFile(MString("target/") + file, "old");
        scratch.WriteFile("target/presets/Roompresets.xml", "<Set><preset name=\"Mine\"/></Set>");
        views.dialogs = &dialogs;
    }
    ~UpdateSessionTest() noexcept override = default;

    static std::string File(const std::string& name, const std::string& op, const std::string& more = "") {
        return "<file name=\"" + name + "\" op=\"" + op + "\" filestart=\"0\" filesize=\"3\" " + more + "/>";
    }
    static std::string Copy(const std::string& attributes) {
        return "<copy enabled=\"1\" " + attributes + "/>";
    }
    void SetState(std::string xml) {
        for (size_t at; (at = xml.find("{to}")) != std::string::npos;) xml.replace(at, 4, Text(target));
        scratch.WriteFile("target/setup.state", "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n" + xml);
    }
    [[nodiscard]] MXMLItem& LoadState() {
        state.LoadFile(scratch.Join("target/setup.state"));
        return state;
    }
    /// A library whose first item is "new".
    static std::string Library(const std::string& children) {
        MTestPayload payload(7);
        (void)payload.Add("new");
        const std::string presets = payload.Add("<Set><preset name=\"Fresh\"/></Set>");
        std::string xml = "<update>" + children + "</update>";
        if (const size_t at = xml.find("{presets}"); at != std::string::npos) xml.replace(at, 9, presets);
        return payload.Finish(xml);
    }
    void Offer(const std::vector<std::pair<std::string, std::string>>& offers) {
        std::string index = "<any>";
        int32_t number = 0;
        for (const auto& [attributes, library] : offers) {
            const std::string name = std::to_string(++number);
            index += "<update name=\"N" + name + "\" filename=\"U &amp; " + name + ".dat\" size=\"10\" " +
                     attributes + "/>";
            server.Put("/?op=getupdate&updatename=U%20%26%20" + name, MTestBody(library));
        }
        server.Put("/?op=getindex", MTestBody(index + "</any>"));
    }
    int32_t Perform(const MList<int32_t>& packages = {}) {
        MUpdateSession session(target);
        session.Query();
        session.SelectPackages(packages);
        return session.Perform(views, [this] { return --leftBeforeStop < 0; });
    }
    [[nodiscard]] std::string Read(const MString& name) const { return scratch.ReadFile("target/" + name); }
    [[nodiscard]] bool Exists(const MString& name) const {
        return MFile::Exists(scratch.Join("target/" + name));
    }

    static constexpr const char* Update = "time=\"2026-02-01 00:00:00\"";
    static constexpr const char* Package = "time=\"2025-02-01 00:00:00\" package=\"1\"";

    MScratch scratch;
    MScratchFolders folders{scratch};
    const MString target = scratch.Join("target");
    MTestMirror server;
    ScriptedDialogs dialogs;
    MInstallViews views;
    MXMLItem state;
    int32_t leftBeforeStop = INT32_MAX;
};

}  // namespace

TEST_F(UpdateSessionTest, LaysAnUpdateOverEveryPlaceOfTheOldFiles) {
    Offer({{std::string(Update) + " showinfo=\"&lt;b&gt;Read&lt;/b&gt; this\"",
            Library("<files path=\"other\">" + Copy("currentpath=\"" + Text(target) + "/elsewhere\"") +
                    File("a.txt", "update") + File("gone.txt", "delete") +
                    "<dir name=\"sub\" op=\"create\">" + File("b.txt", "create") +
                    "</dir></files><files><file name=\"Roompresets.xml\" op=\"update\"" +
                    "{presets}/></files>")}});
    EXPECT_EQ(Perform(), 1);
    for (const char* file : {"bin/a.txt", "bin/sub/b.txt", "copy/x.vst/a.txt", "copy/x.vst/sub/b.txt"})
        EXPECT_EQ(Read(file), "new") << file;
    EXPECT_EQ(Read("third/third.txt"), "old");
    EXPECT_EQ(Read("presets/Roompresets.xmlbackup"), "<Set><preset name=\"Mine\"/></Set>");
    EXPECT_NE(Read("presets/Roompresets.xml").find("Fresh"), std::string::npos);
    for (const char* gone : {"bin/gone.txt", "elsewhere", "setup.update"}) EXPECT_FALSE(Exists(gone)) << gone;
    EXPECT_EQ(dialogs.told, std::vector<std::string>{"<b>Read</b> this"});

    const MXMLItem& files = *LoadState().GetSubItem(0);
    EXPECT_EQ(Text(state.GetAttribute("time")), "2026-02-01 00:00:00");
    EXPECT_EQ(files.GetSubItemCount(), 4) << "the copy of the user's, a.txt, gone.txt and sub";
    EXPECT_EQ(Text(files.GetAttribute("path")), "old");
    EXPECT_EQ(Text(state.GetSubItem(2)->GetSubItem(0)->GetAttribute("name")), "third.txt");
    MUpdateSession again(target);
    again.Query();
    EXPECT_TRUE(again.GetOffers().IsEmpty());
    EXPECT_TRUE(again.GetRun().IsInstalled(*state.GetOrAddSubItem("x", "time", "2026-02-01 00:00:00")));
}

TEST_F(UpdateSessionTest, PackagesAreChosenAndNoted) {
    const std::string only = "<files unchanged=\"1\"/><files unchanged=\"1\"/><files>" +
                             File("more.txt", "create") + File("third.txt", "leave") + "</files>";
    Offer(
        {{Package, Library("")}, {std::string("time=\"2025-03-01 00:00:00\" package=\"1\""), Library(only)}});
    MUpdateSession session(target);
    session.Query();
    EXPECT_EQ(session.GetSummary().GetDownloadCount(), 0);
    EXPECT_EQ(session.GetSummary().packageCount, 2);
    EXPECT_EQ(Perform({}), 0);
    MList<int32_t> second;
    second.Add(1);
    EXPECT_EQ(Perform(second), 1);
    EXPECT_EQ(Read("third/more.txt") + Read("third/third.txt") + Read("bin/a.txt"), "newoldold");
    EXPECT_EQ(Text(LoadState().GetAttribute("time")), "2026-01-01 00:00:00");
    EXPECT_EQ(Text(state.GetSubItem("package")->GetAttribute("name")), "N2");
    EXPECT_EQ(state.GetSubItem(0)->CountSubItems("file"), 2) << "a.txt and gone.txt are still known";
    MUpdateSession again(target);
    again.Query();
    EXPECT_EQ(again.GetSummary().packageCount, 1);
}

// The update counts as installed, so nobody would ever hear of it again.
TEST_F(UpdateSessionTest, TellsOnceOfPresetsThatCouldNotBeMerged) {
    scratch.WriteFile("target/presets/Roompresets.xml", "no presets <");
    const std::string later = "time=\"2026-03-01 00:00:00\"";
    Offer({{Update,
            Library("<files unchanged=\"1\"/><files><file name=\"Roompresets.xml\" op=\"update\"{presets}/>"
                    "</files>")},
           {later, Library("<files>" + File("a.txt", "update") + "</files>")}});
    EXPECT_EQ(Perform(), 2);
    EXPECT_EQ(Read("presets/Roompresets.xml"), "no presets <");
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_NE(dialogs.errors[0].find("target/presets/Roompresets.xml: "), std::string::npos)
        << dialogs.errors[0];
}

TEST_F(UpdateSessionTest, EndsWhereItIsAskedToAndAfterARestart) {
    const std::string library = Library("<files>" + File("a.txt", "update") + "</files>");
    Offer({{Update, library},
           {std::string("restart=\"1\" time=\"2026-03-01 00:00:00\""), library},
           {Package, library}});
    leftBeforeStop = 1;
    EXPECT_EQ(Perform(), 1);
    EXPECT_EQ(Text(LoadState().GetAttribute("time")), "2026-02-01 00:00:00");
    leftBeforeStop = INT32_MAX;
    MList<int32_t> first;
    first.Add(0);
    EXPECT_EQ(Perform(first), 1);
    EXPECT_EQ(dialogs.told,
              std::vector<std::string>{
                  "The update requires the installer to exit. Please run the update installer again later."});
    EXPECT_FALSE(LoadState().HasSubItem("package"));
}

TEST_F(UpdateSessionTest, TheLastFileOfAPathGoesWhereThatIsAsked) {
    Offer({{Update, Library("<files removelastfilefrompath=\"1\">" + File("a.txt", "update") + "</files>")}});
    EXPECT_EQ(Perform(), 1);
    const MXMLItem& files = *LoadState().GetSubItem(0);
    EXPECT_EQ(Text(files.GetAttribute("currentpath")), Text(target) + "/bin");
    EXPECT_EQ(Text(files.GetSubItem("copy")->GetAttribute("currentpath")), Text(target) + "/copy");
    EXPECT_EQ(Read("copy/a.txt"), "new");
}

// Whatever fails, the state tells of the old level, so that the update is offered again.
TEST_F(UpdateSessionTest, FailuresLeaveTheState) {
    const std::string before = Read("setup.state");
    const std::string whole = Library("<files>" + File("a.txt", "update") + "</files>");
    const std::string broken = "0: The update has not been downloaded correctly. Please try again.";
    const std::pair<std::string, std::string> cases[] = {
        {"", broken},
        {whole.substr(0, whole.size() / 2), broken},
        {Library("<files>" + File("../../evil", "create") + "</files>"),
         "0: The name \"../../evil\" in the definition leads out of its directory. The installer is damaged or not "
         "trustworthy; please get it again from its maker."},
    };
    for (const auto& [library, failure] : cases) {
        Offer({{Update, library}});
        EXPECT_EQ(FailureOf([&] { (void)Perform(); }), failure);
    }
    Offer({{std::string(Update) + " execute=\"missing\"", whole}});
    EXPECT_EQ(Read("setup.state"), before);
    EXPECT_NE(FailureOf([&] { (void)Perform(); }).find("Could not execute file"), std::string::npos);
    EXPECT_EQ(Read("bin/a.txt"), "new");
    EXPECT_FALSE(Exists("setup.update"));

    SetState(
        "<install name=\"Reverb\" id=\"reverb\" time=\"2026-01-01 00:00:00\" mainpath=\"{to}\" updateaddress=\"" +
        Text(server.GetAddress()).substr(7) + "\"><files enabled=\"1\"/></install>");
    Offer({{Update, Library("<files removelastfilefrompath=\"1\"/>")}});
    EXPECT_EQ(
        FailureOf([&] { (void)Perform(); }),
        "0: Installation log is not complete. Please download and use the newest installer. There is no need to "
        "remove current installation.");
}

TEST_F(UpdateSessionTest, TheBackupOfSeveralUpdatesIsWhatTheUserHad) {
    const std::string users = "<Set><preset name=\"Fresh\" v=\"mine\"/></Set>";
    scratch.WriteFile("target/presets/Roompresets.xml", users);
    const auto library = [](const std::string& value) {
        MTestPayload payload(7);
        const std::string presets = payload.Add("<Set><preset name=\"Fresh\" v=\"" + value + "\"/></Set>");
        return payload.Finish(
            "<update><files unchanged=\"1\"/><files><file name=\"Roompresets.xml\" op=\"update\"" + presets +
            "/></files></update>");
    };
    Offer({{Update, library("one")}, {"time=\"2026-03-01 00:00:00\"", library("two")}});
    EXPECT_EQ(Perform(), 2);
    EXPECT_NE(Read("presets/Roompresets.xml").find("\"two\""), std::string::npos);
    EXPECT_EQ(Read("presets/Roompresets.xmlbackup"), users);
    EXPECT_FALSE(MFile::Exists(scratch.Join("userdata/InstallerMerges.txt")));
    Offer({{"time=\"2026-04-01 00:00:00\"", library("three")}});
    EXPECT_EQ(Perform(), 1);
    EXPECT_NE(Read("presets/Roompresets.xmlbackup").find("\"two\""), std::string::npos);
}

TEST_F(UpdateSessionTest, WhatAnotherManagerHasInstalledIsLeft) {
    Offer({{Update, Library("<files>" + File("a.txt", "update") + "</files>")}, {Package, "no library"}});
    MUpdateSession session(target);
    session.Query();
    MList<int32_t> first;
    first.Add(0);
    session.SelectPackages(first);
    LoadState().SetAttribute("time", "2026-02-02 00:00:00");
    state.AddSubItem("package")->SetAttribute("time", "2025-02-01 00:00:00");
    state.SaveFile(scratch.Join("target/setup.state"), false, "utf-8");
    EXPECT_EQ(session.Perform(views, [] { return false; }), 0);
    EXPECT_EQ(Read("bin/a.txt"), "old");
}

// What came another way than from the maker is not even looked into.
TEST_F(UpdateSessionTest, OnlyWhatTheMakerHasSignedCountsWithAKey) {
    const auto sign = [](const std::string& content) {
        MSHA256Stream hash;
        hash.Write(content.data(), static_cast<int32_t>(content.size()));
        hash.Finish();
        const std::vector<uint8_t> signature = MRSAKey::ReadPrivate(MTestPrivateKey).Sign(hash.GetDigest());
        return MTestBody(std::string(signature.begin(), signature.end()));
    };
    LoadState().SetAttribute("updatekey", MTestPublicKey);
    state.SaveFile(scratch.Join("target/setup.state"), false, "utf-8");
    const std::string files = "<files>" + File("a.txt", "update") + "</files>";
    const std::string library = Library("<updateinformation " + std::string(Update) + "/>" + files);
    const auto changed = [](const char* what) {
        return "0: " + std::string(what) +
               " is not signed by the maker of this software, or has been changed on its way. Nothing of it has been "
               "installed. Please try again later, or get it from the maker's web site.";
    };
    const auto perform = [&](const std::string& published) {
        server.Put("/?op=getindex", MTestBody(published));
        return FailureOf([&] { (void)Perform(); });
    };
    const std::string index = "<x><update name=\"N\" filename=\"u.dat\" " + std::string(Update) + "/></x>";
    EXPECT_EQ(perform(index), changed("The list of updates"));
    server.Put("/?op=getindexsignature", sign(index));
    server.Put("/?op=getupdate&updatename=u", MTestBody(library));
    EXPECT_EQ(perform(index + " "), changed("The list of updates"));
    EXPECT_EQ(perform(index), changed("N"));
    server.Put("/?op=getupdatesignature&updatename=u", sign("another"));
    EXPECT_EQ(perform(index), changed("N"));
    // An installer, say.
    server.Put("/?op=getupdate&updatename=u", MTestBody(Library(files)));
    server.Put("/?op=getupdatesignature&updatename=u", sign(Library(files)));
    EXPECT_EQ(perform(index), "0: The server has sent another update than N. Please try again later.");
    EXPECT_EQ(Read("bin/a.txt"), "old");
    server.Put("/?op=getupdate&updatename=u", MTestBody(library));
    server.Put("/?op=getupdatesignature&updatename=u", sign(library));
    EXPECT_EQ(perform(index), "none");
    EXPECT_EQ(Read("bin/a.txt"), "new");
}

TEST_F(UpdateSessionTest, AnotherUpdateThanTheOfferIsRefused) {
    const std::pair<const char*, std::string> cases[] = {
        {"time=\"2026-02-02 00:00:00\"",
         "0: The server has sent another update than N1. Please try again later."},
        {"time=\"2026-02-01 00:00:00\" basetime=\"2026-01-02 00:00:00\"",
         "0: N1 changes a newer version than the one that is installed. Please install the updates in between first, "
         "or the newest installer."},
        {"time=\"2026-02-01 00:00:00\" installationname=\"Delay\"",
         "0: N1 is for Delay, and Reverb is installed here. Nothing of it has been installed."},
        {"time=\"2026-02-01 00:00:00\" basetime=\"2026-01-01 00:00:00\" installationname=\"Reverb\"", "none"},
    };
    for (const auto& [attributes, failure] : cases) {
        Offer({{Update, Library("<updateinformation " + std::string(attributes) + "/>")}});
        EXPECT_EQ(FailureOf([&] { (void)Perform(); }), failure);
    }
}
