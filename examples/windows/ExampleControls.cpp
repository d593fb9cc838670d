#include "examples/windows/ExampleControls.h"

#include "foundation/base/MBuffer.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/windows/MWindows.h"
#include "ui/text/MFont.h"

#include <algorithm>
#include <cstdlib>

ExampleButton::ExampleButton(MControl* parent, const MString& caption, std::function<void()> action)
    : MControl(parent, caption), action(std::move(action)) {
    SetControlType(MControlType::Button);
    SetCaption(caption, MCaptionType::Normal);
    Set(MControlFlag::HotTrack);
    Set(MControlFlag::Pressable);
    layoutRatio = {0, 0};
    OnClick(Click::Left).Connect(this, &ExampleButton::OnClicked);
}

void ExampleButton::OnClicked(const MOnClickParams&) {
    action();
}

bool ExampleButton::ProcessEvent(const MSystemEvent& event) {
    if (event.type == MEventType::KeyDown && (event.key == MKeyEnter || event.key == MKeySpace)) {
        action();
        return true;
    }
    return event.IsMouse() ? true : MControl::ProcessEvent(event);
}

ExampleText::ExampleText(MControl* parent, const MString& text) : MControl(parent, "text") {
    SetControlType(MControlType::Edit);
    document.SetDefaults({.drawState = MDrawEnabled});
    document.Parse(text);
}

int32_t ExampleText::MeasureHeight(int32_t width) {
    MDrawerUsingStyle<MDrawer> drawer(*GetStyle(), *this);
    int32_t usedWidth = 0;
    return document.GetHeightForWidth(drawer, width, usedWidth);
}

int32_t ExampleText::ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) {
    return dimension == 1 ? MeasureHeight(otherDimensionSize) : otherDimensionSize;
}

void ExampleText::PaintContent(MDrawer& drawer) {
    MRect rect = clientRect.Shrunk(8, 6);
    const int32_t height = MeasureHeight(rect.GetWidth());
    rect.top -= scroll;
    rect.bottom = rect.top + height - 1;
    document.Paint(drawer, rect, false);
}

void ExampleText::ScrollTo(int32_t pixels) {
    const int32_t hidden = MeasureHeight(clientRect.GetWidth() - 16) - clientRect.GetHeight() + 12;
    scroll = std::clamp(pixels, 0, std::max(hidden, 0));
    Invalidate();
}

bool ExampleText::ProcessEvent(const MSystemEvent& event) {
    constexpr int32_t Step = 48;
    if (event.type == MEventType::Wheel) {
        ScrollTo(scroll - event.wheelDelta * Step);
        return true;
    }
    const bool isPageKey =
        event.type == MEventType::KeyDown && (event.key == MKeyPageUp || event.key == MKeyPageDown);
    if (!isPageKey) return MControl::ProcessEvent(event);
    const int32_t page = std::max(clientRect.GetHeight() - Step, Step);
    ScrollTo(scroll + (event.key == MKeyPageDown ? page : -page));
    return true;
}

ExampleEntry::ExampleEntry(MControl* parent, const MString& name, ExampleLog log)
    : MControl(parent, name), log(std::move(log)) {
    SetControlType(MControlType::Edit);
    layoutRatio.y = 0;
    minimalSize = {60, 22};
}

MFont& ExampleEntry::GetOwnFont() {
    MColor color;
    return *GetStyle()->GetFont(GetFont(), 0, false, MDrawEnabled, color);
}

MRect ExampleEntry::GetCaret() {
    return MRect::FromSize(clientRect.left + 4 + GetOwnFont().GetTextWidth(text), clientRect.top + 3, 2, 16);
}

void ExampleEntry::PaintContent(MDrawer& drawer) {
    MColor color;
    MFont* const ownFont = drawer.GetFont(GetFont(), 0, false, GetDrawState(), color);
    drawer.DrawText(clientRect.Shrunk(4, 0), *ownFont, text, color, MTextLeft | MTextMiddle);
    if (isCaretShown) drawer.FillRectangle(GetCaret(), color, MDrawMode::Copy);
}

MStdCursor ExampleEntry::GetCursorAt(MPoint) {
    return MStdCursor::IBeam;
}

