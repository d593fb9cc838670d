#include "ui/stml/MSTMLContainer.h"

#include "ui/text/MTextMeasure.h"

#include <algorithm>

MSTMLContainer::MSTMLContainer(const MSTMLContainer& other) : MSTMLItem(other), fill(other.fill) {
    for (const auto& item : other.items) items.push_back(std::unique_ptr<MSTMLItem>(item->Clone()));
}

MSTMLContainer* MSTMLContainer::Clone() const {
    return new MSTMLContainer(*this);
}

int32_t MSTMLContainer::ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) {
    int32_t sum = 0;
    for (const auto& item : items)
        sum = MAddPixels(sum, item->ComputeHeight(context, width, std::max(0, maxHeight - sum)));
    return height = std::min(sum, maxHeight);
}

int32_t MSTMLContainer::ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) {
    MSTMLMeasure& known = width < MSTMLUnlimited ? last : natural;
    if (!known.Holds(context, width)) {
        MSTMLMeasure measure{context.mark, width, 0, 0};
        for (const auto& item : items) {
            int32_t itemWidth = 0;
            measure.height = MAddPixels(measure.height, item->ComputeSize(context, width, itemWidth));
            measure.outWidth = std::max(measure.outWidth, itemWidth);
        }
        known = measure;
    }
    outWidth = known.outWidth;
    return known.height;
}

int32_t MSTMLContainer::GetMinimalWidth(MSTMLContext& context) {
    if (!minimal.Holds(context, 0)) {
        MSTMLMeasure measure{context.mark, 0, 0, 0};
        for (const auto& item : items)
            measure.outWidth = std::max(measure.outWidth, item->GetMinimalWidth(context));
        minimal = measure;
    }
    return minimal.outWidth;
}

int32_t MSTMLContainer::GetMaximalWidth(MSTMLContext& context) {
    int32_t width = 0;
    for (const auto& item : items) width = std::max(width, item->GetMaximalWidth(context));
    return width;
}

void MSTMLContainer::Paint(MSTMLContext& context, const MRect& rect, bool isInverted) {
    PaintItems(context, rect, fill.PaintFill(context.drawer, rect, isInverted));
}

void MSTMLContainer::PaintItems(MSTMLContext& context, const MRect& rect, bool isInverted) {
    int32_t top = rect.top;
    for (const auto& item : items) {
        const int32_t bottom = MAddPixels(top, item->GetHeight());
        item->Paint(context, {rect.left, top, rect.right, bottom - 1}, isInverted);
        top = bottom;
    }
}

bool MSTMLContainer::HasContent() const {
    return std::ranges::any_of(items, [](const auto& item) { return item->HasContent(); });
}
