#include "foundation/files/MFile.h"
#include "foundation/files/MFileHolders.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/win32/MTestProcess.h"

#include <shlobj.h>

namespace {

/// What a shell link holds: target, arguments, description and working directory, a line each.
std::string ReadShellLink(const MString& path) {
    EXPECT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    void* created = nullptr;
    EXPECT_TRUE(SUCCEEDED(
        CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &created)));
    auto* link = static_cast<IShellLinkW*>(created);
    void* found = nullptr;
    EXPECT_TRUE(SUCCEEDED(link->QueryInterface(IID_IPersistFile, &found)));
    auto* file = static_cast<IPersistFile*>(found);
    EXPECT_TRUE(SUCCEEDED(file->Load(MNativePath(path).c_str(), STGM_READ)));
    wchar_t target[MAX_PATH] = {}, arguments[MAX_PATH] = {}, description[MAX_PATH] = {},
            directory[MAX_PATH] = {};
    // The path beside the item list may be kept in the system's 8-bit encoding.
    PIDLIST_ABSOLUTE items = nullptr;
    EXPECT_TRUE(SUCCEEDED(link->GetIDList(&items)));
    SHGetPathFromIDListW(items, target);
    CoTaskMemFree(items);
    link->GetArguments(arguments, MAX_PATH);
    link->GetDescription(description, MAX_PATH);
    link->GetWorkingDirectory(directory, MAX_PATH);
    file->Release();
    link->Release();
    CoUninitialize();
    std::string result;
    for (const wchar_t* text : {target, arguments, description, directory})
        result += Text(MFromWide(text)) + "\n";
    return result;
}

TEST(MFileWin32, WriteProtectedFilesAreDeleted) {
    const MScratch scratch;
    const MString file = scratch.WriteFile("protected", "x");
    ASSERT_TRUE(SetFileAttributesW(MNativePath(file).c_str(), FILE_ATTRIBUTE_READONLY));
    MFile::Delete(file);
    EXPECT_FALSE(MFile::Exists(file));
}

TEST(MFileWin32, ShellLinksHoldWhatTheyWereGiven) {
    const MScratch scratch;
    const MString target = scratch.WriteFile(MDecodeUTF8Exact("dir/\xC5\x99 program.exe"), "x");
    const MString directory = MFile::GetDirectory(target);
    const auto native = [](const MString& path) {
        std::string text = Text(path);
        for (char& byte : text)
            if (byte == '/') byte = '\\';
        return text;
    };
    MFile::CreateLink(scratch.Join("Link"), target, "uninstall \"a b\"", "");
    EXPECT_EQ(ReadShellLink(scratch.Join("Link.lnk")),
              native(target) + "\nuninstall \"a b\"\nLink\n" + native(directory) + "\n");
    EXPECT_EQ(Text(MFile::GetLinkDirectory(scratch.Join("Link.lnk"))), Text(directory));
    MFile::CreateLink(scratch.Join("Web"), "https://example.org/?a=%20", "", "");
    EXPECT_EQ(scratch.ReadFile("Web.url"), "[InternetShortcut]\nURL=https://example.org/?a=%20\n");
}

TEST(MFileWin32, ProgramsGiveTheirExitCode) {
    const MScratch scratch;
    const MString before = MFile::GetCurrentPath();
    MList<MString> arguments;
    arguments.Add("/c");
    arguments.Add("echo > made & exit 7");
    const MString shell = MFile::Join(MFile::GetSpecialPath(MSpecialFolderSystem), "system32/cmd.exe");
    EXPECT_EQ(MFile::Execute(shell, arguments, scratch.GetPath(), true), 7);
    MFile::SetCurrentPath(before);
    EXPECT_EQ(scratch.ListTree(), "made\n");
}

TEST(MFileWin32, WhoHoldsAFileIsTold) {
    const MScratch scratch;
    MList<MString> arguments;
    arguments.Add("/c");
    arguments.Add("ping -n 2 127.0.0.1 > held");
    const MString shell = MFile::Join(MFile::GetSpecialPath(MSpecialFolderSystem), "system32/cmd.exe");
    const MTestProcess holder(shell, arguments, scratch.GetPath(), 0);
    while (!MFile::Exists(scratch.Join("held")) &&
           WaitForSingleObject(holder.GetHandle(), 20) == WAIT_TIMEOUT) {}
    // Wine has a Restart Manager that knows of nobody.
    const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    EXPECT_EQ(MFindFileHolders(scratch.Join("held")).IsEmpty(), isWine);
    WaitForSingleObject(holder.GetHandle(), MTestProcess::MillisecondsToLive);
}

TEST(MFileWin32, EveryRowButTheUsersTemporaryFolderIsGivenByTheShell) {
    for (int32_t folder = 0; folder < MSpecialFolderUserTemporary; ++folder) {
        const std::string path = Text(MGetPlatformFolders().GetPath(folder));
        EXPECT_EQ(path.substr(1, 2), ":/") << folder;
        EXPECT_EQ(path.find('\\'), std::string::npos) << path;
    }
}

}  // namespace