void ExampleEntry::OnTimer() {
    isCaretShown = !isCaretShown;
    InvalidateRect(GetCaret());
}

void ExampleEntry::SetText(const MString& newText) {
    text = newText;
    log(MString("text ") + text);
    Invalidate();
}

void ExampleEntry::UseClipboard(int32_t key) {
    MWindowSystem& system = MWindows::GetInstance()->GetSystem();
    if (key == 'C') {
        const std::string bytes = MEncodeUTF8Exact(text);
        MBuffer data;
        data.Resize(static_cast<int32_t>(bytes.size()));
        std::copy(bytes.begin(), bytes.end(), static_cast<char*>(data.EditBlock()));
        system.SetClipboard(MWindowSystem::TextFormat, data);
        log("copied");
        return;
    }
    if (!system.HasClipboard(MWindowSystem::TextFormat)) return;
    const MBuffer data = system.GetClipboard(MWindowSystem::TextFormat);
    SetText(text + MDecodeUTF8Exact(
                       {static_cast<const char*>(data.GetBlock()), static_cast<size_t>(data.GetSize())}));
    log(MFormat("pasted {0}", text.GetLength()));
}

bool ExampleEntry::ProcessEvent(const MSystemEvent& event) {
    switch (event.type) {
    case MEventType::GotFocus:
        StartTimer(BlinkTime);
        isCaretShown = true;
        Invalidate();
        return true;
    case MEventType::LostFocus:
        StopTimer();
        isCaretShown = false;
        Invalidate();
        return true;
    case MEventType::KeyDown:
        if (event.Has(MModifierControl) && (event.key == 'C' || event.key == 'V')) {
            UseClipboard(event.key);
            return true;
        }
        if (event.key == MKeyBackspace && !text.IsEmpty()) {
            SetText(text.Substring(0, text.GetLength() - 1));
            return true;
        }
        return MControl::ProcessEvent(event);
    case MEventType::Character:
        if (event.character < u' ' || event.Has(MModifierControl)) return false;
        SetText(text + MString::Copy(&event.character, 1));
        return true;
    default: return event.IsMouse() ? true : MControl::ProcessEvent(event);
    }
}

ExampleChip::ExampleChip(MControl* parent, const MString& caption, ExampleLog log)
    : MControl(parent, caption), log(std::move(log)) {
    SetControlType(MControlType::Button);
    SetCaption(caption, MCaptionType::Normal);
    layoutRatio = {0, 0};
}

bool ExampleChip::ProcessEvent(const MSystemEvent& event) {
    constexpr int32_t DragDistance = 4;
    if (event.type == MEventType::LeftDown) pressPoint = event.point;
    const MPoint moved = event.point - pressPoint;
    const bool isFarEnough = std::abs(moved.x) > DragDistance || std::abs(moved.y) > DragDistance;
    MWindows* const windows = MWindows::GetInstance();
    if (event.type == MEventType::MouseMove && Is(MControlFlag::LeftDown) && isFarEnough &&
        !windows->dragSource) {
        log(MString("drag ") + GetName());
        StartDragDrop();
    }
    return event.IsMouse() ? true : MControl::ProcessEvent(event);
}

void ExampleChip::OnDragFinished(MControl* target, MPoint, bool accepted) {
    log(MFormat("dropped {0} on {1}: {2}", GetName(), target ? target->GetName() : MString("nothing"),
                accepted ? "taken" : "refused"));
}

ExampleTarget::ExampleTarget(MControl* parent, ExampleLog log)
    : MControl(parent, "target"), log(std::move(log)) {
    SetControlType(MControlType::ListBox);
    SetCaption("Drop here", MCaptionType::Normal);
    minimalSize = {120, 48};
}

bool ExampleTarget::OnDragOver(MControl&, MPoint) {
    return true;
}

bool ExampleTarget::OnDropAccepted(MControl& source, MPoint) {
    SetCaption(source.GetName(), MCaptionType::Normal);
    return true;
}

bool ExampleTarget::OnFilesDropped(const MList<MString>& files) {
    for (const MString& file : files) log(MString("file ") + file);
    SetCaption(MFormat("{0} files", files.GetCount()), MCaptionType::Normal);
    return true;
}
