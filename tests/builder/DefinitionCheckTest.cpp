#include "builder/checks/MFileNameRules.h"
#include "builder/definition/MDefinitionText.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/builder/BuilderFixture.h"
#include "tests/support/MTestKey.h"

namespace {

class DefinitionCheckTest : public BuilderFixture {
protected:
    /// What `check` finds, without the file's path: "12: error: ...".
    std::vector<std::string> Check(const std::string& definition) {
        scratch.WriteFile("product.xml", definition);
        exitCode = Run({"check", "@product.xml"});
        const size_t prefix = Text(scratch.Join("product.xml")).size() + 1;
        std::vector<std::string> found;
        for (const std::string& line : output.complaints) found.push_back(line.substr(prefix));
        return found;
    }

    /// The complaints about one file for each of two groups.
    std::vector<std::string> CheckGroups(const std::string& first, const std::string& second) {
        scratch.WriteFile("one/A.dll", "1");
        scratch.WriteFile("two/a.DLL", "2");
        return Check(MakeDefinition(
            "<configuration id=\"x\" name=\"X\"/><configuration id=\"y\" name=\"Y\"/>\n<files name=\"F\" path=\"one\" " +
            first + "</files>\n<files name=\"S\" path=\"two\" " + second + "</files>\n"));
    }

    int32_t exitCode = -1;
};

}  // namespace

TEST_F(DefinitionCheckTest, TellsAllProblemsAtOnceInOrderOfLines) {
    scratch.WriteFile("Presets/a.xml", "a");
    const std::vector<std::string> found =
        Check("<?xml version=\"1.0\"?>\n"
              "<install id=\"X\">\n"
              "<licence name=\"none.txt\"/>\n"
              "<colour/>\n"
              "<configuration id=\"full\" name=\"Full\" x64=\"yes\"/>\n"
              "<directory id=\"vst\" name=\"V\" default=\"{nowhere}/x\"/>\n"
              "<directory id=\"v2\" name=\"V\" default=\"{vst}/x\"/>\n"
              "<files path=\"Presets\" destination=\"{userdata}/P\"/>\n"
              "<files name=\"A\" path=\"Presets\"\n"
              "  destination=\"{vst}/a\" configurations=\"full,half\"/>\n"
              "<files name=\"{{WHO}}\" destination=\"{data64}/b\">\n"
              "  <dir><file name=\"gone.dll\"/></dir>\n"
              "</files>\n"
              "<shortcut name=\"S\" preset=\"instal\"/>\n"
              "<onsuccess><execute/></onsuccess><onerror/>\n"
              "</install>\n");
    EXPECT_THAT(found,
                ElementsAre(StartsWith("2: error: \"install\" lacks the attribute \"name\"."),
                            StartsWith("2: error: The page \"onabort\" is missing."),
                            HasSubstr("none.txt\" does not exist."),
                            StartsWith("4: warning: Nothing reads an element \"colour\" here."),
                            StartsWith("5: warning: \"x64\" is \"yes\""),
                            StartsWith("6: error: Nothing defines {nowhere}."),
                            StartsWith("7: error: {vst} is not known yet here"),
                            StartsWith("8: error: \"files\" lacks the attribute \"name\"."),
                            StartsWith("9: error: There is no configuration \"half\"."),
                            StartsWith("11: error: Nothing fills {{WHO}}. Add --define WHO=TEXT."),
                            StartsWith("11: warning: {data64} exists only in a configuration with x64"),
                            HasSubstr("gone.dll\" does not exist."),
                            StartsWith("12: error: \"dir\" lacks the attribute \"name\"."),
                            StartsWith("14: error: There is no preset \"instal\"."),
                            StartsWith("15: error: \"execute\" lacks the attribute \"destination\".")));
    EXPECT_EQ(exitCode, MBuilderExitFailed);
}

TEST_F(DefinitionCheckTest, EveryScaleHasOnePicture) {
    scratch.WriteFile("a.png", "a");
    EXPECT_THAT(Check(MakeDefinition("<leftimage name=\"a.png\">\n<scaled percent=\"200\" name=\"a.png\"/>\n"
                                     "<scaled percent=\"2x\" name=\"a.png\"/>\n"
                                     "<scaled percent=\"200\" name=\"b.png\"/>\n<scaled/></leftimage>\n")),
                ElementsAre(StartsWith("4: error: There is no scale of \"2x\" percent."),
                            HasSubstr("b.png\" does not exist."),
                            StartsWith("5: warning: There is a picture for 200 percent already"),
                            StartsWith("6: error: \"scaled\" lacks the attribute \"percent\"."),
                            StartsWith("6: error: \"scaled\" lacks the attribute \"name\".")));
}

