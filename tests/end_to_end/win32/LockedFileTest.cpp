#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"
#include "tests/end_to_end/EndToEndFixture.h"

/// Holds a file open as a host holds a plug-in: nobody else may open or delete it.
class HeldFile {
public:
    explicit HeldFile(const MString& path)
        : handle(
              CreateFileW(MNativePath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
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
