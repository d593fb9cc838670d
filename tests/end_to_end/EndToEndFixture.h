#pragma once

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestProgram.h"
#include "tests/support/MTestText.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <initializer_list>

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
    ~EndToEndTest() noexcept override = default;

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

    /// Writes a definition with these children of the root, and packs it into the installer.
    void Pack(const std::string& children, std::initializer_list<const char*> options = {}) {
        scratch.WriteFile("product/definition.xml", "<install name=\"Test Product\">\n" + children +
                                                        "\n<onsuccess/><onerror/><onabort/></install>\n");
        MList<MString> arguments = ToList({"pack"});
        arguments.Add(InProduct("definition.xml"));
        arguments.Add("--output");
        arguments.Add(GetInstaller());
        for (const char* option : options) arguments.Add(option);
        const MProgramResult result = Build(arguments);
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    [[nodiscard]] MProgramResult Build(const MList<MString>& arguments) const {
        // The builder is the maker's tool and works in the maker's folders.
        return MRunTestProgram(SETUP_BUILDER_PROGRAM, arguments, scratch.Join("product"),
                               scratch.Join("product"), false);
    }
    [[nodiscard]] MProgramResult Start(const MString& program, const MList<MString>& arguments) const {
        return MRunTestProgram(program, arguments, InHome(""), InHome(""));
    }
    [[nodiscard]] MProgramResult Install(std::initializer_list<const char*> words) const {
        return Start(GetInstaller(), ToList(words));
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