TEST_F(DefinitionCheckTest, ProductsWithUpdatesNeedATime) {
    const auto check = [this](const std::string& attributes) {
        std::string definition = MakeDefinition("");
        definition.insert(definition.find('>'), attributes);
        return Check(definition);
    };
    for (const char* asking : {" updateaddress=\"a.example\"", " update=\"1\""}) {
        EXPECT_THAT(check(asking), ElementsAre(StartsWith("1: warning: The \"time\" is \"\", so")));
        EXPECT_THAT(check(asking + std::string(" time=\"2026-02-28 10:00:00\"")), IsEmpty());
    }
    EXPECT_THAT(check(" time=\"soon\""), IsEmpty());
}

TEST_F(DefinitionCheckTest, UpdateKeysCanBeRead) {
    const auto check = [this](const std::string& key) {
        std::string definition = MakeDefinition("");
        definition.insert(definition.find('>'), " updatekey=\"" + key + "\"");
        return Check(definition);
    };
    EXPECT_THAT(check(MTestPublicKey), IsEmpty());
    EXPECT_THAT(check("public.pem"), ElementsAre(StartsWith("1: error: The \"updatekey\" cannot be used")));
}

TEST_F(DefinitionCheckTest, PresetFilesWantToBeProtected) {
    scratch.WriteFile("data/sub/Setpresets.xml", "<Set/>");
    const auto check = [this](const char* attributes) {
        return Check(MakeDefinition(std::string("<files name=\"F\" path=\"data\" destination=\"{data}\" ") +
                                    attributes + "/>\n"));
    };
    EXPECT_THAT(check(""),
                ElementsAre(StartsWith("2: warning: The preset file \"Setpresets.xml\" is replaced")));
    EXPECT_EQ(exitCode, MBuilderExitDone) << "a warning alone is no failure";
    EXPECT_THAT(check("rewritable=\"0\""), IsEmpty());
}

TEST_F(DefinitionCheckTest, MalformedXMLHasItsLine) {
    EXPECT_THAT(Check("<install name=\"a\">\n<files>\n</copy></install>"),
                ElementsAre(StartsWith("3: error: Invalid file contents. Invalid closing element name.")));
    EXPECT_THAT(Check(""), ElementsAre(StartsWith("1: error: The XML does not contain any elements.")));
    EXPECT_EQ(exitCode, MBuilderExitFailed);
}

TEST_F(DefinitionCheckTest, NamesThatSomePlatformRefuses) {
    scratch.WriteFile("x", "x");
    const auto check = [this](const std::string& name) {
        return Check(MakeDefinition("<files name=\"F\" destination=\"{data}\"><file op=\"delete\" name=\"" +
                                    name + "\"/></files>\n"));
    };
    for (const char* name :
         {"../x", "a/../../x", "/x", "C:/x", "CON", "con.txt", "nul .txt", "Lpt9.dll", "COM\xC2\xB2", "a.",
          "a ", "a&lt;b", "a|b", "a\\b", "a?", "a\x01", "..", "... ", "a:b"})
        EXPECT_THAT(check(name), ElementsAre(StartsWith("2: error: The name \""))) << name;
    for (const char* name : {"console", "COM10", "com", ".hidden", "a/b.c", "C\xC3\x93N", "\xF0\x9F\x98\x80"})
        EXPECT_THAT(check(name), IsEmpty()) << name;
    // Names as they come out in the end.
    const auto checkItems = [this](const std::string& items) {
        return Check(MakeDefinition("<files name=\"F\" destination=\"{data}\">" + items + "</files>\n"));
    };
    EXPECT_THAT(checkItems("<dir name=\"d\" path=\"x/..\">\n<dir name=\"\"/></dir>"),
                ElementsAre(HasSubstr("3: error: The name \"..\", which comes from a \"path\"")));
    EXPECT_THAT(checkItems("<dir name=\"d\">\n<file op=\"delete\" name=\".a\"/></dir>"
                           "<copy destination=\"{user}\"><extension src=\"a\" dst=\"./b\"/></copy>"),
                ElementsAre(HasSubstr("3: error: The name \"../b\", which comes from")));
}

