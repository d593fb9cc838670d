#include "ui/widgets/content/MControlContent.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"

MControlContent::MControlContent(MControl* parent, const MString& name) : MControl(parent, name) {
    SetCaption({}, MCaptionType::None);
}

void MControlContent::OnContentChanged() {
    TouchSizes();
    if (!GetStyle() || !GetRoot().Is(MControlFlag::LayoutValid) || !IsVisible()) return;
    MPoint needed;
    if (Is(MControlFlag::Plastic))
        needed.y = ComputePlasticSize(1, clientRect.GetWidth());
    else
        GetMinimalContentSize(needed.x, needed.y);
    if (Is(MControlFlag::IgnoreWidthInLayout)) needed.x = 0;
    if (needed.x > clientRect.GetWidth() || needed.y > clientRect.GetHeight())
        UpdateLayout();
    else
        Invalidate();
}

MPoint MControlContent::GetContentBorder() {
    MStyle* const style = GetStyle();
    if (!style) return {};
    return {style->GetMetric(static_cast<int32_t>(MStyleMetric::XBorderInMContent)),
            style->GetMetric(static_cast<int32_t>(MStyleMetric::YBorderInMContent))};
}

MRect MControlContent::GetContentRectangle() {
    const MPoint border = GetContentBorder();
    MPoint offset;
    if (MStyle* const style = GetStyle()) style->OffsetContent(*this, offset);
    return clientRect.Shrunk(border.x, border.y).Shifted(offset);
}

MContent* MControlContent::GetContent() {
    const bool canHaveStrip = GetControlType() == MControlType::Panel;
    const bool isInStrip = canHaveStrip && GetCaptionType() != MCaptionType::None;
    if (!content && (isInStrip || GetCaption().IsEmpty())) return nullptr;
    MStyle* const style = GetStyle();
    shownCaption->text = style ? style->TransformCaption(*this, GetCaption()) : GetCaption();
    return content ? content.get() : shownCaption;
}

void MControlContent::SetContent(std::unique_ptr<MContent> newContent) {
    shownCaption = &captionText;
    content = std::move(newContent);
    OnContentChanged();
}

void MControlContent::SetText(const MString& text) {
    SetCaption(text, MCaptionType::None);
    SetContent(nullptr);
}

void MControlContent::SetIcon(MStdIcon icon) {
    SetContent(std::make_unique<MContentIcon>(icon));
}

void MControlContent::SetIconAndText(MStdIcon icon, const MString& text) {
    SetCaption(text, MCaptionType::None);
    auto caption = std::make_unique<MContentText>(text);
    MContentText* const besideIcon = caption.get();
    SetContent(std::make_unique<MContentPair>(std::make_unique<MContentIcon>(icon), std::move(caption)));
    shownCaption = besideIcon;
}

void MControlContent::SetContentAlignment(MAlignment alignment) {
    contentAlignment = alignment;
    Invalidate();
}

void MControlContent::SetContentColor(int32_t color) {
    contentColor = color;
    Invalidate();
}

void MControlContent::LoadFromXml(MXMLItem& item) {
    MControl::LoadFromXml(item);
    if (item.HasAttribute("caption") && !item.HasAttribute("captiontype")) SetText(MString(GetCaption()));
    if (!item.HasAttribute("icon")) return;
    const MStdIcon icon = MValueEnum<MStdIcon>::FromName(item.GetCachedAttribute());
    if (GetCaption().IsEmpty() || GetCaptionType() != MCaptionType::None)
        SetIcon(icon);
    else
        SetIconAndText(icon, GetCaption());
}

MContentLook MControlContent::GetContentLook() {
    MStyle* const style = GetStyle();
    return {.font = GetFont(),
            .color = contentColor,
            .drawState = GetDrawState(),
            .isInverted = style && style->IsInverted(*this),
            .alignment = GetContentAlignment()};
}

MPoint MControlContent::GetNeededSize(MContent* shown) {
    MStyle* const style = GetStyle();
    if (!shown || !style) return {};
    MDrawerUsingStyle<MDrawer> drawer(*style, *this);
    const MPoint size = shown->GetSize(drawer, GetContentLook());
    const MPoint border = GetContentBorder();
    return {MClampLength(int64_t{size.x} + 2 * border.x), MClampLength(int64_t{size.y} + 2 * border.y)};
}

void MControlContent::GetMinimalContentSize(int32_t& x, int32_t& y) {
    const MPoint needed = GetNeededSize(GetContent());
    x = needed.x;
    y = needed.y;
}

int32_t MControlContent::ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) {
    MContent* const shown = GetContent();
    MStyle* const style = GetStyle();
    if (!shown || !style) return 0;
    MDrawerUsingStyle<MDrawer> drawer(*style, *this);
    const MPoint border = GetContentBorder();
    const auto withBorder = [](int32_t length, int32_t side) {
        return MClampLength(int64_t{length} + 2 * side);
    };
    if (dimension == 0)
        return withBorder(
            shown->GetWidthForHeight(drawer, GetContentLook(), otherDimensionSize - 2 * border.y), border.x);
    return withBorder(shown->GetHeightForWidth(drawer, GetContentLook(), otherDimensionSize - 2 * border.x),
                      border.y);
}

void MControlContent::PaintContent(MDrawer& drawer) {
    MContent* const shown = GetContent();
    const MRect rect = GetContentRectangle();
    if (shown && !rect.IsEmpty()) shown->Paint(drawer, rect, GetContentLook());
}
