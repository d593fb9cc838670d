#include "tests/install/InstallFixture.h"

namespace {

const char* const Enabled = "<files enabled=\"1\" currentpath=\"{to}\" destination=\"x\"";

}  // namespace

TEST_F(InstallTest, WritesTreesByteForByte) {
    const std::string large(3 * 1048576 + 17, 'L');
    Define(std::string(Enabled) + "><dir name=\"Čeština\" op=\"create\">" + File("ž š.txt", "inner") +
           "<dir name=\"empty\" op=\"create\"/></dir>" + File("large.bin", large) + File("nothing", "") +
           "</files>");
    Perform();
    EXPECT_EQ(Read(MDecodeUTF8Exact("Čeština/ž š.txt")), "inner");
    EXPECT_TRUE(MFile::IsDirectory(MFile::Join(GetTarget(), MDecodeUTF8Exact("Čeština/empty"))));
    EXPECT_EQ(Read("large.bin"), large);
    EXPECT_EQ(Read("nothing"), "");
    EXPECT_EQ(processor->GetProgress().itemIndex, 3);
    EXPECT_EQ(processor->GetProgress().itemCount, 3);
    EXPECT_EQ(processor->GetProgress().doneBytes, processor->GetProgress().totalBytes);
}

TEST_F(InstallTest, DecidesByOperationAndRewritability) {
    for (const bool rewritable : {true, false}) {
        const std::string files = File("new", "shipped") + File("old", "shipped") +
                                  File("updated", "shipped", "update") + File("left", "shipped", "leave") +
                                  File("plain", "shipped", "") + File("deleted", "shipped", "delete") +
                                  File("my.presets.xml", "shipped");
        Define(std::string(Enabled) + " rewritable=\"" + (rewritable ? "1" : "0") + "\">" + files +
               "</files>");
        for (const char* name : {"old", "updated", "left", "deleted", "my.presets.xml"}) Put(name, "mine");
        if (Exists("new")) MFile::Delete(MFile::Join(GetTarget(), "new"));
        Perform();
        EXPECT_EQ(Read("new"), "shipped");
        EXPECT_EQ(Read("old"), rewritable ? "shipped" : "mine");
        EXPECT_EQ(Read("updated"), rewritable ? "shipped" : "mine");
        EXPECT_EQ(Read("my.presets.xml"), rewritable ? "shipped" : "mine");
        EXPECT_EQ(Read("left"), "mine");
        EXPECT_FALSE(Exists("plain"));
        EXPECT_EQ(Exists("deleted"), !rewritable);
    }
}

TEST_F(InstallTest, ProtectionIsInheritedAndCannotBeTurnedBackOn) {
    Define(std::string(Enabled) + " rewritable=\"0\"><dir name=\"d\" rewritable=\"1\" op=\"create\">" +
           File("f", "shipped") + "</dir></files>" + Enabled + "><dir name=\"e\" rewritable=\"0\">" +
           File("f", "shipped") + "</dir></files>");
    Put("d/f", "mine");
    Put("e/f", "mine");
    Perform();
    EXPECT_EQ(Read("d/f"), "mine");
    EXPECT_EQ(Read("e/f"), "mine");
}

TEST_F(InstallTest, CopiesFollowTheirOwnSwitchAndExtensions) {
    const std::string to = " destination=\"x\" currentpath=\"{to}/";
    Define("<files enabled=\"0\" path=\"bin/Time/X.dll\"" + to + "off\">" + "<copy enabled=\"1\"" + to +
           "vst3\"><extension src=\"DLL\" dst=\"vst3\"/></copy>" + "<copy enabled=\"0\"" + to + "no\"/>" +
           "<copy enabled=\"1\" windows=\"0\"" + to + "foreign\"/>" + "<copy enabled=\"1\"" + to +
           "(x86)\"><extension src=\"dll\" dst=\"aaxplugin\"/></copy>" + File("", "binary") + "</files>");
    Perform();
    EXPECT_EQ(Read("vst3/X.vst3"), "binary");
    EXPECT_EQ(Read("(x86)/X.aaxplugin/Contents/Win32/X.aaxplugin"), "binary");
    EXPECT_FALSE(Exists("off"));
    EXPECT_FALSE(Exists("no"));
    // Its directory is made while counting, and then nothing comes into it.
    EXPECT_TRUE(Exists("foreign"));
    EXPECT_FALSE(Exists("foreign/X.dll"));
}

