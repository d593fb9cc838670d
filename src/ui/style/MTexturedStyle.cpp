#include "ui/style/MTexturedStyle.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/control/MControl.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/style/captions/ControlCaptionInstance.h"
#include "ui/style/images/MImageContext.h"

#include <algorithm>

namespace {

/// The element of a class of controls; those that have none are painted by nobody.
std::optional<MStyleClass> GetStyleClass(MControlType type) {
    switch (type) {
    case MControlType::Empty:
    case MControlType::NoBackground: return std::nullopt;
    case MControlType::Static: return MStyleClass::Static;
    case MControlType::Window: return MStyleClass::Window;
    case MControlType::Panel: return MStyleClass::Panel;
    case MControlType::Control: return MStyleClass::Control;
    case MControlType::Button:
    case MControlType::Switcher: return MStyleClass::Button;
    case MControlType::CaptionButton: return MStyleClass::CaptionButton;
    case MControlType::CheckBox: return MStyleClass::CheckBox;
    case MControlType::Tracker: return MStyleClass::Tracker;
    case MControlType::Rotator: return MStyleClass::Rotator;
    case MControlType::Knob: return MStyleClass::Knob;
    case MControlType::HScrollBar: return MStyleClass::HScrollBar;
    case MControlType::VScrollBar: return MStyleClass::VScrollBar;
    case MControlType::Edit: return MStyleClass::Edit;
    case MControlType::ProgressBar: return MStyleClass::ProgressBar;
    case MControlType::ListBox: return MStyleClass::ListControl;
    case MControlType::TreeControl: return MStyleClass::TreeControl;
    case MControlType::TabSet: return MStyleClass::TabSet;
    case MControlType::Menu: return MStyleClass::Menu;
    case MControlType::MenuBar: return MStyleClass::MenuBar;
    }
    return std::nullopt;
}

/// Those that hold other controls: what is in them keeps its own room for the mark of the focus.
bool IsContainer(MControlType type) {
    return type == MControlType::Window || type == MControlType::Panel || type == MControlType::Menu;
}

/// Those that are painted by their value alone, at the place that they give it.
bool IsDial(MControlType type) {
    return type == MControlType::Knob || type == MControlType::Rotator;
}

}  // namespace

MTexturedStyle::MTexturedStyle(MWindows* owner, MResourceLibrary* builtIn, FontSource fontSource)
    : MBaseStyle(owner, DefaultName, builtIn, fontSource) {}

MTexturedStyle::~MTexturedStyle() = default;

MString MTexturedStyle::GetInfo() {
    return MTranslate("Universal textured style using XML definition");
}

void MTexturedStyle::LoadStyle() {
    MGuard("Load style", [this] {
        const MString file = GetSettingsFile();
        if (file.IsEmpty() || !MFile::IsFile(file)) return;
        MXMLItem item;
        item.LoadFile(file);
        settings.Load(item);
    });
    ChooseStyle();
}

void MTexturedStyle::LoadFromSettings(MXMLItem& item) {
    settings.Load(item);
    if (isLoaded && libraryName == settings.style)
        ApplySettings();
    else
        ChooseStyle();
    RefreshWindows();
}

std::unique_ptr<MResourceLibrary> MTexturedStyle::OpenLibrary(const MString& name) {
    const MString file = name + ".mstyle";
    if (!MIsSafeFileName(file)) MRaise(MExceptionGeneral, "Invalid name of a style ({0}).", name);
    auto opened = std::make_unique<MResourceLibrary>();
    opened->LoadFile(MFile::Join(GetStyleDirectory(), file));
    return opened;
}

bool MTexturedStyle::TryStyle(const MString& name) {
    return MGuard("Load style", [&] {
        const bool isBuiltIn = GetBuiltIn() && name == DefaultName;
        std::unique_ptr<MResourceLibrary> opened = isBuiltIn ? nullptr : OpenLibrary(name);
        MResourceLibrary& source = isBuiltIn ? *GetBuiltIn() : *opened;
        SetResources(&source);
        LoadDefinition(source.GetRoot());
        library = std::move(opened);
        libraryName = name;
        settings.style = name;
    });
}

/// The style of the settings, the default one, or any.
void MTexturedStyle::ChooseStyle() {
    const MString wanted = settings.style;
    if (TryStyle(wanted)) return;
    if (!(wanted == DefaultName) && TryStyle(DefaultName)) return;
    for (const MString& name : ListStyles())
        if (TryStyle(name)) return;
    const bool hasFonts = !GetBuiltIn() || GetFontTable()->Get(0);
    Unload();
    if (!hasFonts) MRaise(MExceptionGeneral, "No fonts are available on the system.");
    MRaise(MExceptionGeneral, "No styles are available. Please reinstall the software.");
}

