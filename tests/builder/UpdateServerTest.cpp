#include "builder/updates/MUpdateCollection.h"
#include "tests/builder/UpdateFixture.h"
#include "tests/support/MTestPayload.h"
#include "update/MUpdateOffers.h"

namespace {

constexpr const char* Element = R"(<files name="A" path="a" destination="{main}" required="1"/>)";
constexpr const char* Empty = R"(<files name="E" destination="{main}/E" required="1"/>)";

/// A product's updates and packages in "updates", and the tree that serves them in "www".
class UpdateServerTest : public UpdateFixture {
protected:
    UpdateServerTest() { MFile::CreatePath(scratch.Join("updates")); }

    /// Makes "updates/NAME" that leads from one day of January to another; a package belongs to its first day.
    void MakeUpdate(const std::string& name, int from, int to, const std::string& command = "update",
                    const std::string& more = "") {
        const auto time = [](int day) { return "2026-01-0" + std::to_string(day) + " 10:00:00"; };
        const bool isPackage = command == "package";
        const std::string filled = R"(<files name="E" path="e" destination="{main}/E" required="1"/>)";
        const std::string begin = std::string(Element) + more;
        WriteVersion("old", time(from), begin + Empty, {{"a/x", "of day " + std::to_string(from)}});
        WriteVersion("new", time(to), begin + (isPackage ? filled : Empty),
                     {{"a/x", "of day " + std::to_string(isPackage ? from : to)}, {"e/e", name}});
        ASSERT_EQ(Make(command, {"--output", "@updates/" + name, "--name", name}), 0) << JoinComplaints();
    }

    int32_t Serve(std::vector<std::string> more = {}) {
        if (std::ranges::count(more, "--output") == 0) more.insert(more.end(), {"--output", "@www"});
        more.insert(more.begin(), {"update-server", "@updates"});
        return Run(more);
    }
};

}  // namespace

TEST_F(UpdateServerTest, TheTreeIsWhatInstallationsRead) {
    MakeUpdate("Two.dat", 2, 3);
    MakeUpdate("One.dat", 1, 2);
    MakeUpdate("Piano.dat", 1, 1, "package");
    scratch.WriteFile("updates/notes.txt", "");
    ASSERT_EQ(Serve(), 0) << JoinComplaints();
    EXPECT_THAT(JoinComplaints(), HasSubstr("notes.txt: passed over"));

    MXMLItem state("install");
    state.SetAttribute("time", "2026-01-01 10:00:00");
    const std::string index = scratch.ReadFile("www/index.xml");
    MMemoryStream reply = MStreamOf(index);
    MUpdateOffers offers;
    offers.Read(reply, state);
    ASSERT_EQ(offers.GetUpdates().GetCount(), 2);
    ASSERT_EQ(offers.GetPackages().GetCount(), 1);
    EXPECT_EQ(Text(offers.GetUpdates()[0]->GetAttribute("filename")), "One.dat");
    EXPECT_EQ(Text(offers.GetUpdates()[1]->GetAttribute("filename")), "Two.dat");
    const std::string bytes = scratch.ReadFile("www/updates/Piano.dat");
    EXPECT_TRUE(bytes == scratch.ReadFile("updates/Piano.dat"));
    EXPECT_EQ(offers.GetPackages()[0]->GetInt64Attribute("size"), static_cast<int64_t>(bytes.size()));

    // Again it gives the same, mends what is damaged, and tells what is no longer offered.
    const std::string before = scratch.ListTree();
    ASSERT_EQ(Serve(), 0);
    EXPECT_EQ(scratch.ListTree(), before);
    scratch.WriteFile("www/updates/Two.dat", "x");
    scratch.WriteFile("www/updates/Zero.dat", "x");
    ASSERT_EQ(Serve(), 0);
    EXPECT_TRUE(scratch.ReadFile("www/updates/Two.dat") == scratch.ReadFile("updates/Two.dat"));
    EXPECT_THAT(output.told, HasSubstr("Zero.dat is no longer offered"));
    EXPECT_TRUE(scratch.ReadFile("www/index.xml") == index);
    EXPECT_EQ(Run({"check", "@www/index.xml"}), 0) << JoinComplaints();
}

TEST_F(UpdateServerTest, RefusesWhatWouldMislead) {
    const auto refuse = [&](const std::string& name, const char* reason) {
        EXPECT_EQ(Serve(), MBuilderExitFailed) << reason;
        EXPECT_THAT(JoinComplaints(), HasSubstr(reason));
        EXPECT_FALSE(MFile::Exists(scratch.Join("www")));
        MFile::Delete(scratch.Join(Name("updates/" + name)));
    };
    EXPECT_EQ(Serve(), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("holds no updates"));
    MakeUpdate("One.dat", 1, 2);
    MakeUpdate("Again.dat", 1, 2);
    refuse("Again.dat", "Again.dat and One.dat have the same time");
    MakeUpdate("Skip.dat", 1, 3);
    refuse("Skip.dat",
           "Skip.dat is laid over the version of 2026-01-01 10:00:00, and is installed after One.dat");
    MakeUpdate("a b.dat", 2, 3);
    refuse("a b.dat", "cannot be asked for by that name");
    scratch.WriteFile("updates/Cut.dat", scratch.ReadFile("updates/One.dat").substr(0, 200));
    refuse("Cut.dat", "Cut.dat cannot be used: ");
    ASSERT_EQ(Run({"pack", "@old/product.xml", "--form", "dat", "--output", "@updates/Full.dat"}), 0);
    MFile::Delete(scratch.Join("updates/Full.dat.md5"));
    refuse("Full.dat", "Full.dat is no update for a server");

    for (const std::vector<std::string>& options : {std::vector<std::string>{"--id", "a/b"},
                                                    {"--base", "x"},
                                                    {"--base", "/a;b"},
                                                    {"--output", "@a$b"}}) {
        EXPECT_EQ(Serve(options), MBuilderExitFailed) << options[1];
    }
    EXPECT_EQ(Serve({"--output", "@updates/One.dat"}), MBuilderExitFailed);
}

