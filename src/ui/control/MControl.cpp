#include "ui/control/MControl.h"

#include "foundation/events/MEmulatedLockGuard.h"
#include "foundation/text/MNumberText.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MRemoveFromList.h"
#include "ui/control/windows/MWindows.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace {

MString MakeName() {
    static std::atomic<int32_t> count = 0;
    return MNumberToText(++count);
}

/// The overlays of other windows are not owned by them.
void ForgetOverlay(MWindows& windows, MControl& overlay) {
    for (MControl* root : windows.GetRoots()) MRemoveFromList(root->GetRootState().overlayWindows, &overlay);
}

}  // namespace

MControl::MControl(MControl* parent, const MString& name)
    : name(name.IsEmpty() ? MakeName() : name), parent(parent), root(parent ? parent->root : this) {
    if (!parent) {
        rootState = std::make_shared<MControlRoot>();
        return;
    }
    const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
    flags.Set(MControlFlag::ChildrenEnabled, parent->IsEnabled());
    parent->children.Add(this);
    GetRootState().isTabOrderValid = false;
    TouchSizes();
}

MControl::~MControl() {
    while (references) references->Set(nullptr);
    MWindows* const windows = MWindows::GetInstance();
    if (windows) windows->ForgetControl(*this);
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        if (parent) parent->RemoveChild(*this);
        if (parentLayout) parentLayout->Detach(*this);
        // The first child goes first, from the end of the list, and after its layout: thousands of them would
        // have to be searched for otherwise.
        std::reverse(children.begin(), children.end());
    }
    MControl::DetachFromStyle();
    while (!layouts.IsEmpty()) delete layouts[layouts.GetCount() - 1];
    while (!children.IsEmpty()) delete children[children.GetCount() - 1];

    MControlRoot& state = GetRootState();
    if (state.hover == this) state.hover = nullptr;
    if (state.captured == this) ReleaseCapture();
    if (state.focusedControl == this) SetFocusPath(nullptr);
    tabPrevious->tabNext = tabNext;
    tabNext->tabPrevious = tabPrevious;
    if (IsRoot()) {
        if (windows) ForgetOverlay(*windows, *this);
        DestroyWindow();
    }
    while (references) references->Set(nullptr);
}

void MControl::RemoveChild(MControl& child) {
    int32_t index = children.GetCount() - 1;
    if (children[0] == &child) index = 0;
    while (children[index] != &child) --index;
    children.Remove(index);
    if (clientControl == &child) clientControl = nullptr;
    TouchSizes();
}

bool MControl::Holds(const MControl* other) const {
    while (other && other != this) other = other->parent;
    return other != nullptr;
}

MControlRoot& MControl::GetRootState() const {
    return *root->rootState;
}

MStyle* MControl::GetStyle() const {
    if (MStyle* const own = GetRootState().style.get()) return own;
    const MWindows* const windows = MWindows::GetInstance();
    return windows ? windows->GetStyle() : nullptr;
}

void MControl::Reparent(MControl& newParent) {
    if (Holds(&newParent)) MRaise(MExceptionInvalidArgument, "A control cannot be moved into itself.");
    const MControlRef self(this);
    const MControlRef target(&newParent);
    if (focusChild) SetFocus(nullptr);
    if (self && GetRootState().hover != this && Holds(GetRootState().hover))
        GetRootState().hover->OnMouseLeave();
    if (!self || !target || Holds(&newParent)) return;
    // What handlers have taken meanwhile goes without a word.
    if (capture) ReleaseCapture();
    if (focusChild) SetFocusPath(nullptr);
    if (GetRootState().hover != this && Holds(GetRootState().hover)) GetRootState().hover = nullptr;

    for (MControl* child : children) child->DetachFromStyle();
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        const MEmulatedLockGuard newGuard(&newParent.GetRootState().lock, MERWLock::Write);
        for (MControl* child : children) {
            newParent.children.Add(child);
            child->parent = &newParent;
            child->SetRoot(*newParent.root);
        }
        for (MLayout* layout : layouts) {
            newParent.layouts.Add(layout);
            layout->SetOwner(newParent);
        }
        if (clientControl) newParent.clientControl = clientControl;
        clientControl = nullptr;
        children.Clear();
        layouts.Clear();
        newParent.PassEnabled();
        RebuildTabOrder();
        newParent.RebuildTabOrder();
        TouchSizes();
        newParent.TouchSizes();
    }
    if (newParent.Is(MControlFlag::AttachedToStyle)) {
        for (int32_t i = 0; target && i < newParent.children.GetCount(); ++i)
            newParent.children[i]->AttachToStyle();
    }
    for (const MControlRef* control : {&self, &target}) {
        if (!*control) continue;
        (*control)->root->Invalidate();
        if ((*control)->root->Is(MControlFlag::LayoutValid)) (*control)->UpdateLayout();
    }
}

void MControl::SetRoot(MControl& newRoot) {
    root = &newRoot;
    for (MControl* child : children) child->SetRoot(newRoot);
}

void MControl::AttachToStyle() {
    const MControlRef self(this);
    if (!Is(MControlFlag::AttachedToStyle)) {
        flags.Set(MControlFlag::AttachedToStyle, true);
        if (MRenderer* const renderer = GetRootState().renderer.get()) renderer->OnControlAttached(*this);
        // In a window that is open, whoever adds controls measures all of it once.
        if (!root->Is(MControlFlag::LayoutValid)) UpdateLayout();
    }
    for (int32_t i = 0; self && i < children.GetCount(); ++i) children[i]->AttachToStyle();
}

void MControl::DetachFromStyle() {
    if (!Is(MControlFlag::AttachedToStyle)) return;
    flags.Set(MControlFlag::AttachedToStyle, false);
    if (MRenderer* const renderer = GetRootState().renderer.get()) renderer->OnControlDetached(*this);
    if (MStyle* const style = GetStyle()) style->DetachControl(*this);
    for (MControl* child : children) child->DetachFromStyle();
}

MObject* MControl::FindProperty(uint32_t key) const {
    for (const auto& [ownKey, property] : properties)
        if (ownKey == key) return property.get();
    return nullptr;
}

void MControl::SetProperty(uint32_t key, std::unique_ptr<MObject> property) {
    std::erase_if(properties, [&](const auto& entry) { return entry.first == key; });
    if (property) properties.emplace_back(key, std::move(property));
}

void MControl::ResetToDefault() {
    const MControlRef self(this);
    SetCollapsed(false);
    if (self) SetEnabled(true);
    for (int32_t i = 0; self && i < children.GetCount(); ++i)
        if (children[i]->Is(MControlFlag::Visible)) children[i]->ResetToDefault();
}
