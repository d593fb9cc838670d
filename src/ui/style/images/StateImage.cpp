#include "ui/style/images/StateImage.h"

#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/style/MStyleNumber.h"

#include <algorithm>

namespace {

/// So many sizes of one image are kept: those of the controls that are likely in one window.
constexpr size_t KeptBitmaps = 12;
/// No generated bitmap is longer; a larger control gets it stretched.
constexpr int32_t LongestSide = 1536;
/// No image has more layers, or more changes of colour.
constexpr int32_t MaximumLayers = 32;
/// How far one may go.
constexpr double Limit = 255;

struct NamedChange {
    const char* name;
    MColor (*change)(MColor color, double value);
};

constexpr NamedChange Changes[] = {
    {"changecontrast",
     [](MColor color, double value) { return color.WithContrast(static_cast<int32_t>(value)); }},
    {"changebrightness",
     [](MColor color, double value) { return color.WithBrightness(static_cast<int32_t>(value)); }},
    {"changesaturation",
     [](MColor color, double value) { return color.WithSaturation(static_cast<int32_t>(value)); }},
    {"multiplysaturation",
     [](MColor color, double value) { return color.WithSaturationTimes(std::max(value, 0.0)); }}};

}  // namespace

void StateImage::Load(MXMLItem& item) {
    const auto addLayer = [this](MXMLItem& description, bool isGround) {
        Layer layer{GeneratedImage(), isGround};
        layer.image.Load(description);
        if (!layer.image.IsEmpty() && layers.size() < MaximumLayers) layers.push_back(layer);
    };
    addLayer(item, true);
    for (MXMLItem* child : item.GetSubItems()) {
        if (child->GetName() == "layer") addLayer(*child, false);
        if (child->GetName() == "image") picture.Load(*child);
        for (const NamedChange& named : Changes)
            if (child->GetName() == named.name && changes.size() < MaximumLayers)
                changes.push_back(
                    {named.change, MLimitStyleNumber(MParseDouble(child->GetAttribute("value", MString())),
                                                     -Limit, Limit)});
    }
    Reset();
}

void StateImage::FixAlpha(uint8_t alpha) {
    fixedLayers = layers.size();
    fixedAlpha = alpha;
}

void StateImage::Reset() {
    bitmaps.clear();
    newest = 0;
    texture.Clear();
    isTextureLoaded = false;
}

MPoint StateImage::GetSize() const {
    MPoint size;
    for (const Layer& layer : layers)
        size = {std::max(size.x, layer.image.GetSize().x), std::max(size.y, layer.image.GetSize().y)};
    return size;
}

MPoint StateImage::GetMinimalSize() const {
    MPoint size = picture.GetMinimalSize();
    for (const Layer& layer : layers) {
        const MPoint own = layer.image.GetMinimalSize();
        size = {std::max(size.x, own.x), std::max(size.y, own.y)};
    }
    return size;
}

void StateImage::ChangeColors(MBitmap& bitmap) const {
    for (const ColorChange& change : changes)
        bitmap.ChangeColors([&](MColor color) { return change.change(color, change.value); });
}

MBitmap StateImage::Generate(MPoint size, const MImageContext& context) const {
    MBitmap bitmap(size.x, size.y);
    for (size_t i = 0; i < layers.size(); ++i) {
        if (Counts(layers[i])) layers[i].image.Draw(bitmap, context);
        if (i + 1 == fixedLayers && fixedAlpha != 255)
            bitmap.ChangeColors([this](MColor color) {
                return color.WithAlpha(static_cast<uint8_t>(color.alpha * fixedAlpha / 255));
            });
    }
    ChangeColors(bitmap);
    return bitmap;
}

void StateImage::Check(const MStyleColors& colors) const {
    for (const Layer& layer : layers) layer.image.Check(colors);
}

const MBitmap& StateImage::FindBitmap(MPoint size, const MImageContext& context) {
    for (const MBitmap& bitmap : bitmaps)
        if (size == MPoint{bitmap.GetWidth(), bitmap.GetHeight()}) return bitmap;
    if (bitmaps.size() < KeptBitmaps) {
        newest = bitmaps.size();
        bitmaps.emplace_back();
    } else {
        newest = (newest + 1) % KeptBitmaps;
    }
    bitmaps[newest] = Generate(size, context);
    return bitmaps[newest];
}

void StateImage::Paint(MDrawer& drawer, const MRect& rect, const MImageContext& context, uint8_t alpha) {
    if (rect.IsEmpty() || alpha == 0) return;
    if (!picture.GetId().IsEmpty()) {
        if (!isTextureLoaded) {
            texture = picture.Make(context);
            ChangeColors(texture);
            isTextureLoaded = true;
        }
        const int32_t border = context.faceBorder;
        if (!texture.IsEmpty())
            picture.Paint(drawer, rect.Shrunk(border, border), texture, context.scale, alpha,
                          MDrawMode::Alphablend);
    }
    if (HasLayers()) PaintLayers(drawer, rect, context, alpha);
}

bool StateImage::HasLayers() const {
    return std::ranges::any_of(layers, [this](const Layer& layer) { return Counts(layer); });
}

StateImage::Cut StateImage::GetCut(const MRect& rect, const MImageContext& context) const {
    // A frame is cut once: its corners, and one pixel of what lies between them.
    Cut cut;
    bool dependsOnWidth = false;
    bool dependsOnHeight = false;
    for (const auto& [image, isGround] : layers) {
        cut.margin = std::max(cut.margin, std::min(image.GetMargin(context), LongestSide / 2 - 1));
        dependsOnWidth = dependsOnWidth || image.DependsOnWidth();
        dependsOnHeight = dependsOnHeight || image.DependsOnHeight();
    }
    const auto getLength = [&](int32_t length, bool isExact) {
        return std::min(length, isExact ? LongestSide : 2 * cut.margin + 1);
    };
    cut.size = {getLength(rect.GetWidth(), dependsOnWidth), getLength(rect.GetHeight(), dependsOnHeight)};
    cut.isWhole = dependsOnWidth || dependsOnHeight;
    return cut;
}

MRect StateImage::GetOpaquePart(const MRect& rect, const MImageContext& context) {
    if (rect.IsEmpty() || !HasLayers()) return {};
    const Cut cut = GetCut(rect, context);
    const MRect within = MRect::FromSize(0, 0, cut.size.x, cut.size.y).Shrunk(cut.margin, cut.margin);
    // Looking at many pixels would take longer than painting what is behind.
    if (within.IsEmpty() || (within.GetWidth() > 1 && within.GetHeight() > 1)) return {};
    const MBitmap& bitmap = FindBitmap(cut.size, context);
    for (int32_t y = within.top; y <= within.bottom; ++y)
        for (int32_t x = within.left; x <= within.right; ++x)
            if (bitmap.GetPixel(x, y).alpha != 255) return {};
    return rect.Shrunk(cut.margin, cut.margin);
}

void StateImage::PaintLayers(MDrawer& drawer, const MRect& rect, const MImageContext& context,
                             uint8_t alpha) {
    const auto [size, margin, isWhole] = GetCut(rect, context);
    const MBitmap& bitmap = FindBitmap(size, context);
    // Of a mere frame nothing is painted within.
    const bool isHollow = !isWhole && bitmap.GetPixel(size.x / 2, size.y / 2).alpha == 0;
    drawer.PaintCornered(rect, bitmap, MRect::FromSize(0, 0, size.x, size.y), {margin, margin}, 0,
                         isHollow ? MDrawer::PartKept : 0, alpha, MDrawMode::Alphablend);
}
