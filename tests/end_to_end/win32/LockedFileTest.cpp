#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"
#include "tests/end_to_end/EndToEndFixture.h"

/// Holds a file open as a host holds a plug-in: nobody else may open or delete it, unless it shares.
class HeldFile {
public:
    explicit HeldFile(const MString& path, DWORD share = 0)
        : handle(CreateFileW(MNativePath(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0,
                             nullptr)) {}
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;
    ~HeldFile() { CloseHandle(handle); }

    const HANDLE handle;
};

using LockedFileTest = EndToEndTest;

TEST_F(LockedFileTest, AFileThatAHostHoldsAbortsOrIsLeftAsItIs) {
    scratch.WriteFile("product/files/held.dll", "new");
    scratch.WriteFile("product/files/other.dll", "new");
    Pack(ToDestination("files"));
    scratch.WriteFile("home/to/held.dll", "old");
    const HeldFile held(InHome("to/held.dll"));
    ASSERT_NE(held.handle, INVALID_HANDLE_VALUE);
    const MProgramResult aborted = InstallSilently();
    EXPECT_EQ(aborted.exitCode, 1);
    EXPECT_THAT(aborted.errors,
                HasSubstr("held.dll\" could not be created. Make sure there is no write-protected file"));
    EXPECT_FALSE(IsInHome("to/setup.state"));
    const MProgramResult ignored = InstallSilently({"locked=ignore"});
    EXPECT_EQ(ignored.exitCode, 0) << ignored.errors;
    EXPECT_EQ(ReadHome("to/other.dll"), "new");
}

// The merge was dropped, and the last backup replaced by a copy of the file that had not changed.
TEST_F(LockedFileTest, PresetsThatAHostHoldsAreWrittenInPlaceOrLeftAndNamed) {
    const std::string users = R"(<Set><preset name="Mine"/></Set>)";
    scratch.WriteFile("product/presets/Setpresets.xml", R"(<Set><preset name="New"/></Set>)");
    Pack(ToDestination("presets", R"(rewritable="0")"));
    const MString path = scratch.WriteFile("home/to/Setpresets.xml", users);
    {
        const HeldFile held(path, FILE_SHARE_READ);
        const MProgramResult left = InstallSilently();
        EXPECT_EQ(left.exitCode, 3);
        EXPECT_THAT(left.errors, HasSubstr("Setpresets.xml: "));
    }
    EXPECT_EQ(ReadHome("to/Setpresets.xml"), users);
    EXPECT_FALSE(IsInHome("to/Setpresets.xmlbackup"));
    SetFileAttributesW(MNativePath(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
    {
        const HeldFile held(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
        const MProgramResult merged = InstallSilently();
        EXPECT_EQ(merged.exitCode, 0) << merged.errors;
    }
    EXPECT_THAT(ReadHome("to/Setpresets.xml"), HasSubstr("New"));
    EXPECT_EQ(ReadHome("to/Setpresets.xmlbackup"), users);
    EXPECT_EQ(InstallSilently().exitCode, 0);
    EXPECT_EQ(GetFileAttributesW(MNativePath(path).c_str()) & FILE_ATTRIBUTE_HIDDEN,
              DWORD{FILE_ATTRIBUTE_HIDDEN});
}