TEST_F(UpdateServerTest, SeveralProductsShareOneServer) {
    MakeUpdate("One.dat", 1, 2);
    ASSERT_EQ(Serve({"--id", "Tamborel8"}), 0) << JoinComplaints();
    const std::string lines = scratch.ReadFile("www/nginx.conf");
    ASSERT_EQ(Serve({"--id", "Other", "--base", "/downloadupdate"}), 0) << JoinComplaints();
    EXPECT_TRUE(scratch.ReadFile("www/nginx.conf") == lines);
    EXPECT_TRUE(scratch.ReadFile("www/Other/updates/One.dat") ==
                scratch.ReadFile("www/Tamborel8/updates/One.dat"));
}

TEST_F(UpdateServerTest, CheckTellsWhatIsWrongWithAnIndex) {
    const std::string good = R"(<update name="A" size="1" filename="a.dat" time="2026-01-02 10:00:00"/>)";
    EXPECT_EQ((scratch.WriteFile("index.xml", "<any>" + good + "</any>"), Run({"check", "@index.xml"})), 0);
    const std::pair<const char*, const char*> faults[] = {
        {R"(<update name="B" size="0" filename="b.dat" time="2026-01-03 10:00:00"/>)",
         ":2: error: This offer has no size"},
        {R"(<update name="B" size="1" filename="../b.dat" time="2026-01-03 10:00:00"/>)",
         "\"../b.dat\" is no name"},
        {R"(<update name="B" size="1" filename="b" time="2026-01-03 10:00:00"/>)", "\"b\" is no name"},
        {R"(<update name="B" size="1" filename="A.zip" time="2026-01-03 10:00:00"/>)",
         "asked for by the same name"},
        {R"(<update name="B" size="1" filename="b.dat" time="2026-01-01 10:00:00"/>)",
         "older than one before it"},
        {R"(<update name="B" size="1" filename="b.dat" time="2026-01-02 10:00:00"/>)",
         "line 1 has the same time"},
        {R"(<update name="B" size="1" filename="b.dat" time="soon"/>)", "has \"soon\" for its time"},
        {R"(<update size="1" filename="b.dat" time="2026-01-03 10:00:00" execute="/x"/>)", "has no name"}};
    for (const auto& [offer, reason] : faults) {
        scratch.WriteFile("index.xml", "<updates>" + good + "\n" + offer + "</updates>");
        EXPECT_EQ(Run({"check", "@index.xml"}), MBuilderExitFailed) << reason;
        EXPECT_THAT(JoinComplaints(), HasSubstr(reason));
    }
}

TEST_F(UpdateServerTest, UpdatesCanBeLookedInto) {
    MakeUpdate("One.dat", 1, 2);
    EXPECT_EQ(Run({"check", "@updates/One.dat"}), 0) << JoinComplaints();
    ASSERT_EQ(Run({"inspect", "@updates/One.dat"}), 0) << JoinComplaints();
    for (const char* line :
         {"\nUpdate\n  name        One.dat\n", "  laid over   2026-01-01 10:00:00\n",
          "  01-A: 0 created, 1 updated, 0 deleted, 0 left\n    update  01-A/x\n", "  02-E: unchanged\n"})
        EXPECT_THAT(output.told, HasSubstr(line));

    MTestPayload payload(0);
    const std::string item = payload.Add("x");
    const std::pair<std::string, const char*> trees[] = {
        {"<file name=\"../x\" op=\"create\"" + item + "/>", "leads out of its directory"},
        {"<file name=\"\" op=\"create\"" + item + "/>", "has a file without a name"},
        {"<dir name=\"d\"><file name=\"x\" op=\"update\"/></dir>", "brings no content for \"x\""},
        {"<file name=\"x\"/>", "does not tell what becomes of \"x\""}};
    for (const auto& [files, reason] : trees) {
        scratch.WriteFile(
            "bad.dat", payload.Finish("<update><updateinformation name=\"N\" time=\"2026-01-01 10:00:00\"/>"
                                      "<files>" +
                                      files + "</files></update>"));
        for (const char* command : {"check", "verify"}) {
            EXPECT_EQ(Run({command, "@bad.dat"}), MBuilderExitFailed) << command << reason;
            EXPECT_THAT(JoinComplaints(), HasSubstr(reason)) << command;
        }
    }
}
