#include "foundation/files/MFile.h"
#include "tests/builder/UpdateFixture.h"
#include "tests/support/MTestPayload.h"

using UpdateTest = UpdateFixture;

namespace {

constexpr const char* Group = "<files name=\"A\" path=\"a\" destination=\"{main}\" required=\"1\"/>\n";

}  // namespace

TEST_F(UpdateTest, TellsWhatBecameOfEachFile) {
    const std::string plug = R"(<files name="P" path="bin/plug.dll" destination="{main}/P" required="1">)"
                             R"(<copy destination="{data}/V" required="1"><extension src="dll" dst="vst3"/>)"
                             "</copy></files>\n";
    const std::string quiet = R"(<files name="Q" path="q" destination="{main}/Q" required="1"/>)";
    WriteVersions(Group + plug + quiet,
                  {{"a/same", "s"},
                   {"a/size", "12"},
                   {"a/text", "12"},
                   {"a/gone", ""},
                   {"a/old/x/y", "y"},
                   {"a/Case", "c"},
                   {"a/Dir/f", "f"},
                   {"bin/plug.dll", "1"},
                   {"q/q", "q"}},
                  {{"a/same", "s"},
                   {"a/size", "123"},
                   {"a/text", "21"},
                   {"a/more/m", "m"},
                   {"a/case", "c"},
                   {"a/dir/f", "f"},
                   {"bin/plug.dll", "2"},
                   {"q/q", "q"}});
    ASSERT_EQ(Make("update"), 0) << JoinComplaints();
    EXPECT_EQ(Describe(),
              "delete:Case delete:Dir(delete:f) delete:gone delete:old(delete:x(delete:y)) create:case "
              "create:dir(create:f) create:more(create:m) leave:same update:size update:text\n"
              "update:plug.dll\n"
              "unchanged\n");
    // What is told is what was written, and contents come back whole.
    EXPECT_THAT(output.told, HasSubstr("3 created, 3 updated, 4 deleted, 1 left"));
    EXPECT_EQ(Run({"verify", "@update.dat"}), 0) << JoinComplaints();
    ASSERT_EQ(Run({"extract", "@update.dat", "--output", "@out"}), 0) << JoinComplaints();
    EXPECT_EQ(scratch.ReadFile("out/01-A/text"), "21");
    EXPECT_EQ(scratch.ReadFile("out/02-P/plug.dll"), "2");
    EXPECT_FALSE(MFile::Exists(scratch.Join("out/01-A/same")));
}

