#include "tests/install/InstallFixture.h"

TEST_F(InstallTest, WritesTreesByteForByte) {
    const std::string large(3 * 1048576 + 17, 'L');
    Define(Files("", "<dir name=\"Čeština\" op=\"create\">" + File("ž š.txt", "inner") +
                         "<dir name=\"empty\" op=\"create\"/></dir>" + File("large.bin", large) +
                         File("nothing", "")));
    Perform();
    EXPECT_EQ(Read(MDecodeUTF8Exact("Čeština/ž š.txt")), "inner");
    EXPECT_TRUE(MFile::IsDirectory(InTarget(MDecodeUTF8Exact("Čeština/empty"))));
    EXPECT_EQ(Read("large.bin"), large);
    EXPECT_EQ(Read("nothing"), "");
}

TEST_F(InstallTest, DecidesByOperationAndRewritability) {
    for (const bool rewritable : {true, false}) {
        // Protection is inherited and cannot be turned back on.
        const std::string files = File("new", "shipped") + File("old", "shipped") +
                                  File("updated", "shipped", "update") + File("left", "shipped", "leave") +
                                  File("plain", "shipped", "") + File("deleted", "shipped", "delete") +
                                  "<dir name=\"d\" rewritable=\"1\">" + File("my.presets.xml", "shipped") +
                                  "</dir><dir name=\"e\" rewritable=\"0\">" + File("old", "shipped") +
                                  "</dir>";
        Define(Files("", files, rewritable ? "" : "rewritable=\"0\""));
        for (const char* name : {"old", "updated", "left", "deleted", "d/my.presets.xml", "e/old"})
            Put(name, "mine");
        if (Exists("new")) MFile::Delete(InTarget("new"));
        Perform();
        EXPECT_EQ(Read("new"), "shipped");
        for (const char* name : {"old", "updated", "d/my.presets.xml"})
            EXPECT_EQ(Read(name), rewritable ? "shipped" : "mine") << name;
        for (const char* name : {"left", "e/old"}) EXPECT_EQ(Read(name), "mine") << name;
        EXPECT_FALSE(Exists("plain"));
        EXPECT_EQ(Exists("deleted"), !rewritable);
        EXPECT_EQ(processor->GetProgress().itemCount, 7) << "all but the one to be left";
        EXPECT_EQ(processor->GetProgress().totalBytes, 5 * 7) << "what is created or updated";
    }
}

TEST_F(InstallTest, CopiesFollowTheirOwnSwitchAndExtensions) {
    folders.SetPath(MSpecialFolderProgramFiles, scratch.Join("Program Files (x86)"));
    Define(R"(<files enabled="0" path="bin/Time/X.dll" currentpath="{to}/off">)"
           R"(<copy enabled="1" currentpath="{to}/vst3"><extension src="DLL" dst="vst3"/></copy>)"
           R"(<copy enabled="0" currentpath="{to}/no"/>)"
           R"(<copy enabled="1" windows="0" currentpath="{to}/foreign"/>)"
           "<copy enabled=\"1\" currentpath=\"{to}/(x86)\"><extension src=\"dll\" dst=\"aaxplugin\"/></copy>"
           R"(<copy enabled="1" currentpath="{to}/wide"><extension src="dll" dst="AAXplugin"/></copy>)" +
           File("", "binary") + "</files>" + Files("/unmade", "", "createpath=\"0\""));
    Perform();
    EXPECT_EQ(Read("vst3/X.vst3"), "binary");
    // The architecture of a bundle is told by the paths.
    EXPECT_EQ(Read("(x86)/X.aaxplugin/Contents/Win32/X.aaxplugin"), "binary");
    EXPECT_EQ(Read("wide/X.AAXplugin/Contents/x64/X.AAXplugin"), "binary");
    for (const char* name : {"off", "no", "unmade"}) EXPECT_FALSE(Exists(name)) << name;
    // Its directory is made while counting, and then nothing comes into it.
    EXPECT_TRUE(MFile::GetFileList(InTarget("foreign")).IsEmpty());
    EXPECT_EQ(processor->GetProgress().itemCount, 3);
    EXPECT_EQ(processor->GetProgress().doneBytes, processor->GetProgress().totalBytes);
    Perform(MRunKind::Uninstall);
    EXPECT_FALSE(Exists("wide"));
}