void MTexturedStyle::LoadDefinition(MXMLItem& definition) {
    if (!(definition.GetName() == "mstyle"))
        MRaise(MExceptionGeneral, "Invalid style definition, the root is \"{0}\".", definition.GetName());
    isLoaded = false;
    auto copy = std::make_unique<MXMLItem>();
    copy->CopyFrom(definition);
    root = std::move(copy);
    for (size_t i = 0; i < looks.size(); ++i) looks[i].Load(root->FindSubItem(MStyleClassNames[i]), *root);
    MBaseStyle::LoadDefinition(*root);
    // A colour that cannot be read would keep windows from being painted.
    for (const MClassLook& look : looks) look.Check(GetColors());
    isLoaded = true;
}

void MTexturedStyle::Unload() {
    isLoaded = false;
    MBaseStyle::Unload();
    for (MClassLook& look : looks) look = MClassLook();
    root.reset();
    library.reset();
    libraryName = MString();
    SetResources(GetBuiltIn());
}

void MTexturedStyle::ResetImages() {
    for (MClassLook& look : looks) look.Reset();
}

MImageContext MTexturedStyle::GetContext() const {
    return {GetResources(), GetColors(), GetScale(), 0};
}

MClassLook& MTexturedStyle::GetLook(MStyleClass styleClass) {
    if (!isLoaded) MRaise(MExceptionGeneral, "Style resources have not been loaded.");
    return looks[static_cast<size_t>(styleClass)];
}

MClassLook* MTexturedStyle::FindLook(MControl& control) {
    const std::optional<MStyleClass> found = GetStyleClass(control.GetControlType());
    return found ? &GetLook(*found) : nullptr;
}

ControlStyle* MTexturedStyle::FindStyle(MControl& control) {
    MClassLook* const look = FindLook(control);
    if (!look || IsDial(control.GetControlType())) return nullptr;
    ControlStyle* special = nullptr;
    if (control.IsEnabled() && control.Is(MControlFlag::DefaultButton))
        special = look->Find(MStylePiece::Default);
    if (!special && control.Is(MControlFlag::Checked)) special = look->Find(MStylePiece::Checked);
    if (!special && !GetColors().IsInverted()) special = look->Find(MStylePiece::ImageDark);
    return special ? special : &look->GetImage();
}

bool MTexturedStyle::IsInverted(MControl& control) {
    const bool isInverted = MBaseStyle::IsInverted(control);
    ControlStyle* const style = FindStyle(control);
    if (!style) return isInverted;
    const bool isClicked = style->isInvertedClicked && (control.GetDrawState() & MDrawClicked);
    return isInverted != (style->isInverted || isClicked);
}

MBaseStyle::Frame MTexturedStyle::GetFrame(MControl& control) {
    Frame frame;
    if (ControlStyle* const style = FindStyle(control)) {
        const MStyleScale scale = GetScale();
        const int32_t focus = IsContainer(control.GetControlType()) ? 0 : scale.GetLine(style->focusBorder);
        const int32_t x = focus + scale.GetLine(style->border.x);
        const int32_t y = focus + scale.GetLine(style->border.y);
        frame = {x, y, x, y};
    }
    if (MCaptionLook* const caption = FindCaption(control)) {
        const int32_t below = GetScale().GetY(caption->contentTopBorder);
        const bool isWindow = control.GetControlType() == MControlType::Window;
        frame.top = GetCaptionHeight(control) + below + (isWindow ? frame.top : 0);
        frame.bottom = std::max(frame.bottom, GetScale().GetY(caption->contentBottomBorder));
    }
    return frame;
}

MPoint MTexturedStyle::GetMinimalSize(MControl& control) {
    MPoint size = GetMinimalClassSize(control);
    if (ControlStyle* const style = FindStyle(control)) {
        const MPoint corners = GetScale().Get(style->GetMinimalSize());
        size = {std::max(size.x, corners.x), std::max(size.y, corners.y)};
    }
    if (control.GetControlType() == MControlType::Tracker) {
        // The thumb is whole, and can be moved.
        if (const ControlStyle* const thumb = GetLook(MStyleClass::Tracker).Find(MStylePiece::Selector)) {
            const int32_t length =
                GetScale().GetX(thumb->GetSize().x) + 2 * GetScale().GetLine(thumb->focusBorder);
            size = {std::max(size.x, length), std::max(size.y, length)};
        }
    }
    if (MCaptionLook* const caption = FindCaption(control)) {
        MColor color;
        MFont* const font = GetFont(caption->font, 0, false, MDrawEnabled, color);
        const ControlCaptionInstance* const instance = ControlCaptionInstance::Find(control);
        const int32_t title = font ? font->GetTextWidth(TransformCaption(control, control.GetCaption())) : 0;
        const int32_t text = std::min(title, GetMostTitleWidth()) + (instance ? instance->GetWidth() : 0);
        const int32_t borders =
            GetScale().GetX(caption->contentLeftBorder + caption->textOffset + caption->contentRightBorder);
        size = {std::max(size.x, text + borders), std::max(size.y, GetCaptionHeight(control))};
    }
    return size;
}