/// Whatever passes comes back from the payload as it was.
TEST_F(DefinitionCheckTest, NamesThatXMLLosesOrThatAreNoUnicode) {
    MXMLItem names("names");
    for (char16_t unit = 1; unit != 0; ++unit) {
        MString name = "a b";
        name.SetChar(1, unit);
        if (MFileNameRules::FindFault(name).IsEmpty()) names.AddSubItem("name")->SetAttribute("name", name);
    }
    EXPECT_GT(names.GetSubItemCount(), 63000);
    const std::string text = MGetDefinitionText(names);
    MMemoryStream stream(text.data(), static_cast<int32_t>(text.size()));
    MXMLItem loaded;
    loaded.Load(stream);
    for (int32_t i = 0; i < names.GetSubItemCount(); ++i) {
        const MString name = names.GetSubItem(i)->GetAttribute("name");
        EXPECT_TRUE(loaded.GetSubItem(i)->GetAttribute("name").IsExactly(name)) << static_cast<int>(name[1]);
    }
    for (const MString& name : {Name("a\xFF"), Name("\xF0\x9F\x98"), Name("\xC3(.txt"), Wide(u"\xD83D.txt")})
        EXPECT_EQ(Text(MFileNameRules::FindFault(name)), "is no valid Unicode");
}

TEST_F(DefinitionCheckTest, NamesAndPathsThatAreTooLong) {
    const auto check = [this](const std::string& element, size_t length, const char* letter) {
        std::string name;
        while (name.size() < length) name += letter;
        const std::string item = "<" + element + " op=\"delete\" preset=\"update\" name=\"" + name + "\"/>";
        const bool isLink = element == "shortcut";
        return Check(MakeDefinition("<files name=\"F\" linux=\"1\" windows=\"0\" destination=\"{data}\">" +
                                    (isLink ? "<file name=\"a\" op=\"leave\"/>" : item) + "</files>\n" +
                                    (isLink ? item : "")));
    };
    const std::pair<const char*, size_t> limits[] = {{"dir", 255}, {"file", 244}, {"shortcut", 247}};
    for (const auto& [element, limit] : limits) {
        EXPECT_THAT(check(element, limit, "n"), IsEmpty());
        const std::string fault = "is longer than " + std::to_string(limit) + " bytes of UTF-8";
        EXPECT_THAT(check(element, limit + 1, "n"), ElementsAre(HasSubstr(fault)));
        EXPECT_THAT(check(element, limit + 1, "\xE2\x82\xAC"), ElementsAre(HasSubstr(fault)));
    }
    const auto checkPath = [this](size_t length) {
        return Check(MakeDefinition("<files name=\"F\" destination=\"{main}/12\">\n<dir name=\"" +
                                    std::string(length, 'd') +
                                    "\"><dir name=\"s\" op=\"create\"/></dir></files>\n"));
    };
    EXPECT_THAT(checkPath(211), IsEmpty());
    EXPECT_THAT(checkPath(212), ElementsAre(HasSubstr("will have about 260 characters on Windows")));
}

TEST_F(DefinitionCheckTest, ProductsThatShareTheirMainDirectory) {
    const auto check = [this](const std::string& directories) {
        return Check("<install name=\"T\">\n" + directories +
                     "<files name=\"F\" destination=\"{data}/x\"><file name=\"a\" op=\"leave\"/></files>"
                     "<onsuccess/><onerror/><onabort/></install>");
    };
    const auto make = [](const std::string& attributes, const std::string& fallBack = "{data}/T") {
        return "<directory id=\"d" + attributes.substr(0, 1) + "\" name=\"D\" " + attributes + "><default>" +
               fallBack + "</default></directory>\n";
    };
    const std::string own = make("default=\"{data}/T\"");
    const std::string remembered = make("StoreSystemDefaults=\"1\" default=\"{data}/T\"");
    EXPECT_THAT(check(own + remembered), IsEmpty());
    EXPECT_THAT(check(remembered + own),
                ElementsAre(HasSubstr("2: warning: The first directory is remembered")));
    for (const std::string& bare : {make("default=\"{data}\\\""), make("default=\"{data}/T\"", "{user}")})
        EXPECT_THAT(check(bare), ElementsAre(HasSubstr("2: warning: The first directory may be \"{")));
    EXPECT_THAT(check(""), ElementsAre(HasSubstr("1: warning: There are installations without")));
    EXPECT_THAT(check(make("x64=\"1\" default=\"{data}/T\"")),
                ElementsAre(HasSubstr("1: warning: There are installations without")));
    // Each platform has its own first one.
    EXPECT_THAT(check(make("linux=\"0\" default=\"{data}/T\"") + remembered),
                ElementsAre(HasSubstr("3: warning: The first directory is remembered")));
}