TEST_F(UpdateTest, EveryFormOfAVersionGivesTheSameBytes) {
    WriteVersions(Group, {{"a/x", std::string(200000, 'x')}, {"a/y", "y"}},
                  {{"a/x", std::string(200000, 'z')}, {"a/y", "y"}, {"a/z", std::string(200000, 'z')}});
    ASSERT_EQ(Make("update", {"--threads", "1"}), 0) << JoinComplaints();
    const std::string bytes = scratch.ReadFile("update.dat");
    const std::pair<const char*, std::vector<std::string>> forms[] = {
        {"p.run", {"--stub", "@stub", "--compression", "none"}},
        {"p.dat", {"--form", "dat", "--compression", "zlib"}},
        {"p.multi", {"--form", "multi", "--part-size", "64K"}}};
    for (const auto& [name, options] : forms) {
        for (const char* version : {"old", "new"}) {
            std::vector<std::string> words = {"pack", std::string("@") + version + "/product.xml", "--output",
                                              std::string("@") + version + "/" + name};
            words.insert(words.end(), options.begin(), options.end());
            ASSERT_EQ(Run(words), 0) << JoinComplaints();
        }
        ASSERT_EQ(
            Run({"update", std::string("@old/") + name, std::string("@new/") + name, "--output", "@again"}),
            0)
            << JoinComplaints();
        EXPECT_TRUE(scratch.ReadFile("again") == bytes) << name;
    }
    EXPECT_EQ(Run({"update", "@again", "@new/p.dat", "--output", "@out"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("is an update. Name the installers"));
    EXPECT_EQ(Run({"update", "@old/p.multi", "@new/p.dat", "--output", "@old/p.multi1.cab"}),
              MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("\" would replace \""));
}

// Files that move between groups, or that a flattened group brings from another directory, are never deleted
// behind the back of what brings them now. What belongs to the user is not deleted at all.
TEST_F(UpdateTest, DeletesNothingThatIsStillNeeded) {
    const std::string groups =
        R"(<files name="A" path="a" destination="{main}" required="1"/>)"
        R"(<files name="B" path="b" destination="{main}" required="1"/>)"
        R"(<files name="F" path="f" destination="{main}/F" ignoresubdirs="1" required="1"/>)"
        R"(<files name="U" path="u" destination="{main}/U" rewritable="0" required="1"/>)";
    WriteVersions(groups,
                  {{"a/keep", ""},
                   {"b/Sub/moved", "m"},
                   {"b/Sub/gone", ""},
                   {"b/x", ""},
                   {"f/z/flat", "1"},
                   {"f/z/went", ""},
                   {"u/d/preset", ""},
                   {"u/e", ""}},
                  {{"a/keep", ""}, {"a/sub/moved", "m"}, {"b/x", ""}, {"f/0/flat", "1"}, {"u/e", ""}});
    ASSERT_EQ(Make("update"), 0) << JoinComplaints();
    EXPECT_EQ(Describe(), "leave:keep create:sub(create:moved)\n"
                          "leave:Sub(delete:gone) leave:x\n"
                          "delete:z(delete:went) create:0(create:flat)\n"
                          "unchanged\n");
}

TEST_F(UpdateTest, RefusesWhatNoInstallationCouldTake) {
    const auto refuse = [&](const std::string& before, const std::string& after, const char* reason) {
        WriteVersion("old", OldTime, before, {{"a/x", "1"}});
        WriteVersion("new", NewTime, after, {{"a/x", "2"}});
        ExpectRefused("update", reason);
    };
    const std::string moved = R"(<files name="A" path="a" destination="{data}/T/x" required="1"/>)";
    const std::string kept = R"(<files name="A" path="a" destination="{main}" required="1" rewritable="0"/>)";
    const std::string copied = R"(<files name="A" path="a" destination="{main}" required="1"><copy )"
                               R"(destination="{data}/C" required="1"/></files>)";
    refuse(Group, moved, "files 1 (\"A\"): It goes to \"{data}/T/x\", and went to \"{main}\".");
    refuse(Group, kept, "files 1 (\"A\"): One of rewritable, ");
    refuse(Group, copied, "files 1 (\"A\"): It has 1 \"copy\" elements, and had 0.");
    refuse(Group, Group + moved, "has 1 \"files\" elements, and the newer one 2.");
    refuse(Group, "<nonsense", "Nothing was written.");

    const std::string twice = R"(<files name="C" path="c" destination="{main}" required="1"><copy )"
                              R"(destination="{data}/C" required="1"/></files>)";
    WriteVersions(Group + twice, {{"a/x", "1"}, {"c/y", ""}, {"c/moves", ""}},
                  {{"a/x", "1"}, {"c/y", ""}, {"a/moves", ""}});
    ExpectRefused("update", "\"moves\" is no longer in \"C\", and another group");
    MFile::Delete(scratch.Join("new/a/moves"));
    WriteVersions(Group, {}, {});
    ExpectRefused("update", "install the same files.");
    MFile::DeleteTree(scratch.Join("new/a"));
    scratch.WriteFile("new/a/x/y", "");
    MFile::Rename(scratch.Join("old/a/x"), scratch.Join("old/a/X"));
    ExpectRefused("update", "\"x\" was a file and is a directory.");
}

TEST_F(UpdateTest, TheOfferTellsWhatUsersSee) {
    WriteVersions(Group, {{"a/x", "1"}}, {{"a/x", "2"}});
    ASSERT_EQ(Make("update", {"--stub", "@stub", "--name", "Eight & one", "--description", "<b>New</b>",
                              "--showinfo", "Read!", "--execute", "updatesetup.exe", "--restart"}),
              0)
        << JoinComplaints();
    EXPECT_THAT(scratch.ReadFile("update.dat"), StartsWith("MZ this is the program"));
    {
        MPayloadFile file(scratch.Join("update.dat"));
        const MXMLItem& item = *file.GetLibrary().GetSubItem("updateinformation");
        EXPECT_EQ(Text(item.GetValue()), "<b>New</b>");
        const std::pair<const char*, const char*> attributes[] = {
            {"name", "Eight & one"},
            {"time", NewTime},
            {"basetime", OldTime},
            {"showinfo", "Read!"},
            {"execute", "updatesetup.exe"},
            {"restart", "1"},
            {"installationname", "Corvanth Tamborel 8"}};
        for (const auto& [name, value] : attributes) EXPECT_EQ(Text(item.GetAttribute(name)), value) << name;
        EXPECT_EQ(item.GetAttributes().GetCount(), 7);
    }

    MFile::Delete(scratch.Join("update.dat"));
    for (const auto& [time, reason] : {std::pair(OldTime, "is not later than"),
                                       {"tomorrow", "has \"tomorrow\" for"},
                                       {"2026-02-30 10:00:00", "for its time"}})
        ExpectRefused("update", reason, {"--time", time});
    ExpectRefused("update", "leads out of its directory", {"--execute", "../evil.exe"});
    WriteVersion("old", "soon", Group, {{"a/x", "1"}});
    ExpectRefused("update", "has \"soon\" for its time");
}

TEST_F(UpdateTest, PackagesFillWhatIsEmpty) {
    const std::string empty = R"(<files name="Piano" destination="{main}" required="1" createpath="0"/>)";
    const std::string filled =
        R"(<files name="Piano" path="piano" destination="{main}" required="1" createpath="0"/>)";
    WriteVersion("old", OldTime, Group + empty, {{"a/x", "1"}});
    WriteVersion("new", OldTime, Group + filled, {{"a/x", "1"}, {"piano/Piano/a.wav", "~"}});
    ASSERT_EQ(Make("package"), 0) << JoinComplaints();
    EXPECT_EQ(Describe(), "unchanged\ncreate:Piano(create:a.wav)\n");
    // Without the product's own files it is the same.
    const std::string bytes = scratch.ReadFile("update.dat");
    WriteVersion("new", OldTime, R"(<files name="A" destination="{main}" required="1"/>)" + filled, {});
    ASSERT_EQ(Make("package"), 0) << JoinComplaints();
    EXPECT_TRUE(scratch.ReadFile("update.dat") == bytes);

    MFile::Delete(scratch.Join("update.dat"));
    WriteVersion("new", OldTime, Group + filled, {{"a/x", "2"}});
    ExpectRefused("package", "files 1 (\"A\"): A package fills only what the product leaves empty");
}

// Programs of another maker's tool wrote such payloads: the destination is the file.
TEST_F(UpdateTest, DestinationsThatNameAFileAreCut) {
    const auto write = [&](const char* name, const std::string& time, const std::string& destination,
                           const std::string& content) {
        MTestPayload payload(0);
        const std::string item = payload.Add(content);
        scratch.WriteFile(name,
                          payload.Finish("<install name=\"T\" time=\"" + time + "\"><files destination=\"" +
                                         destination + "\"><file name=\"\" op=\"create\"" + item +
                                         "/></files></install>"));
    };
    write("old.dat", OldTime, "{main}/bin/plug.dll", "1");
    write("new.dat", NewTime, "{main}/bin/plug.dll", "2");
    ASSERT_EQ(Run({"update", "@old.dat", "@new.dat", "--output", "@update.dat"}), 0) << JoinComplaints();
    EXPECT_EQ(Describe(), "update:plug.dll\n");
    MPayloadFile file(scratch.Join("update.dat"));
    EXPECT_EQ(file.GetLibrary().GetSubItem("files")->GetInt32Attribute("removelastfilefrompath"), 1);

    // The newer version may already go to the directory.
    MTestPayload payload(0);
    const std::string item = payload.Add("2");
    scratch.WriteFile("new.dat",
                      payload.Finish(std::string("<install name=\"T\" time=\"") + NewTime +
                                     "\"><files destination=\"{main}/bin\"><file name=\"plug.dll\" "
                                     "op=\"create\"" +
                                     item + "/></files></install>"));
    ASSERT_EQ(Run({"update", "@old.dat", "@new.dat", "--output", "@again.dat"}), 0) << JoinComplaints();
    EXPECT_EQ(Describe("again.dat"), "update:plug.dll\n");

    // It would be cut again by the next update, or not at all.
    for (const char* destination : {"{main}/T 8.1/plug.dll", "{main}/bin/plug"}) {
        write("old.dat", OldTime, destination, "1");
        write("new.dat", NewTime, destination, "2");
        EXPECT_EQ(Run({"update", "@old.dat", "@new.dat", "--output", "@out.dat"}), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), HasSubstr("names a file, and no update can go there"));
    }
}
