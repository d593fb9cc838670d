#include "ui/window/x11/input/MXVirtualKey.h"

#include "ui/control/MSystemEvent.h"

#include <algorithm>
#include <iterator>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace {

struct Key {
    uint32_t symbol;
    int32_t number;
};

/// Sorted by symbol. The numbers without a name of their own are those of Windows.
constexpr Key Keys[] = {
    {XKB_KEY_space, MKeySpace},
    {XKB_KEY_apostrophe, 222},
    {XKB_KEY_comma, 188},
    {XKB_KEY_minus, 189},
    {XKB_KEY_period, 190},
    {XKB_KEY_slash, 191},
    {XKB_KEY_semicolon, 186},
    {XKB_KEY_equal, 187},
    {XKB_KEY_bracketleft, 219},
    {XKB_KEY_backslash, 220},
    {XKB_KEY_bracketright, 221},
    {XKB_KEY_grave, 192},
    {XKB_KEY_ISO_Left_Tab, MKeyTab},
    {XKB_KEY_BackSpace, MKeyBackspace},
    {XKB_KEY_Tab, MKeyTab},
    {XKB_KEY_Return, MKeyEnter},
    {XKB_KEY_Pause, 19},
    {XKB_KEY_Scroll_Lock, 145},
    {XKB_KEY_Escape, MKeyEscape},
    {XKB_KEY_Home, MKeyHome},
    {XKB_KEY_Left, MKeyLeft},
    {XKB_KEY_Up, MKeyUp},
    {XKB_KEY_Right, MKeyRight},
    {XKB_KEY_Down, MKeyDown},
    {XKB_KEY_Page_Up, MKeyPageUp},
    {XKB_KEY_Page_Down, MKeyPageDown},
    {XKB_KEY_End, MKeyEnd},
    {XKB_KEY_Print, 44},
    {XKB_KEY_Insert, MKeyInsert},
    {XKB_KEY_Menu, MKeyMenu},
    {XKB_KEY_Num_Lock, 144},
    {XKB_KEY_KP_Enter, MKeyEnter},
    {XKB_KEY_KP_Home, MKeyHome},
    {XKB_KEY_KP_Left, MKeyLeft},
    {XKB_KEY_KP_Up, MKeyUp},
    {XKB_KEY_KP_Right, MKeyRight},
    {XKB_KEY_KP_Down, MKeyDown},
    {XKB_KEY_KP_Page_Up, MKeyPageUp},
    {XKB_KEY_KP_Page_Down, MKeyPageDown},
    {XKB_KEY_KP_End, MKeyEnd},
    {XKB_KEY_KP_Begin, 12},
    {XKB_KEY_KP_Insert, MKeyInsert},
    {XKB_KEY_KP_Delete, MKeyDelete},
    {XKB_KEY_KP_Multiply, MKeyNumpadMultiply},
    {XKB_KEY_KP_Add, MKeyNumpadAdd},
    {XKB_KEY_KP_Separator, MKeyNumpadDecimal},
    {XKB_KEY_KP_Subtract, MKeyNumpadSubtract},
    {XKB_KEY_KP_Decimal, MKeyNumpadDecimal},
    {XKB_KEY_KP_Divide, MKeyNumpadDivide},
    {XKB_KEY_Shift_L, MKeyShift},
    {XKB_KEY_Shift_R, MKeyShift},
    {XKB_KEY_Control_L, MKeyControl},
    {XKB_KEY_Control_R, MKeyControl},
    {XKB_KEY_Caps_Lock, 20},
    {XKB_KEY_Alt_L, MKeyAlt},
    {XKB_KEY_Alt_R, MKeyAlt},
    {XKB_KEY_Super_L, 91},
    {XKB_KEY_Super_R, 92},
    {XKB_KEY_Delete, MKeyDelete},
};

static_assert(std::is_sorted(std::begin(Keys), std::end(Keys),
                             [](const Key& left, const Key& right) { return left.symbol < right.symbol; }));

constexpr bool IsBetween(uint32_t symbol, uint32_t first, uint32_t last) {
    return symbol >= first && symbol <= last;
}

}  // namespace

int32_t MXVirtualKey(uint32_t symbol) {
    if (IsBetween(symbol, XKB_KEY_a, XKB_KEY_z)) return static_cast<int32_t>(symbol - XKB_KEY_a + 'A');
    if (IsBetween(symbol, XKB_KEY_A, XKB_KEY_Z) || IsBetween(symbol, XKB_KEY_0, XKB_KEY_9))
        return static_cast<int32_t>(symbol);
    if (IsBetween(symbol, XKB_KEY_KP_0, XKB_KEY_KP_9))
        return static_cast<int32_t>(symbol - XKB_KEY_KP_0) + MKeyNumpad0;
    if (IsBetween(symbol, XKB_KEY_F1, XKB_KEY_F24)) return static_cast<int32_t>(symbol - XKB_KEY_F1) + MKeyF1;
    const Key* const found =
        std::lower_bound(std::begin(Keys), std::end(Keys), symbol,
                         [](const Key& key, uint32_t wanted) { return key.symbol < wanted; });
    return found != std::end(Keys) && found->symbol == symbol ? found->number : 0;
}
