#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestDesktop.h"

#include <sys/stat.h>
#include <tuple>

namespace {

/// Links as a desktop sees them: its validator reads them, and its launcher starts them.
class MFileLinkPosix : public testing::Test {
protected:
    ~MFileLinkPosix() noexcept override = default;

    [[nodiscard]] std::string Path(const MString& name) const { return Text(scratch.Join(name)); }
    [[nodiscard]] MString WriteProgram(const MString& name) const {
        desktop.WriteRecorder(scratch.Join(name));
        return scratch.Join(name);
    }

    MScratch scratch;
    MTestDesktop desktop{scratch.GetPath(), false};
};

TEST_F(MFileLinkPosix, ProgramsOfAnyNameAreStartedWithTheirArguments) {
    const char* const cases[][3] = {
        {"plain/tool", "", ""},
        {"plain/tool", "uninstall", "[uninstall]\n"},
        {"a b/\xC5\x99 'tool'.run", "  --mode  fast\t", "[--mode]\n[fast]\n"},
        {"$HOME/`id`\\\"q\"", "$HOME `id` 'a b'", "[$HOME]\n[`id`]\n['a]\n[b']\n"},
        {"100%/50%u.run", "50% %f %%", "[50%]\n[%f]\n[%%]\n"},
        {"a=b/c=d", "e=f", "[e=f]\n"},
        {"semi;colon/&|<>*?#()~!", "a;b & c|d > e", "[a;b]\n[&]\n[c|d]\n[>]\n[e]\n"},
        {"plain/line\nbreak\ttab", "a\nb", "[a\nb]\n"},
        // Quotation marks and backslashes as Windows reads them.
        {"plain/tool", "\"two words\" \"\" a\"b c\"d", "[two words]\n[]\n[ab cd]\n"},
        {"plain/tool", "C:\\dir\\ \"C:\\a b\\\\\" \\\"x\\\" \\\\\\\"y",
         "[C:\\dir\\]\n[C:\\a b\\]\n[\"x\"]\n[\\\"y]\n"}};
    const MString link = scratch.Join("Entry");
    for (const auto& [target, arguments, expected] : cases) {
        SCOPED_TRACE(std::string(target) + " | " + arguments);
        const MString program = WriteProgram(MDecodeUTF8Exact(target));
        MFile::CreateLink(link, program, MDecodeUTF8Exact(arguments), "Starts the program");
        EXPECT_EQ(desktop.Validate(scratch.Join("Entry.desktop")), "");
        EXPECT_EQ(desktop.Launch(scratch.Join("Entry.desktop")),
                  Text(MFile::GetDirectory(program)) + "\n" + expected);
        EXPECT_EQ(Text(MFile::GetLinkDirectory(scratch.Join("Entry.desktop"))),
                  Text(MFile::GetDirectory(program)));
    }
}

TEST_F(MFileLinkPosix, EverythingElseIsOpenedWithTheProgramThatIsThereForIt) {
    scratch.WriteFile("docs/read me 50% $x=1.txt", "text");
    const MString link = scratch.Join("Entry");
    for (const char* target : {"docs/read me 50% $x=1.txt", "docs"}) {
        MFile::CreateLink(link, scratch.Join(target), "ignored", "");
        EXPECT_EQ(desktop.Validate(scratch.Join("Entry.desktop")), "");
        EXPECT_EQ(desktop.Launch(scratch.Join("Entry.desktop")),
                  Text(MFile::GetDirectory(scratch.Join(target))) + "\n[" + Path(target) + "]\n");
    }
}

TEST_F(MFileLinkPosix, NamesAndDescriptionsAreAnyText) {
    const MString program = WriteProgram("tool");
    const char* const cases[][3] = {{"Plug-in 2.0", "", "Name=Plug-in 2.0\nExec="},
                                    {"red\x1B[31m", "bell\a", "Name=red[31m\nComment=bell\nExec="},
                                    {"\xC5\x98\xC3\xA9verb", "a=b; c\\d [e] #f",
                                     "Name=\xC5\x98\xC3\xA9verb\nComment=a=b; c\\\\d [e] #f\nExec="},
                                    {" ends ", "First line\nsecond\tline ",
                                     "Name=\\sends\\s\nComment=First line\\nsecond\\tline\\s\nExec="}};
    for (const auto& [name, description, lines] : cases) {
        const MString link = scratch.Join(MDecodeUTF8Exact(name));
        MFile::CreateLink(link, program, "", MDecodeUTF8Exact(description));
        EXPECT_EQ(desktop.Validate(link + ".desktop"), "");
        EXPECT_NE(MReadTestFile(link + ".desktop").find(lines), std::string::npos)
            << MReadTestFile(link + ".desktop");
        EXPECT_EQ(desktop.Launch(link + ".desktop"), Path("") + "\n");
    }
    struct stat status;
    ASSERT_EQ(stat(Path("Plug-in 2.0.desktop").c_str(), &status), 0);
    EXPECT_NE(status.st_mode & S_IXUSR, 0u) << "desktops distrust entries that are not executable";
}

TEST_F(MFileLinkPosix, WhatNoEntryCanHoldIsRefusedAndLeavesTheOldEntry) {
    const MString link = scratch.Join("Entry");
    MFile::CreateLink(link, WriteProgram("tool"), "", "");
    const std::string before = scratch.ReadFile("Entry.desktop");
    const std::tuple<MString, const char*, const char*> cases[] = {
        {"", "", "No such file or directory"},
        {scratch.Join("missing"), "", "No such file or directory"},
        {WriteProgram(MDecodeUTF8Exact("caf\xE9")), "",
         "A desktop entry cannot hold names that are no UTF-8."},
        {scratch.Join("tool"), "a\x01", "A desktop entry cannot hold \"a\x01\"."}};
    for (const auto& [target, arguments, reason] : cases)
        EXPECT_EQ(FailureOf([&, &to = target, &with = arguments] { MFile::CreateLink(link, to, with, ""); }),
                  "0: Could not create file link at \"" + Text(link) + "\" to \"" + Text(target) + "\". " +
                      reason);
    EXPECT_EQ(scratch.ReadFile("Entry.desktop"), before);
    EXPECT_EQ(scratch.ListTree().find("unfinished"), std::string::npos);
}

}  // namespace
