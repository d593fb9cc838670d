// What the window manager is told of a window (ICCCM 4.1.2, EWMH).

#include "ui/window/x11/MXWindow.h"

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"

#include <algorithm>
#include <unistd.h>
#include <vector>

namespace {

/// WM_NORMAL_HINTS.
struct SizeHints {
    uint32_t flags = 0;
    uint32_t unused[4] = {};
    uint32_t minimalWidth = 0;
    uint32_t minimalHeight = 0;
    uint32_t maximalWidth = 0;
    uint32_t maximalHeight = 0;
    uint32_t unusedSteps[8] = {};
    uint32_t gravity = 0;
};
enum SizeHint : uint32_t { UserPosition = 1, MinimalSize = 16, MaximalSize = 32, Gravity = 512 };

/// WM_HINTS.
struct Hints {
    uint32_t flags = 0;
    uint32_t takesInput = 0;
    uint32_t initialState = 0;
    uint32_t unused[6] = {};
};
enum Hint : uint32_t { InputHint = 1, StateHint = 2 };

/// _MOTIF_WM_HINTS.
struct MotifHints {
    uint32_t flags = 2;  ///< only the decorations count
    uint32_t functions = 0;
    uint32_t decorations = 0;
    uint32_t unused[2] = {};
};

/// A structure of words as a property has it.
template <class Structure>
std::basic_string_view<uint32_t> ToWords(const Structure& structure) {
    return {reinterpret_cast<const uint32_t*>(&structure), sizeof(Structure) / sizeof(uint32_t)};
}

/// The largest that a window can be.
constexpr int32_t LargestSize = 32767;

uint32_t ToSize(int32_t size) {
    return static_cast<uint32_t>(std::clamp(size, 1, LargestSize));
}

}  // namespace

// With static gravity the manager puts the window exactly where it was asked to be.
void MXWindow::TellSizes(const MControl& root) const {
    const MPoint size{frame.GetWidth(), frame.GetHeight()};
    const bool isFree = root.Is(MControlFlag::Resizable) || isMaximized;
    const MPoint smallest = isFree ? root.minimalSize : size;
    const MPoint largest = isFree ? root.maximalSize : size;
    SizeHints hints;
    hints.flags = UserPosition | MinimalSize | MaximalSize | Gravity;
    hints.minimalWidth = ToSize(smallest.x);
    hints.minimalHeight = ToSize(smallest.y);
    hints.maximalWidth = ToSize(std::max(largest.x, smallest.x));
    hints.maximalHeight = ToSize(std::max(largest.y, smallest.y));
    hints.gravity = XCB_GRAVITY_STATIC;
    connection.SetWords(id, MXAtom::WMNormalHints, XCB_ATOM_WM_SIZE_HINTS, ToWords(hints));
}

void MXWindow::SetIcons(const MList<MBitmap>& pictures) const {
    std::basic_string<uint32_t> words;
    for (const MBitmap& picture : pictures) {
        const MBitmap direct = picture.ToDirect();
        words += {static_cast<uint32_t>(direct.GetWidth()), static_cast<uint32_t>(direct.GetHeight())};
        for (int32_t y = 0; y < direct.GetHeight(); ++y)
            for (int32_t x = 0; x < direct.GetWidth(); ++x) words += direct.GetRow(y)[x].GetWord();
    }
    if (!words.empty()) connection.SetWords(id, MXAtom::NetWMIcon, XCB_ATOM_CARDINAL, words);
}

void MXWindow::TellManager(const MControl& root) const {
    TellSizes(root);
    constexpr uint32_t Normal = 1;
    const Hints hints{InputHint | StateHint, root.Is(MControlFlag::AcceptsFocus), Normal};
    connection.SetWords(id, MXAtom::WMHints, XCB_ATOM_WM_HINTS, ToWords(hints));
    connection.SetWords(id, MXAtom::MotifWMHints, connection[MXAtom::MotifWMHints], ToWords(MotifHints()));

    const uint32_t protocols[] = {connection[MXAtom::WMDeleteWindow], connection[MXAtom::NetWMPing]};
    connection.SetWords(id, MXAtom::WMProtocols, XCB_ATOM_ATOM, {protocols, std::size(protocols)});
    const bool isModal = root.Is(MControlFlag::Modal);
    const MXAtom type = isPopup       ? MXAtom::NetWMWindowTypePopupMenu
                        : isUnmanaged ? MXAtom::NetWMWindowTypeTooltip
                        : isModal     ? MXAtom::NetWMWindowTypeDialog
                                      : MXAtom::NetWMWindowTypeNormal;
    connection.SetWords(id, MXAtom::NetWMWindowType, XCB_ATOM_ATOM, {&connection[type], 1});
    std::basic_string<uint32_t> states;
    if (isModal) states += connection[MXAtom::NetWMStateModal];
    if (!isInTaskbar) {
        states += connection[MXAtom::NetWMStateSkipTaskbar];
        states += connection[MXAtom::NetWMStateSkipPager];
    }
    connection.SetWords(id, MXAtom::NetWMState, XCB_ATOM_ATOM, states);
    const uint32_t version = 5;
    connection.SetWords(id, MXAtom::XdndAware, XCB_ATOM_ATOM, {&version, 1});

    std::string program = MEncodeUTF8Exact(MFile::GetBaseName(MPlatform::GetModulePath(nullptr)));
    program = program + '\0' + program + '\0';
    connection.SetBytes(id, MXAtom::WMClass, XCB_ATOM_STRING, program);
    const auto process = static_cast<uint32_t>(getpid());
    connection.SetWords(id, MXAtom::NetWMPid, XCB_ATOM_CARDINAL, {&process, 1});
    char machine[256] = {};
    gethostname(machine, sizeof(machine) - 1);
    connection.SetBytes(id, MXAtom::WMClientMachine, XCB_ATOM_STRING, machine);
    TellUserTime();
}

void MXWindow::TellUserTime() const {
    if (display.time != XCB_CURRENT_TIME)
        connection.SetWords(id, MXAtom::NetWMUserTime, XCB_ATOM_CARDINAL, {&display.time, 1});
}
