// What the user has done to a window, kept in a file: a document "ControlState" of
//
//     state = attributes { item }     item: a child's state, named after the child
//
// with the attributes "collapsed" of what can be collapsed, those of the controls' own, and for a root
// "windowposx", "windowposy", "windowsizex", "windowsizey" and "maximized". The file may come from another
// version, from another screen or be damaged; whatever does not fit is left out.

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/module/MModule.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <algorithm>

namespace {

constexpr int32_t Absent = 0x7FFFFFFF;

/// Whether an element can have this name and be read again.
bool IsElementName(const MString& name) {
    for (int32_t i = 0; i < name.GetLength(); ++i) {
        const char16_t unit = static_cast<char16_t>(name[i]);
        if (unit <= ' ' || MString("<>\"/!=?&").FindChar(name[i]) != MString::NotFound) return false;
    }
    return !name.IsEmpty();
}

/// Empty if the window has no file.
MString GetStateFile(const MControl& root) {
    const MModule* const module = MModule::GetInstance();
    const MString file = MFormat("Window_{0}.winstate", root.GetName());
    if (!module || !MIsSafeFileName(file)) return {};
    return module->GetDataPath_File_User(file, MString(), true);
}

/// Where an extent begins, moved inside of another one; its low edge comes first.
int32_t MoveInside(int64_t low, int64_t length, int64_t least, int64_t most) {
    return static_cast<int32_t>(std::max(std::min(low, most - length + 1), least));
}

}  // namespace

bool MControl::SaveState(MXMLItem& item) {
    bool isWritten = false;
    const auto write = [&](const char* attribute, int32_t value) {
        item.SetAttribute(attribute, value);
        isWritten = true;
    };
    if (Is(MControlFlag::Collapsable)) write("collapsed", Is(MControlFlag::Collapsed));
    if (Is(MControlFlag::SaveValue)) {
        SaveValueState(item);
        isWritten = true;
    }
    MWindowSystem* const system = GetWindows() ? &GetWindows()->GetSystem() : nullptr;
    if (IsRoot() && !(system && system->IsMinimized(*this))) {
        if (Is(MControlFlag::SaveWindowPos)) {
            write("windowposx", position.x);
            write("windowposy", position.y);
        }
        if (Is(MControlFlag::SaveWindowSize)) {
            write("windowsizex", size.x);
            write("windowsizey", size.y);
            item.RemoveAttribute("maximized");
            if (system && system->IsMaximized(*this)) write("maximized", 1);
        }
    }
    if (!Is(MControlFlag::SaveSubControlState)) return isWritten;
    for (MControl* child : children) {
        if (!child->Is(MControlFlag::EnableSaveState) || !IsElementName(child->name)) continue;
        if (child->SaveState(*item.AddSubItem(child->name)))
            isWritten = true;
        else
            item.RemoveSubItem(item.GetSubItemCount() - 1);
    }
    return isWritten;
}

void MControl::LoadState(MXMLItem& item) {
    const MControlRef self(this);
    if (Is(MControlFlag::Collapsable)) SetCollapsed(item.GetInt32Attribute("collapsed", 0) != 0);
    if (self && Is(MControlFlag::SaveValue)) LoadValueState(item);
    if (self && IsRoot()) LoadFrame(item);
    if (!self || !Is(MControlFlag::SaveSubControlState)) return;
    // Items come in the order of the children, so the next one is nearly always the right one.
    MXMLItem* next = item.GetSubItemCount() ? item.GetSubItem(0) : nullptr;
    for (int32_t i = 0; self && i < children.GetCount(); ++i) {
        MControl& child = *children[i];
        if (!child.Is(MControlFlag::EnableSaveState)) continue;
        MXMLItem* const found = next && next->GetName() == child.name ? next : item.FindSubItem(child.name);
        if (found) {
            next = found->GetNext();
            child.LoadState(*found);
        } else {
            child.ResetState();
        }
    }
}

/// The window's place and size, as far as they make sense on this screen.
void MControl::LoadFrame(MXMLItem& item) {
    MWindowSystem* const system = GetWindows() ? &GetWindows()->GetSystem() : nullptr;
    if (!system) return;
    const MControlRef self(this);
    if (Is(MControlFlag::SaveWindowSize) && item.GetInt32Attribute("maximized", 0) != 0) {
        // Until it is shown, the window has no place that it could be restored to.
        if (!Is(MControlFlag::LayoutValid)) {
            GetRootState().isMaximizedWhenPlaced = true;
            return;
        }
        system->Maximize(*this);
        if (self) flags.Set(MControlFlag::MoveToScreenCenter, false);
        return;
    }
    const bool hasSize = Is(MControlFlag::SaveWindowSize) && item.HasAttribute("windowsizex");
    const bool hasPosition =
        Is(MControlFlag::SaveWindowPos) && item.GetInt32Attribute("windowposx", Absent) != Absent;
    const MPoint place{hasPosition ? item.GetInt32Attribute("windowposx") : position.x,
                       hasPosition ? item.GetInt32Attribute("windowposy", position.y) : position.y};
    const int64_t width =
        std::max({hasSize ? item.GetInt32Attribute("windowsizex") : size.x, minimalSize.x, 1});
    const int64_t height =
        std::max({hasSize ? item.GetInt32Attribute("windowsizey", size.y) : size.y, minimalSize.y, 1});
    const MRect desktop = system->GetWorkArea(hasPosition ? std::optional(place) : std::nullopt);
    const bool isTooLarge =
        width > 2 * int64_t{desktop.GetWidth()} || height > 2 * int64_t{desktop.GetHeight()};
    const bool isOutside =
        hasPosition && (place.x < desktop.left - width || place.x > desktop.right + width ||
                        place.y < desktop.top - height || place.y > desktop.bottom + height);
    if (isTooLarge || isOutside || (!hasSize && !hasPosition)) return;

    if (hasSize)
        SetSize(
            {std::max(static_cast<int32_t>(std::min<int64_t>(width, desktop.GetWidth())), minimalSize.x),
             std::max(static_cast<int32_t>(std::min<int64_t>(height, desktop.GetHeight())), minimalSize.y)});
    if (!self || !hasPosition) return;
    position = {MoveInside(place.x, size.x, desktop.left, desktop.right),
                MoveInside(place.y, size.y, desktop.top, desktop.bottom)};
    flags.Set(MControlFlag::MoveToScreenCenter, false);
}

void MControl::SaveWindowState() {
    if (!IsRoot() || !Is(MControlFlag::AutoSaveState)) return;
    MGuard("MControl::SaveWindowState", [this] {
        const MString file = GetStateFile(*this);
        MXMLItem state("ControlState");
        if (!file.IsEmpty() && SaveState(state)) state.SaveFile(file, false, "utf-8");
    });
}

void MControl::LoadWindowState() {
    if (!IsRoot() || !Is(MControlFlag::AutoSaveState)) return;
    flags.Set(MControlFlag::StateLoaded, true);
    MGuard("MControl::LoadWindowState", [this] {
        const MString file = GetStateFile(*this);
        if (file.IsEmpty() || !MFile::IsFile(file)) return;
        MXMLItem state;
        state.LoadFile(file);
        LoadState(state);
    });
}
