#include "foundation/win32/MWindowsHeader.h"

#include <gtest/gtest.h>

namespace {

/// The display of the tests has no window manager. Wine, which would wait two seconds for its answer each
/// time that a window is hidden, is told so before it opens the first one.
class WineSettings final : public testing::Environment {
public:
    void SetUp() override {
        if (!GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) return;
        RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Wine\\AppDefaults\\ui-window-tests.exe\\X11 Driver",
                        L"Managed", REG_SZ, L"N", sizeof L"N");
    }
};

[[maybe_unused]] const testing::Environment* const settings =
    testing::AddGlobalTestEnvironment(new WineSettings());

}  // namespace