TEST_F(DefinitionCheckTest, TwoFilesForOneDestination) {
    const struct {
        const char* first;
        const char* second;
        bool isClash;
    } cases[] = {
        {"destination=\"{data}/P\">", "destination=\"{data}/p\">", true},
        {"destination=\"{data}/P\">", "destination=\"{data}/q\">", false},
        // Files that are never installed together.
        {"destination=\"{data}\" configurations=\"x\">", "destination=\"{data}\" configurations=\"y\">",
         false},
        {"destination=\"{data}\" configurations=\"x\">", "destination=\"{data}\" configurations=\"y,x\">",
         true},
        {"destination=\"{data}\" windows=\"0\" linux=\"1\">", "destination=\"{data}\" linux=\"0\">", false},
        // A copy, and one whose files get other extensions.
        {"destination=\"{data}\"><copy destination=\"{user}\"/>", "destination=\"{user}\">", true},
        {"destination=\"{data}\"><copy destination=\"{user}\"><extension src=\"dll\" dst=\"vst3\"/></copy>",
         "destination=\"{user}\">", false},
    };
    for (const auto& [first, second, isClash] : cases) {
        const std::vector<std::string> found = CheckGroups(first, second);
        EXPECT_EQ(found.size(), isClash ? 1u : 0u) << first << second;
        for (const std::string& line : found) EXPECT_THAT(line, HasSubstr("Two items would become"));
    }
}

TEST_F(DefinitionCheckTest, WhatTheInstallerNeedsInTheFirstDirectoryIsNoProductsFile) {
    for (const char* name : {"a/Setup.dat", "b/setup.lock", "setup.exe", "setup.run"})
        scratch.WriteFile("files/" + MString(name), "x");
    const auto check = [this](const std::string& destination, const std::string& attributes) {
        return Check(MakeDefinition("<directory id=\"e\" name=\"E\" default=\"{user}/P\"/>\n"
                                    "<files name=\"F\" path=\"files\" destination=\"" +
                                    destination + "\" " + attributes + "/>\n"));
    };
    EXPECT_THAT(check("{Main}", "ignoresubdirs=\"1\" linux=\"0\""),
                ElementsAre(HasSubstr("\"{Main}/Setup.dat\" is a name of the installer's own"),
                            HasSubstr("{Main}/setup.lock\""), HasSubstr("{Main}/setup.exe\"")));
    EXPECT_THAT(check("{main}", ""),
                ElementsAre(HasSubstr("{main}/setup.exe\""), HasSubstr("{main}/setup.run\"")));
    for (const char* destination : {"{e}", "{main}/sub"}) EXPECT_THAT(check(destination, ""), IsEmpty());
}

TEST_F(DefinitionCheckTest, PathsThatBeginWithoutAMacro) {
    scratch.WriteFile("files/a", "x");
    for (const char* path : {"folder", "{data", "/opt/{data}", ""})
        EXPECT_THAT(
            Check(MakeDefinition(std::string("<directory id=\"d\" name=\"D\" default=\"") + path +
                                 "\"/>\n<files name=\"F\" path=\"files\" destination=\"" + path + "\"/>\n")),
            ElementsAre(StartsWith("2: warning: The default \""),
                        StartsWith("3: warning: The destination \"")));
}

TEST_F(DefinitionCheckTest, IdsOfOnePlatformAreUnique) {
    const auto check = [this](const std::string& attributes) {
        return Check(
            MakeDefinition("<directory id=\"d\" name=\"D\" default=\"{data}\" windows=\"0\" linux=\"1\"/>\n"
                           "<directory id=\"D\" name=\"D\" default=\"{user}\" " +
                           attributes + "/>\n"));
    };
    EXPECT_THAT(check("windows=\"1\" linux=\"0\""), IsEmpty());
    EXPECT_THAT(check("x64=\"1\""), IsEmpty());
    EXPECT_THAT(check(""), ElementsAre(StartsWith("3: warning: The id \"D\" was given before, in line 2.")));
}

TEST_F(DefinitionCheckTest, FlattenedFilesMeet) {
    scratch.WriteFile("deep/a/x.txt", "1");
    scratch.WriteFile("deep/b/x.txt", "2");
    scratch.WriteFile("deep/c.bundle/x.txt", "3");
    const auto check = [this](const char* flat) {
        return Check(MakeDefinition(
            std::string("<files name=\"F\" path=\"deep\" destination=\"{data}\" ignoresubdirs=\"") + flat +
            "\"/>\n"));
    };
    EXPECT_THAT(check("0"), IsEmpty());
    EXPECT_THAT(check("1"), ElementsAre(HasSubstr("\"{data}/x.txt\"")));
}