TEST_F(InstallTest, FlattensDirectoriesButNotBundles) {
    const std::string tree = "<dir name=\"a\" op=\"create\"><dir name=\"b\">" + File("c.txt", "flat") +
                             "</dir></dir><dir name=\"x.vst\"><dir name=\"Contents\">" + File("y", "kept") +
                             "</dir></dir>" + "<dir name=\"z\">" + File("after", "flat") + "</dir>";
    Define(Files("", tree, "ignoresubdirs=\"1\"") + Files("/v1.0", tree, "ignoresubdirs=\"1\""));
    Perform();
    EXPECT_EQ(Read("c.txt"), "flat");
    EXPECT_EQ(Read("x.vst/Contents/y"), "kept");
    EXPECT_EQ(Read("after"), "flat");
    EXPECT_FALSE(Exists("a"));
    EXPECT_EQ(Read("v1.0/a/b/c.txt"), "flat");
}

TEST_F(InstallTest, RefusesNamesThatLeadOutBeforeWritingAnything) {
    // The names that a path, or the extension of a copy, makes.
    std::vector<std::string> items = {
        R"(<dir name="d" path="x/.."><dir/></dir>)",
        R"(<dir name="d" path=".."><dir path=".."><dir path=".."><file op="create"/></dir></dir></dir>)",
        R"(<file name="..dll"/><copy><extension src="dll" dst=""/></copy>)",
    };
    for (const char* extension : {".", "./", "./out", "a/../../out", "a\\..\\..\\out"})
        items.push_back(R"(<dir name=".dll"/><copy><extension src="dll" dst=")" + std::string(extension) +
                        "\"/></copy>");
    for (const char* name : {"../out", "a/../../out", "..", ".. ", "... ", "/out", "\\out", "C:/out",
                             "a\\..\\..\\out", "a:b", "d/NUL", "com1 .txt"}) {
        items.push_back("<dir name=\"d\">" + File(name, "x") + "</dir>");
        items.push_back("<dir name=\"" + std::string(name) + "\"/>");
        items.push_back("<shortcutdirectory name=\"s\"><shortcut name=\"" + std::string(name) +
                        "\"/></shortcutdirectory>");
    }
    for (const std::string& item : items) {
        const bool isLink = item.starts_with("<shortcut");
        Define(Files("", File("first", "x") + (isLink ? "" : item)) + (isLink ? item : ""));
        EXPECT_THROW(Perform(), MException) << item;
        EXPECT_FALSE(Exists("first")) << item;
    }
    Define(Files("",
                 File("..a..", "fine") + File("./b/..c", "fine") + File("b\\d", "fine") + File("", "fine"),
                 R"(path="x/..\e")"));
    Perform();
    for (const char* name : {"..a..", "b/..c", "b/d", "e"}) EXPECT_EQ(Read(name), "fine") << name;
}

TEST_F(InstallTest, LogTellsANewFileLineByLine) {
    Define(Files("", File("ž.txt", "12345")));
    Perform();
    EXPECT_EQ(ReadLog(), Place("Performing installation\nInitiating install to {to}\n"
                               "Processing file \"{to}/ž.txt\" operation create\nCreating directory {to}\n"
                               "File exists = 0  rewritable = 1\nRewriting file {to}/ž.txt\n"
                               "File successfuly created\nWriting file 5\nSuccess, closing the file\n"));
}

TEST_F(InstallTest, CountsWhatItPutsWhere) {
    const std::string copy = "<copy name=\"Copy\" enabled=\"1\" currentpath=\"{to}/b\"/><copy enabled=\"1\" "
                             "currentpath=\"{to}/a\"/>";
    Define(
        Files("/a", File("1", "x") + "<dir name=\"d\">" + File("2", "x") + "</dir>" + copy, "name=\"One\"") +
        Files("/a", File("3", "x") + File("kept", "x", "leave"), "name=\"ONE\"") +
        Files("/c", File("gone", "x", "delete"), "name=\"None\"") + Files("/c", File("4", "x")) +
        Files("/c", File("5", "x") + R"(<file name="6" op="create" filestart="0" filesize="50000"/>)"));
    EXPECT_THROW(Perform(), MException);
    std::string parts;
    for (const MInstalledPart& part : processor->GetProgress().installed.GetParts())
        parts +=
            Text(MFormat("{0}: {1} in {2}; ", part.name, part.fileCount, MFile::GetFileName(part.folder)));
    EXPECT_EQ(parts, "One: 5 in a; Copy: 2 in b; Test: 2 in c; ");
}
