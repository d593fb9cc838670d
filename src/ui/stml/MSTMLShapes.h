#pragma once

#include "ui/stml/MSTMLColor.h"
#include "ui/stml/MSTMLObject.h"

/// A horizontal line with space around it, as wide as there is room.
class MSTMLLine final : public MSTMLObject {
public:
    /// Takes "size", its thickness, "color", "alpha", "hspace" and "vspace".
    explicit MSTMLLine(const MSTMLAttributes& attributes);

    [[nodiscard]] MSTMLLine* Clone() const override;
    [[nodiscard]] MPoint GetNaturalSize(MSTMLContext& context) override;
    void PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) override;

private:
    [[nodiscard]] int32_t GetThickness(MDrawer& drawer) const;

    int32_t size;
    MSTMLColor color;
    uint8_t alpha;
    int32_t hspace;
    int32_t vspace;
};

/// A rectangle, which has a size only by its "width" and "height".
class MSTMLRectangle final : public MSTMLObject {
public:
    /// Takes "color", by which it is filled, and "bordercolor"; both may be transparent.
    explicit MSTMLRectangle(const MSTMLAttributes& attributes);

    [[nodiscard]] MSTMLRectangle* Clone() const override;
    [[nodiscard]] MPoint GetNaturalSize(MSTMLContext&) override { return {1, 1}; }
    void PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) override;

private:
    MSTMLColor color;
    MSTMLColor borderColor;
};

/// A bar in a frame that shows a value in a scale.
class MSTMLIndicator final : public MSTMLObject {
public:
    /// Takes "value" and "middle", between which the bar is, the scale's ends "min" and "max", and "color"
    /// and "bordercolor" as a rectangle.
    explicit MSTMLIndicator(const MSTMLAttributes& attributes);

    [[nodiscard]] MSTMLIndicator* Clone() const override;
    [[nodiscard]] MPoint GetNaturalSize(MSTMLContext&) override { return {1, 1}; }
    void PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) override;

private:
    /// Where a value lies, as a number of pixels from the left.
    [[nodiscard]] int32_t GetPlace(double place, int32_t width) const;

    MSTMLColor color;
    MSTMLColor borderColor;
    double value;
    double min;
    double max;
    double middle;
};