int32_t MTexturedStyle::GetMetric(int32_t index) {
    const int32_t value = MBaseStyle::GetMetric(index);
    const auto metric = static_cast<MStyleMetric>(index);
    if (metric != MStyleMetric::ListBoxItemCheckBoxSize && metric != MStyleMetric::TreeItemCheckBoxSize)
        return value;
    // A mark is at least as large as its picture.
    ControlStyle* const mark = GetLook(MStyleClass::ControlCheckBox).Find(MStylePiece::Off);
    return mark ? std::max(value, GetScale().GetX(mark->GetSize().x)) : value;
}

MPoint MTexturedStyle::GetCollapsedSize(MControl& control) {
    const Frame frame = GetFrame(control);
    const int32_t caption = GetCaptionHeight(control);
    return {0,
            caption > 0 ? caption + std::min(frame.bottom, GetScale().GetLine(3)) : frame.top + frame.bottom};
}

void MTexturedStyle::OffsetContent(MControl& control, MPoint& point) {
    ControlStyle* const style = FindStyle(control);
    if (!style) return;
    point = point + GetScale().Get(style->contentOffset);
    if (control.GetDrawState() & MDrawClicked) point.y += GetScale().GetLine(1);
}

MPoint MTexturedStyle::GetPieceSize(MClassLook& look, MStylePiece piece) const {
    const ControlStyle* const style = look.Find(piece);
    if (!style) return {};
    const MPoint size = GetScale().Get(style->GetSize());
    const int32_t focus = 2 * GetScale().GetLine(style->focusBorder);
    return {size.x + focus, size.y + focus};
}

MPoint MTexturedStyle::GetPartSize(MControl& control, MStylePart part) {
    const MStyleScale scale = GetScale();
    const auto getBorder = [&](MStyleClass styleClass) {
        ControlStyle* const item = GetLook(styleClass).Find(MStylePiece::Item);
        return item ? scale.Get(item->border) : MPoint();
    };
    switch (part) {
    case MStylePart::ScrollArrow:
    case MStylePart::ScrollThumb: {
        const bool isVertical = control.GetControlType() == MControlType::VScrollBar;
        MClassLook& look = GetLook(isVertical ? MStyleClass::VScrollBar : MStyleClass::HScrollBar);
        const MPoint border = scale.Get(look.GetImage().border);
        const int32_t arrow = scale.GetX(look.GetNumber("arrowsize", 10));
        const MPoint size{arrow + 2 * border.x, arrow + 2 * border.y};
        if (part == MStylePart::ScrollArrow) return size;
        const int32_t locator = scale.GetX(look.GetNumber("minlocatorsize", 8));
        return {std::max(locator, size.x), std::max(locator, size.y)};
    }
    case MStylePart::CheckMark: return GetPieceSize(GetLook(MStyleClass::CheckBox), MStylePiece::Off);
    case MStylePart::RadioMark: return GetPieceSize(GetLook(MStyleClass::RadioButton), MStylePiece::Off);
    case MStylePart::CheckMarkSpace:
        return {scale.GetX(GetLook(MStyleClass::CheckBox).GetNumber("contentspace", 4)), 0};
    case MStylePart::TabBorder: return getBorder(MStyleClass::TabSet);
    case MStylePart::MenuItemBorder: return getBorder(MStyleClass::Menu);
    case MStylePart::MenuBarItemBorder: return getBorder(MStyleClass::MenuBar);
    case MStylePart::ListItemBorder: return getBorder(MStyleClass::ListControl);
    case MStylePart::TreeIndent: {
        MClassLook& look = GetLook(MStyleClass::TreeControl);
        return {scale.GetX(look.GetNumber("indent", 16)), scale.GetY(look.GetNumber("expandersize", 12))};
    }
    case MStylePart::Knob: {
        const bool isRotator = control.GetControlType() == MControlType::Rotator;
        return GetPieceSize(GetLook(isRotator ? MStyleClass::Rotator : MStyleClass::Knob),
                            MStylePiece::Image);
    }
    case MStylePart::SwitcherButton:
        return scale.Get({GetLook(MStyleClass::Button).GetNumber("switcherbuttonx", 18),
                          GetLook(MStyleClass::Button).GetNumber("switcherbuttony", 13)});
    case MStylePart::Count: break;
    }
    return {};
}
