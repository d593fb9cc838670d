#pragma once

#include "ui/stml/MSTMLFill.h"
#include "ui/stml/MSTMLItem.h"

#include <cstdint>
#include <memory>
#include <vector>

/// Items one below the other.
class MSTMLContainer : public MSTMLItem {
public:
    MSTMLContainer() = default;
    MSTMLContainer(const MSTMLContainer& other);
    MSTMLContainer& operator=(const MSTMLContainer&) = delete;

    /// Adds a new item at the end, which the container owns.
    template <class Item>
    Item& Add(std::unique_ptr<Item> item) {
        Item& added = *item;
        items.push_back(std::move(item));
        return added;
    }

    [[nodiscard]] MSTMLContainer* Clone() const override;
    int32_t ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) override;
    int32_t ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) override;
    [[nodiscard]] int32_t GetMinimalWidth(MSTMLContext& context) override;
    [[nodiscard]] int32_t GetMaximalWidth(MSTMLContext& context) override;
    void Paint(MSTMLContext& context, const MRect& rect, bool isInverted) override;
    [[nodiscard]] bool HasContent() const override;

    MSTMLFill fill;

protected:
    void Clear() { items.clear(); }
    /// The items, without ground.
    void PaintItems(MSTMLContext& context, const MRect& rect, bool isInverted);

private:
    std::vector<std::unique_ptr<MSTMLItem>> items;
    // Rows ask their cells for sizes again and again; nested ones would without these measure what is in the
    // innermost as often as two to the power of their depth.
    MSTMLMeasure natural;
    MSTMLMeasure last;     ///< for a width that was asked for
    MSTMLMeasure minimal;  ///< of which only `outWidth` counts
};
