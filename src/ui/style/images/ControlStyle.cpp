#include "ui/style/images/ControlStyle.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MStyle.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int32_t LongestLength = 1024;
constexpr int32_t DeepestLikeness = 8;

constexpr const char* AlphaKeys[] = {"normalalpha",  "focusedalpha",   "hlalpha",      "focusedhlalpha",
                                     "clickedalpha", "clickedhlalpha", "disabledalpha"};
static_assert(std::size(AlphaKeys) == std::size(MImageStateNames));

int32_t GetLength(const MXMLItem& item, const char* attribute, int32_t defaultValue) {
    return std::clamp(item.GetInt32Attribute(attribute, defaultValue), -LongestLength, LongestLength);
}

MPoint GetPoint(const MXMLItem& item, const char* x, const char* y, MPoint defaultValue) {
    return {GetLength(item, x, defaultValue.x), GetLength(item, y, defaultValue.y)};
}

}  // namespace

MImageState ControlStyle::ComputeDrawState(uint8_t drawState) {
    const bool isHighlighted = drawState & MDrawHighlighted;
    if (!(drawState & MDrawEnabled)) return MImageState::Disabled;
    if (drawState & MDrawClicked)
        return isHighlighted ? MImageState::ClickedHighlighted : MImageState::Clicked;
    if (drawState & MDrawFocused)
        return isHighlighted ? MImageState::FocusedHighlighted : MImageState::Focused;
    return isHighlighted ? MImageState::Highlighted : MImageState::Normal;
}

void ControlStyle::Load(MXMLItem& item, MXMLItem& root) {
    if (item.HasAttribute("like") && depth < DeepestLikeness) {
        ++depth;
        MXMLItem* const other = root.FindSubItem(item.GetCachedAttribute());
        if (MXMLItem* const image = other ? other->FindSubItem("image") : nullptr) Load(*image, root);
    }
    border = GetPoint(item, "borderx", "bordery", border);
    contentOffset = GetPoint(item, "contentoffsetx", "contentoffsety", contentOffset);
    defaultLayoutBorder = GetPoint(item, "deflayoutborderx", "deflayoutbordery", defaultLayoutBorder);
    focusBorder = std::max(GetLength(item, "focusborder", focusBorder), 0);
    isInverted = item.GetInt32Attribute("inverted", isInverted) != 0;
    isInvertedClicked = item.GetInt32Attribute("invertclicked", isInvertedClicked) != 0;
    for (size_t i = 0; i < StateCount; ++i) {
        if (item.HasAttribute(AlphaKeys[i]))
            alphas[i] = static_cast<uint8_t>(std::clamp(item.GetInt32Attribute(AlphaKeys[i]), 0, 255));
    }
    for (MXMLItem* child : item.GetSubItems()) {
        for (size_t i = 0; i < StateCount; ++i) {
            if (!(child->GetName() == MImageStateNames[i])) continue;
            StateImage image;
            if (child->HasAttribute("like")) {
                const auto other =
                    static_cast<size_t>(MValueEnum<MImageState>::FromName(child->GetCachedAttribute()));
                image = images[other];
                image.FixAlpha(GetAlpha(other));
            }
            image.Load(*child);
            images[i] = std::move(image);
        }
    }
}

bool ControlStyle::IsEmpty() const {
    return std::ranges::all_of(images, [](const StateImage& image) { return image.IsEmpty(); });
}

void ControlStyle::Check(const MStyleColors& colors) const {
    for (const StateImage& image : images) image.Check(colors);
}

void ControlStyle::Reset() {
    for (StateImage& image : images) image.Reset();
}

size_t ControlStyle::FindPicture(MImageState state) const {
    using enum MImageState;
    // For each state those that stand in for it, the likest first.
    static constexpr MImageState Substitutes[][3] = {
        {Normal, Normal, Normal},       {Normal, Normal, Normal},      {Normal, Normal, Normal},
        {Focused, Highlighted, Normal}, {Highlighted, Normal, Normal}, {Clicked, Highlighted, Normal},
        {Normal, Normal, Normal}};
    const auto index = static_cast<size_t>(state);
    if (!images[index].IsEmpty()) return index;
    for (const MImageState other : Substitutes[index])
        if (!images[static_cast<size_t>(other)].IsEmpty()) return static_cast<size_t>(other);
    return 0;
}

void ControlStyle::Paint(MDrawer& drawer, const MRect& rect, uint8_t drawState,
                         const MImageContext& context) {
    const Choice choice = Choose(drawState, context);
    images[choice.picture].Paint(drawer, rect, choice.context, choice.alpha);
}

MRect ControlStyle::GetOpaquePart(const MRect& rect, uint8_t drawState, const MImageContext& context) {
    const Choice choice = Choose(drawState, context);
    return choice.alpha == 255 ? images[choice.picture].GetOpaquePart(rect, choice.context) : MRect();
}

ControlStyle::Choice ControlStyle::Choose(uint8_t drawState, const MImageContext& context) const {
    const MImageState state = ComputeDrawState(drawState);
    const size_t picture = FindPicture(state);
    Choice choice{picture, alphas[static_cast<size_t>(state)].value_or(GetAlpha(picture)), context};
    choice.context.faceBorder = context.scale.GetLine(focusBorder);
    return choice;
}

MPoint ControlStyle::GetSize() const {
    return images[0].GetSize();
}

MPoint ControlStyle::GetMinimalSize() const {
    return images[0].GetMinimalSize();
}
