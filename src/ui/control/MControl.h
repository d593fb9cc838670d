#pragma once

#include "foundation/base/MList.h"
#include "foundation/events/MEvent.h"
#include "foundation/events/MEventTarget.h"
#include "foundation/events/MOnNotifyParams.h"
#include "foundation/text/MString.h"
#include "ui/control/MContent.h"
#include "ui/control/MControlFlags.h"
#include "ui/control/MControlRef.h"
#include "ui/control/MCursor.h"
#include "ui/control/MLayout.h"
#include "ui/control/MOnControlParams.h"
#include "ui/control/MPresetBaseT.h"
#include "ui/control/MStyle.h"
#include "ui/control/MSystemEvent.h"
#include "ui/control/kinds/MCaptionType.h"
#include "ui/control/kinds/MControlType.h"
#include "ui/control/kinds/MModalValue.h"
#include "ui/geometry/MAlignment.h"
#include "ui/geometry/MRect.h"

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class MRenderer;
class MWindows;
class MXMLItem;
struct MControlRoot;

/// The borders of a window, combined with `|`.
enum MWindowBorder : uint8_t { MBorderLeft = 1, MBorderRight = 2, MBorderTop = 4, MBorderBottom = 8 };

/// Everything on screen is a tree of controls: rectangles that paint themselves by a style, of which only the
/// root has a window of the platform.
///
/// Rectangles include their right and bottom edge. A control's own coordinates begin at its top left pixel;
/// `position` counts from the client area of its parent, `windowOffset` from the window. Sizes are in pixels;
/// points hold sizes as well.
///
/// Belongs to the thread of the user interface. The root's lock is taken for whatever changes the structure,
/// so other threads may look at it under that. Any handler may change the tree and end any control, also the
/// one that is being called. No exception crosses to the platform.
class MControl : public MPresetBaseT<MEventTarget> {
public:
    static constexpr int32_t Unlimited = std::numeric_limits<int32_t>::max();
    using ControlList = MList<MControl, MListPointers>;
    class MXmlLoader;

    /// Becomes the last child of `parent`, which owns it from then on if it stands in memory of its own, and
    /// loses it if it ends first; without one, a root. Without a name it gets a number of its own.
    explicit MControl(MControl* parent = nullptr, const MString& name = MString());
    MControl(const MControl&) = delete;
    MControl& operator=(const MControl&) = delete;
    ~MControl() override;

    // ---- What a kind of control can do in its own way, in the order of a control's life.

