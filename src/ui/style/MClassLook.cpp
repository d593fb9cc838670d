#include "ui/style/MClassLook.h"

#include "foundation/xml/MXMLItem.h"

#include <algorithm>

namespace {

constexpr int32_t LongestLength = 1024;

constexpr std::array CaptionNames = {"smallcaption", "normalcaption", "largecaption"};

void LoadCaption(MCaptionLook& caption, MXMLItem& item, MXMLItem& root) {
    const auto getLength = [&](const char* attribute) {
        return std::clamp(item.GetInt32Attribute(attribute, 0), 0, LongestLength);
    };
    if (MXMLItem* const image = item.FindSubItem("image")) caption.image.Load(*image, root);
    caption.font = item.GetInt32Attribute("captionfont", 0);
    caption.height = getLength("captionheight");
    caption.topBorder = getLength("topborder");
    caption.contentTopBorder = getLength("contenttopborder");
    caption.contentBottomBorder = getLength("contentbottomborder");
    caption.contentLeftBorder = getLength("contentleftborder");
    caption.contentRightBorder = getLength("contentrightborder");
    caption.textOffset =
        std::clamp(item.GetInt32Attribute("captiontextoffset", 0), -LongestLength, LongestLength);
    caption.isCentered = item.GetInt32Attribute("centertext", 0) != 0;
    caption.imageHeight = getLength("captionimageheight");
    caption.isOnBackground = item.GetInt32Attribute("backgroundundercaption", 1) != 0;
    caption.isBlackOrWhite = item.GetInt32Attribute("captiontextcolorbw", 0) != 0;
    caption.isHighlighted = item.GetInt32Attribute("painthighcaption", 0) != 0;
}

}  // namespace

void MClassLook::Load(MXMLItem* item, MXMLItem& root) {
    image = ControlStyle();
    for (auto& piece : pieces) piece.reset();
    captions = {};
    MXMLItem* const other =
        item && item->HasAttribute("like") ? root.FindSubItem(item->GetCachedAttribute()) : nullptr;
    MXMLItem* const source = other ? other : item;
    element = source;
    if (!source) return;
    for (MXMLItem* child : source->GetSubItems()) {
        for (size_t i = 0; i < pieces.size(); ++i) {
            if (!(child->GetName() == MStylePieceNames[i])) continue;
            if (i == static_cast<size_t>(MStylePiece::Image)) {
                image.Load(*child, root);
                continue;
            }
            pieces[i] = std::make_unique<ControlStyle>();
            pieces[i]->Load(*child, root);
        }
        for (size_t i = 0; i < CaptionSizes; ++i)
            if (child->GetName() == CaptionNames[i]) LoadCaption(captions[i], *child, root);
    }
}

void MClassLook::Reset() {
    image.Reset();
    for (const auto& piece : pieces)
        if (piece) piece->Reset();
    for (MCaptionLook& caption : captions) caption.image.Reset();
}

void MClassLook::Check(const MStyleColors& colors) const {
    image.Check(colors);
    for (const auto& piece : pieces)
        if (piece) piece->Check(colors);
    for (const MCaptionLook& caption : captions) caption.image.Check(colors);
}

ControlStyle* MClassLook::Find(MStylePiece piece) {
    return piece == MStylePiece::Image ? &image : pieces[static_cast<size_t>(piece)].get();
}

MString MClassLook::GetText(const char* attribute) const {
    return element ? element->GetAttribute(attribute, MString()) : MString();
}

int32_t MClassLook::GetNumber(const char* attribute, int32_t defaultValue) const {
    if (!element) return defaultValue;
    return std::clamp(element->GetInt32Attribute(attribute, defaultValue), -LongestLength, LongestLength);
}
