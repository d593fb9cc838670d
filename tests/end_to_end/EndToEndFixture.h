#pragma once

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestProgram.h"
#include "tests/support/MTestText.h"

#include <filesystem>
#include <initializer_list>

using testing::HasSubstr;

/// The finished programs, run as their users run them. `product` holds a maker's files, `home` is where
/// the installer lives, runs and writes.
class EndToEndTest : public testing::Test {
protected:
    EndToEndTest() {
        for (const char* name : {"product", "home"}) MFile::CreatePath(scratch.Join(name));
        OpenForEverybody(scratch.GetPath());
        OpenForEverybody(InHome(""));
        // What an earlier test has had remembered must not decide this one.
        const MString remembered =
            MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "DefaultPaths.xml");
        if (MPlatform::GetName() == "windows" && MFile::Exists(remembered)) MFile::Delete(remembered);
    }
    [[nodiscard]] MString InProduct(const MString& name) const {
        return MFile::Join(scratch.Join("product"), name);
    }
    [[nodiscard]] MString InHome(const MString& name) const {
        return MFile::Join(scratch.Join("home"), name);
    }
    /// Where the installer puts its links.
    [[nodiscard]] MString InMenu(const MString& name) const {
        return MFile::Join(MTestPrograms(InHome("")), name);
    }
    /// The program that an installation in a folder of the home leaves.
    [[nodiscard]] MString GetRemover(const MString& folder) const {
        return InHome(folder + "/setup." + MPlatform::ExecutableExtension());
    }
    [[nodiscard]] MString GetInstaller() const {
        return InHome(MString("Product.") + MPlatform::ExecutableExtension());
    }
    [[nodiscard]] std::string ReadHome(const MString& name) const { return MReadTestFile(InHome(name)); }
    [[nodiscard]] bool IsInHome(const MString& name) const { return MFile::Exists(InHome(name)); }

    /// Packs a definition with these children of the root, in front of which the directory `destination` stands.
    void Pack(const std::string& children, std::initializer_list<const char*> options = {}) {
        PackAs(GetInstaller(), "name=\"Test Product\"", children, options);
    }
    void PackAs(const MString& output, const std::string& attributes, const std::string& children,
                std::initializer_list<const char*> options = {}) {
        scratch.WriteFile("product/definition.xml",
                          "<install " + attributes +
                              "><directory id=\"destination\" name=\"D\" default=\"unused\"/>\n" + children +
                              "\n<onsuccess/><onerror/><onabort/></install>\n");
        MList<MString> arguments = ToList({"pack", "definition.xml", "--output"});
        arguments.Add(output);
        for (const char* option : options) arguments.Add(option);
        Build(arguments);
    }
    /// What installs a file or folder of the maker's in the directory `destination`.
    static std::string ToDestination(const std::string& path, const std::string& attributes = "") {
        return "<files path=\"" + path + "\" destination=\"{destination}\" required=\"1\" " + attributes +
               "/>";
    }
    /// Runs the builder, which must succeed. It is the maker's tool and works in the maker's folders.
    void Build(MList<MString> arguments, std::initializer_list<MString> more = {}) const {
        for (const MString& argument : more) arguments.Add(argument);
        const MProgramResult result = MRunTestProgram(
            SETUP_BUILDER_PROGRAM, arguments, scratch.Join("product"), scratch.Join("product"), false);
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    [[nodiscard]] MProgramResult Start(const MString& program, const MList<MString>& arguments) const {
        return MRunTestProgram(program, arguments, InHome(""), InHome(""));
    }
    [[nodiscard]] MProgramResult Install(std::initializer_list<const char*> words) const {
        return Start(GetInstaller(), ToList(words));
    }
    /// What a program says that would show a window, and has no display; empty where there always is one.
    [[nodiscard]] std::string StartWithoutDisplay(const MString& program,
                                                  std::initializer_list<const char*> words = {}) const {
        return MPlatform::GetName() == "windows" ? std::string() : Start(program, ToList(words)).errors;
    }
    /// That it says so in one line, with the words that do without.
    static auto SaysWhatToDo(const std::string& words) {
        return testing::AnyOf("", testing::AllOf(testing::StartsWith("There is no display for windows"),
                                                 testing::EndsWith(words + "\n")));
    }
    /// Installs without window into the folder "to" of the home.
    [[nodiscard]] MProgramResult InstallSilently(std::initializer_list<const char*> words = {}) const {
        MList<MString> arguments = ToList({"silent", "directory:destination=to"});
        for (const MString& word : ToList(words)) arguments.Add(word);
        return Start(GetInstaller(), arguments);
    }
    /// A copy of the bare program under a name in the home folder.
    MString PutProgram(const MString& name) const {
        const MString path = InHome(name + "." + MPlatform::ExecutableExtension());
        MFile::Copy(SETUP_PROGRAM, path);
        MFile::MakeExecutable(path);
        return path;
    }
    static MList<MString> ToList(std::initializer_list<const char*> words) {
        MList<MString> list;
        for (const char* word : words) list.Add(MDecodeUTF8Exact(word));
        return list;
    }
    static void OpenForEverybody(const MString& path) {
        std::filesystem::permissions(std::filesystem::path(Text(path)), std::filesystem::perms::all);
    }

    MScratch scratch;
};