    /// Takes the attributes of an element, and what stands below it (MXmlLoader.h). A class reads its own ones
    /// and calls its base then.
    virtual void LoadFromXml(MXMLItem& item);
    virtual void DetachFromStyle();
    /// Called before each measuring and each arranging.
    virtual void PrepareContent() {}
    virtual void GetMinimalContentSize(int32_t& x, int32_t& y);
    virtual void GetContentSize(int32_t& x, int32_t& y);
    [[nodiscard]] virtual MFlexibility GetFlexibility();
    /// Measures the control and all below it, children first; see MControlSizes.cpp.
    virtual void ComputeMinimalSize();
    /// The height (`dimension` 1) for a width, or the width (0) for a height. Raises "Service "{0}" is not
    /// implemented." (1) unless a `Plastic` control overrides it.
    [[nodiscard]] virtual int32_t ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize);
    virtual void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect);
    /// Arranges the whole window once more, and measures it before if `TouchSizes` was called.
    virtual void UpdateLayout();
    /// Called when everything in the window has its new place.
    virtual void OnSizeChanged(MPoint) {}
    [[nodiscard]] virtual MColor GetBackgroundColor();
    [[nodiscard]] virtual MDrawState GetDrawState();
    /// Returns whether `PaintContent` is to run too.
    virtual bool Paint(MDrawer& drawer);
    /// What `Paint` covers with opaque pixels, whatever lies behind; it may be less. Whoever paints otherwise than the
    /// style overrides both.
    [[nodiscard]] virtual MRect GetOpaquePart();
    virtual void PaintContent(MDrawer&) {}
    /// Whether neither of them paints anything now, nor will before the look changes: such a control needs no bitmap.
    [[nodiscard]] virtual bool PaintsNothing() { return GetControlType() == MControlType::Empty; }
    virtual void Invalidate();
    virtual void WriteHelpInfo(MXMLItem& item);
    [[nodiscard]] virtual bool IsModifiedByUser() { return false; }
    virtual void ShowHelp(MControl& source);
    virtual void ResetToDefault();
    virtual void OnPrepared() {}
    virtual void ExecuteOnChange();
    [[nodiscard]] virtual bool HasOnChangeHandlers();
    /// Sees an event before the child `target`, null for none, does. The way of an event is told in
    /// MControlRouting.cpp. These return whether they have consumed it.
    virtual bool PreviewEvent(MControl* target, const MSystemEvent& event);
    virtual bool ProcessGlobalEvent(const MSystemEvent& event);
    virtual bool ProcessEvent(const MSystemEvent& event);
    [[nodiscard]] virtual bool CanClose();
    virtual void OnClosed() {}
    [[nodiscard]] virtual bool OnDragOver(MControl& source, MPoint point);
    [[nodiscard]] virtual bool OnDropAccepted(MControl& source, MPoint point);
    /// At the source, when it was dropped on `target`, or null, which took it or not.
    virtual void OnDragFinished(MControl* target, MPoint point, bool accepted);
    virtual void OnCaptureLost();
    virtual void OnMouseEnter();
    virtual void OnMouseLeave();
    [[nodiscard]] virtual MStdCursor GetCursorAt(MPoint point);
    /// Of a control that can have the focus: whether the walk by the keyboard gives it that.
    [[nodiscard]] virtual bool IsReachedByTab() { return true; }
    /// Has what scrolls this control show a rectangle of it, in own coordinates. What the keyboard goes to is
    /// shown so.
    virtual void Reveal(const MRect& rect);
    virtual void OnHidden() {}
    /// Shows a root over `parent`, or null, and returns when it was closed: `Cancel` for one that has no
    /// window, runs already or has ended meanwhile. Then the parent is active again, unless the user has gone
    /// to another program.
    virtual MModalValue RunModal(MControl* parent);
    virtual void ShowModeless(MControl* parent);
    virtual void BeginWindowResize(MPoint point, uint8_t borders);
    virtual void BeginWindowMove(MPoint point);
    /// The platform has given the window another size.
    virtual void OnWindowSized(MPoint newSize);
    /// Of a frameless window: what can be dragged there, of `MWindowBorder`.
    [[nodiscard]] virtual uint8_t HitTestWindowBorder(MPoint point);
    [[nodiscard]] virtual bool OnFilesDropped(const MList<MString>& files);
    /// Returns whether anything was written.
    virtual bool SaveState(MXMLItem& item);
    virtual void LoadState(MXMLItem& item);
    virtual void ResetState() {}
    /// What the user has set a control with `SaveValue` to; called by `SaveState` and `LoadState`.
    virtual void SaveValueState(MXMLItem&) {}
    virtual void LoadValueState(MXMLItem&) {}

    // ---- The tree (MControl.cpp).

    [[nodiscard]] const MString& GetName() const { return name; }
    void SetName(const MString& newName) { name = newName; }
    [[nodiscard]] MControl* GetParent() const { return parent; }
    [[nodiscard]] MControl& GetRoot() const { return *root; }
    [[nodiscard]] bool IsRoot() const { return root == this; }
    [[nodiscard]] const ControlList& GetChildren() const { return children; }
    /// Whether this is `other` or one of its parents.
    [[nodiscard]] bool Holds(const MControl* other) const;
    /// What only roots have; that of this control's root.
    [[nodiscard]] MControlRoot& GetRootState() const;
    [[nodiscard]] MStyle* GetStyle() const;
    [[nodiscard]] bool Is(MControlFlag flag) const { return flags.Has(flag); }
    /// For flags without an operation of their own.
    void Set(MControlFlag flag, bool isOn = true) { flags.Set(flag, isOn); }
    /// Moves all children and layouts of this control to another one, behind those that it has. Raises "A
    /// control cannot be moved into itself." (2).
    void Reparent(MControl& newParent);

    /// Something that others keep with a control, by a four-character key: owned, null for nothing.
    template <class T>
    [[nodiscard]] T* GetProperty(uint32_t key) const {
        return static_cast<T*>(FindProperty(key));
    }
    void SetProperty(uint32_t key, std::unique_ptr<MObject> property);

    // ---- What the control is (MControlAttributes.cpp).

    void SetVisible(bool isVisible);
    void SetEnabled(bool isEnabled);
    void SetCollapsed(bool isCollapsed);
    void SetControlType(MControlType type);
    [[nodiscard]] MControlType GetControlType() const { return controlType; }
    void SetFont(int32_t newFont);
    [[nodiscard]] int32_t GetFont() const { return font; }
    void SetCaption(const MString& text, MCaptionType type);
    [[nodiscard]] const MString& GetCaption() const { return caption; }
    [[nodiscard]] MCaptionType GetCaptionType() const { return captionType; }
    /// By itself and by all its parents.
    [[nodiscard]] bool IsEnabled() const {
        return Is(MControlFlag::Enabled) && Is(MControlFlag::ChildrenEnabled);
    }
    /// By itself and by all its parents.
    [[nodiscard]] bool IsVisible() const;
    /// Whether it is visible, and there is something of it to see.
    [[nodiscard]] bool IsShown() const;
    [[nodiscard]] bool HasFocus() const;

    /// Clicks and double clicks are in the order of the buttons.
    enum class Click { Left, Right, Middle, Press, LeftDouble, RightDouble, MiddleDouble, Count };
    [[nodiscard]] MEvent<MOnClickParams>& OnClick(Click click);
    enum class Change { Value, Intermediate, Committed, Count };
    [[nodiscard]] MEvent<MOnNotifyParams>& OnChange(Change change = Change::Value);
    [[nodiscard]] MEvent<MOnKeyboardShortcutParams, MKeyboardShortcut>& GetShortcuts();

    // ---- Sizes and places (MControlSizes.cpp, MControlArrange.cpp).

    /// Takes over a layout whose owner this is; layouts do it themselves.
    void AddLayout(MLayout* layout);
    [[nodiscard]] const MList<MLayout, MListPointers>& GetLayouts() const { return layouts; }
    /// The child that gets what the layouts leave, or null. Raises "Only a child can be the client control."
    /// (2).
    void SetClientControl(MControl* control);
    [[nodiscard]] MControl* GetClientControl() const { return clientControl; }
    /// What this control needs has changed: the tree has to be measured before it is arranged again.
    void TouchSizes() { root->flags.Set(MControlFlag::SizesValid, false); }
    /// Whether the parent gives this control its place: in a layout, or as its client control.
    [[nodiscard]] bool IsHeld() const;
    void SetSize(MPoint newSize);
    void SetPosition(MPoint newPosition);
    /// Calls `OnSizeChanged` of what has got another size in this window. Whoever measures or arranges by
    /// hand calls it in the end, without the lock.
    void NotifySizes();
    /// `size`, or what is left of it when the control is collapsed.
    [[nodiscard]] MPoint GetShownSize() const;
    /// Where the control's origin lies in its parent's own coordinates.
    [[nodiscard]] MPoint GetOffsetInParent() const;
    /// Measures the whole window.
    void ComputeSizes();
    /// Measures all below by their present sizes, for those that adapt, and lets them grow.
    void ComputeCurrentSize();
    [[nodiscard]] MPoint AdjustPlasticSize();
    /// The client area that all in it need: by their minimal sizes, or where it is given a width. Whatever
    /// the control shows itself is not counted.
    [[nodiscard]] MPoint MeasureLayouts(std::optional<int32_t> width);
    /// As `ComputePlasticSize`, from and to sizes with the frame.
    [[nodiscard]] int32_t GetPlasticSize(int32_t dimension, int32_t other);
    void ArrangeChildren();
    /// Gives a child its place in a rectangle of the client area.
    void PlaceControl(MControl& control, const MRect& rect);
    [[nodiscard]] MPoint GetOwnPoint(MPoint windowPoint) const { return windowPoint - windowOffset; }
    [[nodiscard]] MPoint GetWindowPoint(MPoint ownPoint) const { return ownPoint + windowOffset; }
    [[nodiscard]] MPoint GetScreenPoint(MPoint ownPoint) const;
    /// `contentRect` in window coordinates.
    [[nodiscard]] MRect GetWindowContentRect() const { return contentRect.Shifted(windowOffset); }

    // ---- Painting (MControlPaint.cpp).

    void InvalidateRect(const MRect& rect);
    /// Suppresses painting of the whole window; on thawing all of it is painted.
    void SetFrozen(bool isFrozen);
    /// Of a root: hands what is dirty to the platform, which paints it soon; or at once.
    void FlushPaint();
    void RedrawNow();
    /// What the platform's paint of a window runs.
    void PerformPaintDispatch();
    /// For renderers: paints a part of this control by a drawer in its own coordinates.
    void PaintWith(MDrawer& drawer);
    /// For renderers: adds to `pendingRect`. Returns false if it was in it.
    bool RecordDirty(const MRect& rect);

    // ---- Events (MControlRouting.cpp, MControlButtons.cpp, MControlCursor.cpp).

    /// The only entry for what the platform delivers. Returns whether the event was consumed.
    bool DispatchEvent(const MSystemEvent& event);
    /// The deepest control at a point of the window that takes events; this one at least.
    [[nodiscard]] MControl& FindControlAt(MPoint windowPoint);
    void UpdateCursor(MPoint ownPoint);

    // ---- Focus, capture, drag and drop (MControlFocus.cpp, MControlCapture.cpp).

    void SetFocus() { SetFocus(this); }
    /// To a control of this tree, if it can have the focus; or away, by null.
    void SetFocus(MControl* control);
    /// Whether it takes part in the walk by the keyboard, is enabled and is shown.
    [[nodiscard]] bool CanFocus() const;
    /// Return whether the focus went to another control.
    bool FocusNext();
    bool FocusPrevious();
    void RebuildTabOrder();
    void SetCapture(MControl* control);
    void ReleaseCapture();
    /// The control of this tree that has the mouse, or null.
    [[nodiscard]] MControl* GetCapture() const;
    void StartDragDrop();
    void FinishDragDrop(MPoint windowPoint);
    void CancelDragDrop();
    /// Offers files to the deepest control at a point of the window and then to its parents.
    bool DropFiles(const MList<MString>& files, MPoint windowPoint);

    // ---- The window of a root (MControlWindow.cpp, MControlFrame.cpp, MControlState.cpp).

    /// Makes the window, still hidden: over that of `windowParent`, or null; or inside of a foreign one, by
    /// its native handle. Raises what `MWindowSystem::CreateWindow` raises.
    void CreateWindow(MControl* windowParent, intptr_t nativeParent = 0);
    void DestroyWindow();
    /// Lays the tree out for being shown.
    void PrepareWindow();
    void ShowWindow();
    void HideWindow();
    void CloseWindow(MModalValue result);
    /// What the platform's close button does.
    void RequestClose();
    /// For long work: paints what is dirty in this window and handles what waits for it.
    void FlushMessagesOfThisWindow();
    /// The state of all below as a file of the user's, for roots with `AutoSaveState`. What fails is left
    /// out, and so is a root whose name is not that of a file.
    void SaveWindowState();
    void LoadWindowState();

    // ---- What layouts and styles read and set; changes count from the next layout on.

    MPoint position;
    MPoint size;
    MPoint minimalSize;
    MPoint maximalSize{Unlimited, Unlimited};
    MPoint minClientSize;
    MPoint collapsedSize;
    MPoint layoutOffset;
    MPoint clientOffset;
    MPoint windowOffset;
    MRect windowRect;   ///< the whole control
    MRect clientRect;   ///< where children are
    MRect contentRect;  ///< where the control paints and is hit
    MRect visibleRect;
    float scale = 1;
    MAlignment layoutPlacement = MAlignCenter;
    MPoint layoutRatio{100, 100};
    MPoint layoutBorder;           ///< on each side, in pixels of scale 100
    int32_t layoutSpaceAfter = 0;  ///< likewise
    uint16_t spanX = 1;
    uint16_t spanY = 1;
    MLayout* parentLayout = nullptr;  ///< the one that holds this control
    MControlRef linkedControl;        ///< follows this one's visibility and enablement, as its label
    std::unique_ptr<MContent> captionContent;
    MAlignment captionAlignment = MAlignLeft;
    MString help;
    MString infoText;

