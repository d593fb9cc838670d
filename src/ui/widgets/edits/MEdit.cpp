#include "ui/widgets/edits/MEdit.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MHelpUsage.h"
#include "ui/widgets/edits/MKeyboardControl.h"
#include "ui/widgets/menus/MMenu.h"

namespace {

const MCharFilter::Interface* FindFilter(const MString& name) {
    static const MCharFilter::LettersFilter Letters;
    static const MCharFilter::AlphaStrictFilter AlphaStrict;
    static const MCharFilter::AlphaFilter Alpha;
    static const MCharFilter::IntegerFilter Integer;
    static const MCharFilter::IntegerHexaFilter IntegerHexa;
    static const MCharFilter::FloatFilter Float;
    static const struct {
        const char* name;
        const MCharFilter::Interface* filter;
    } Filters[] = {{"letters", &Letters}, {"alphastrict", &AlphaStrict}, {"alpha", &Alpha},
                   {"integer", &Integer}, {"integerhexa", &IntegerHexa}, {"float", &Float}};
    for (const auto& [filterName, filter] : Filters)
        if (name == filterName) return filter;
    return nullptr;
}

}  // namespace

MEdit::MEdit(MControl* parent, const MString& name) : MControl(parent, name) {
    SetControlType(MControlType::Edit);
    Set(MControlFlag::HotTrack);
    layoutRatio.y = 0;
    document.onReplaced = [this](const MEditChange& change) { OnReplaced(change); };
}

MEdit::~MEdit() = default;

void MEdit::SetText(const MString& text) {
    document.SetText(text);
    ScrollToCursor();
}

void MEdit::SetSelection(int32_t start, int32_t end) {
    const MTextRange before = GetSelection();
    document.Select(start, end);
    InvalidateSelection(before);
    ScrollToCursor();
}

void MEdit::SetReadOnly(bool newIsReadOnly) {
    isReadOnly = newIsReadOnly;
    ShowCaret();
    Invalidate();
}

void MEdit::SetShowChar(char16_t character) {
    showChar = character;
    Invalidate();
}

void MEdit::SetCenterText(bool newIsCentered) {
    isCentered = newIsCentered;
    Invalidate();
}

void MEdit::SetSelectionShown(bool newIsShown) {
    isSelectionShown = newIsShown;
    Invalidate();
}

void MEdit::SetMultiLine(bool isMultiLine) {
    layoutRatio.y = isMultiLine ? 100 : 0;
    document.SetMultiLine(isMultiLine);
    TouchSizes();
    Invalidate();
}

void MEdit::SetWrapLines(bool newIsWrapping) {
    isWrapping = newIsWrapping;
    scroll.x = 0;
    Invalidate();
}

void MEdit::LoadFromXml(MXMLItem& item) {
    const auto getFlag = [&](const char* attribute, bool defaultValue) {
        return item.GetInt32Attribute(attribute, defaultValue) != 0;
    };
    if (item.HasAttribute("multiline")) SetMultiLine(getFlag("multiline", false));
    SetWrapLines(getFlag("wraplines", isWrapping));
    SetReadOnly(getFlag("readonly", isReadOnly));
    SetCenterText(getFlag("centertext", isCentered));
    if (item.HasAttribute("maxlength")) SetMaximumLength(item.GetInt32Attribute("maxlength"));
    if (item.HasAttribute("showchar")) {
        const MString& shown = item.GetCachedAttribute();
        SetShowChar(shown.IsEmpty() ? u'\0' : char16_t{shown[0]});
    }
    if (item.HasAttribute("filter")) SetFilter(FindFilter(item.GetCachedAttribute()));
    if (getFlag("float", false)) SetFilter(FindFilter("float"));
    if (item.HasAttribute("text")) SetText(item.GetCachedAttribute());
    const int32_t cursor = item.GetInt32Attribute("cursorpos", GetCursor());
    SetSelection(item.GetInt32Attribute("selectionstart", cursor),
                 item.GetInt32Attribute("selectionend", cursor));
    MControl::LoadFromXml(item);
}

void MEdit::SaveValueState(MXMLItem& item) {
    if (!showChar) item.SetAttribute("text", GetText());
}

void MEdit::LoadValueState(MXMLItem& item) {
    if (showChar || !item.HasAttribute("text") || item.GetCachedAttribute().IsExactly(GetText())) return;
    SetText(item.GetCachedAttribute());
    RaiseChange();
}

void MEdit::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Shift+arrows/home/end</control> modifies selection.",
        "<control>Ctrl+C</control> copies selected text to clipboard.",
        "<control>Ctrl+V</control> pastes text from clipboard replacing selected text or inserting it into "
        "current cursor position.",
        "<control>Ctrl+A</control> selects the whole text.",
        "<control>Ctrl+Tab</control> inserts a tabulator character. This combination is provided because tab "
        "key alone moves keyboard focus to the next control.",
        "<control>Ctrl+X</control> moves selected text to clipboard.",
        "<control>Ctrl+Z</control> takes the last change back, <control>Ctrl+Y</control> makes it again.",
        "<control>Ctrl+left/right arrows</control> move the cursor by words, <control>double-click</control> "
        "selects a word.",
        "<control>Right mouse button</control> or the <control>menu key</control> shows a menu."};
    MWriteUsage(item, "Edit shows a text that you can change.", Entries);
}
