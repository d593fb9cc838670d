#include "ui/window/x11/display/MXAtom.h"

#include <iterator>

namespace {

constexpr const char* Texts[] = {
    "ATOM",
    "ATOM_PAIR",
    "CARDINAL",
    "CLIPBOARD",
    "CLIPBOARD_MANAGER",
    "CORVANTH_SELECTION",
    "CORVANTH_SERVER_TIME",
    "INCR",
    "MANAGER",
    "_MOTIF_WM_HINTS",
    "MULTIPLE",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_SUPPORTED",
    "_NET_WM_ICON",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_PING",
    "_NET_WM_STATE",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_USER_TIME",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "PRIMARY",
    "RESOURCE_MANAGER",
    "SAVE_TARGETS",
    "STRING",
    "TARGETS",
    "text/plain",
    "text/plain;charset=utf-8",
    "text/uri-list",
    "TIMESTAMP",
    "UTF8_STRING",
    "WM_CHANGE_STATE",
    "WM_CLASS",
    "WM_CLIENT_MACHINE",
    "WM_DELETE_WINDOW",
    "WM_HINTS",
    "WM_NAME",
    "WM_NORMAL_HINTS",
    "WM_PROTOCOLS",
    "WM_STATE",
    "WM_TRANSIENT_FOR",
    "WINDOW",
    "XdndActionCopy",
    "XdndAware",
    "XdndDrop",
    "XdndEnter",
    "XdndFinished",
    "XdndLeave",
    "XdndPosition",
    "XdndSelection",
    "XdndStatus",
    "XdndTypeList",
    "_XSETTINGS_SETTINGS",
    "_XSETTINGS_S0",
};

static_assert(std::size(Texts) == static_cast<size_t>(MXAtom::Count));

}  // namespace

const char* MXAtomText(MXAtom atom) {
    return Texts[static_cast<int>(atom)];
}