private:
    friend class MControlRef;
    friend class MLayout;

    // Of the tree.
    void RemoveChild(MControl& child);
    void SetRoot(MControl& newRoot);
    void PassEnabled();
    [[nodiscard]] MObject* FindProperty(uint32_t key) const;
    void AttachToStyle();
    /// Takes mouse and focus from this control and all below it, since it cannot have them any more.
    void WithdrawInput();
    void NotifyHidden();
    /// Null unless the root has a window.
    [[nodiscard]] MWindows* GetWindows() const;

    /// Without arranging anything; `NotifySizes` tells of it.
    void StoreSize(MPoint newSize);

    // Of painting. Returns what will be painted, in own coordinates.
    MRect PropagateDirty(const MRect& fromParent);
    void PaintTree(const MRect& windowClip);

    // Of events (MControlRouting.cpp, MControlButtons.cpp). Points are those of the window.
    bool Route(const MSystemEvent& event);
    [[nodiscard]] MControl* FindNextOnWay(const MSystemEvent& event) const;
    [[nodiscard]] MControl* FindChildAt(MPoint windowPoint) const;
    /// `isLast`: there is no child at the place.
    bool ProcessMouse(const MSystemEvent& event, bool isLast);
    bool ProcessHere(const MSystemEvent& event);
    bool ProcessGlobally(const MSystemEvent& event);
    bool ProcessKey(int32_t key, bool isDown, bool isShift);
    bool ProcessEscape(bool isDown);
    void TrackButtonsDown(const MSystemEvent& event);
    void TakeButton(const MSystemEvent& event);
    void TrackButtonsUp(const MSystemEvent& event, bool isConsumed);
    [[nodiscard]] static MControlFlag GetButtonFlag(MEventType type);
    void ClearButtons();
    void FireClick(size_t click, const MSystemEvent& event);
    bool FireShortcuts(const MSystemEvent& event, MShortcutPhase phase);
    void InvalidateHot();
    void UpdateHover(MPoint windowPoint);
    [[nodiscard]] MPoint GetMousePoint() const;
    void RefreshCursor();

    // Of focus, capture and drags.
    void SetFocusPath(MControl* control);
    bool MoveFocus(MControl* MControl::*direction);
    void AppendToTabOrder(MControl*& last);
    static void ClearCapture(MControlRoot& state);
    [[nodiscard]] bool DragOver(MControl& source, const MSystemEvent& event);
    void EndDrag(MControl* target, MPoint point, bool isAccepted);

    // Of a root's window.
    void AdvanceFrame();
    void EndFrame();
    void ApplyFrame();
    void DrawFrame();
    void SetWindowParent(MControl* windowParent);
    void OpenWindow(MControl* windowParent, bool isModal);
    void PlaceWindow();
    void NotifyPrepared();
    [[nodiscard]] MList<MControl, MListPointers> GetChildWindows() const;
    [[nodiscard]] bool HasOpenChildWindow() const;
    void LoadFrame(MXMLItem& item);

    MControlFlags flags;
    MControlType controlType = MControlType::Control;
    MCaptionType captionType = MCaptionType::Unset;
    MString name;
    MString caption;
    int32_t font = 0;
    MControl* parent;
    MControl* root;
    ControlList children;
    // What is to be painted, in own coordinates: recorded since the last paint, and in this one.
    MRect pendingRect;
    MRect paintRect;
    bool pendingFlag = false;
    bool paintFlag = false;
    bool isDirtyBelow = false;                ///< something is recorded for this control or one below
    bool isPaintedBelow = false;              ///< in this paint
    std::shared_ptr<MControlRoot> rootState;  ///< of a root
    MList<MLayout, MListPointers> layouts;    ///< owned
    MControl* clientControl = nullptr;
    MControl* tabNext = this;
    MControl* tabPrevious = this;
    MControl* focusChild = nullptr;  ///< the next one on the way to the focused control
    MControl* capture = nullptr;     ///< the next one on the way to the control that has the mouse
    MControlRef* references = nullptr;
    std::vector<std::pair<uint32_t, std::unique_ptr<MObject>>> properties;

    using ClickEvents = std::array<MEvent<MOnClickParams>, static_cast<size_t>(Click::Count)>;
    using ChangeEvents = std::array<MEvent<MOnNotifyParams>, static_cast<size_t>(Change::Count)>;
    std::unique_ptr<ClickEvents> clickEvents;  ///< made when the first handler comes
    std::unique_ptr<ChangeEvents> changeEvents;
    std::unique_ptr<MEvent<MOnKeyboardShortcutParams, MKeyboardShortcut>> shortcuts;
};
