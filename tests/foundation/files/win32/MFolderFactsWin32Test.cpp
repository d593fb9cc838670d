#include "foundation/files/MFolderFacts.h"

#include "foundation/files/MFile.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <aclapi.h>
#include <sddl.h>

using testing::HasSubstr;

TEST(MFolderFactsWin32, NamesThatTheSystemWouldNotKeepAreFaults) {
    const MScratch scratch;
    const std::pair<const char*, const char*> cases[] = {{"a<b/c", "\"a<b\""}, {"a/b?", "? *"},
                                                         {"a:b", "\"a:b\""},   {"a./b", "dot or a blank"},
                                                         {"a ", "\"a \""},     {"COM1.x/b", "reserved"}};
    for (const auto& [name, fault] : cases)
        EXPECT_THAT(Text(MFindFolderFacts(scratch.Join(name)).fault), HasSubstr(fault)) << name;
    EXPECT_EQ(Text(MFindFolderFacts(scratch.Join("a.b/c d/./e")).fault), "");
}

TEST(MFolderFactsWin32, DrivesThatAreMissingAndFoldersThatAreClosedAreTold) {
    const DWORD drives = GetLogicalDrives();
    wchar_t letter = L'D';
    while (drives >> (letter - L'A') & 1) ++letter;
    const wchar_t missing[] = {letter, L':', L'/', L'x', 0};
    EXPECT_THAT(Text(MFindFolderFacts(MFromWide(missing)).fault), HasSubstr("is not there"));

    const MScratch scratch;
    MFile::CreatePath(scratch.Join("closed"));
    // Everybody may read, and the owner give it rights again.
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FRFX;;;WD)", SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    const std::wstring native = MNativePath(scratch.Join("closed"));
    ASSERT_TRUE(SetFileSecurityW(native.c_str(), DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
    for (const char* name : {"closed", "closed/new/one"})
        EXPECT_THAT(Text(MFindFolderFacts(scratch.Join(name)).fault), HasSubstr("an administrator"));
}