TEST_F(InstallTest, BundlesAreWideOn64BitSystems) {
    folders.SetPath(MSpecialFolderProgramFiles, scratch.Join("Program Files (x86)"));
    Define("<files enabled=\"1\" destination=\"x\" currentpath=\"{to}\">" + File("X.aaxplugin", "binary") +
           "</files>");
    Perform();
    EXPECT_EQ(Read("X.aaxplugin/Contents/x64/X.aaxplugin"), "binary");
    Perform(MRunKind::Uninstall);
    EXPECT_FALSE(Exists("X.aaxplugin"));
}

TEST_F(InstallTest, FlattensDirectoriesButNotBundles) {
    const std::string tree = "<dir name=\"a\" op=\"create\"><dir name=\"b\">" + File("c.txt", "flat") +
                             "</dir></dir><dir name=\"x.vst\"><dir name=\"Contents\">" + File("y", "kept") +
                             "</dir></dir>" + "<dir name=\"z\">" + File("after", "flat") + "</dir>";
    Define(std::string(Enabled) + " ignoresubdirs=\"1\">" + tree + "</files>" +
           "<files enabled=\"1\" ignoresubdirs=\"1\" destination=\"x\" currentpath=\"{to}/v1.0\">" + tree +
           "</files>");
    Perform();
    EXPECT_EQ(Read("c.txt"), "flat");
    EXPECT_EQ(Read("x.vst/Contents/y"), "kept");
    EXPECT_EQ(Read("after"), "flat");
    EXPECT_FALSE(Exists("a"));
    EXPECT_EQ(Read("v1.0/a/b/c.txt"), "flat");
}

TEST_F(InstallTest, CreatesOnlyTheDirectoriesItIsTold) {
    const std::string to = " enabled=\"1\" destination=\"x\" currentpath=\"{to}/";
    Define("<files" + to + "made\"/><files createpath=\"0\"" + to + "unmade\"/>");
    Perform();
    EXPECT_TRUE(Exists("made"));
    EXPECT_FALSE(Exists("unmade"));
}

TEST_F(InstallTest, RefusesNamesThatLeadOutBeforeWritingAnything) {
    for (const char* name : {"../out", "a/../../out", "..", "/out", "\\out", "C:/out", "a\\..\\..\\out"}) {
        payload = MTestPayload(7);
        Define(std::string(Enabled) + ">" + File("first", "x") + "<dir name=\"d\">" + File(name, "x") +
               "</dir></files>");
        EXPECT_THROW(Perform(), MException) << name;
        EXPECT_FALSE(Exists("first")) << name;
        EXPECT_FALSE(MFile::Exists(scratch.Join("out"))) << name;
    }
    Define(std::string(Enabled) + ">" + File("..a..", "fine") + File("b/..c", "fine") + "</files>");
    Perform();
    EXPECT_EQ(Read("..a.."), "fine");
    EXPECT_EQ(Read("b/..c"), "fine");
}

TEST_F(InstallTest, LogTellsANewFileLineByLine) {
    Define(std::string(Enabled) + ">" + File("ž.txt", "12345") + "</files>");
    Perform();
    const std::string to = GetTarget().ToUTF8().Get();
    EXPECT_EQ(ReadLog(), "Performing installation\nInitiating install to " + to + "\nProcessing file \"" +
                             to + "/ž.txt\" operation create\nCreating directory " + to +
                             "\nFile exists = 0  rewritable = 1\nRewriting file " + to +
                             "/ž.txt\nFile successfuly created\nWriting file 5\nSuccess, closing the file\n");
}

TEST_F(InstallTest, RemovesWhatItInstalledAndCountsWhatItCannot) {
    Define(std::string(Enabled) + "><dir name=\"d\" op=\"create\">" + File("f", "x") + "</dir>" +
           File("g", "x") + "<dir name=\"kept\" uninstall=\"0\">" + File("h", "x") + "</dir></files>" +
           "<files enabled=\"1\" uninstall=\"0\" destination=\"x\" currentpath=\"{to}/stays\">" +
           File("i", "x") + "</files>");
    Perform();
    Put("d/user", "mine");
    Perform(MRunKind::Uninstall);
    EXPECT_FALSE(Exists("d/f"));
    EXPECT_FALSE(Exists("g"));
    EXPECT_EQ(Read("d/user"), "mine");
    EXPECT_EQ(Read("kept/h"), "x");
    EXPECT_EQ(Read("stays/i"), "x");
    // The user's directory, the protected directory and the target itself are not empty.
    EXPECT_EQ(processor->GetRemover().GetFailureCount(), 3);
}
