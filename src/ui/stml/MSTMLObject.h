#pragma once

#include "ui/geometry/MPoint.h"
#include "ui/stml/MSTMLItem.h"
#include "ui/stml/MSTMLLength.h"

class MSTMLAttributes;

/// Something that stands in a line of text as a character does. Its height counts from the baseline upwards;
/// in a line that is higher it keeps to the side of its vertical alignment.
class MSTMLObject : public MSTMLItem {
public:
    /// Which way it keeps in a rectangle that is larger.
    enum class Alignment : uint8_t { Start, Center, End };

    [[nodiscard]] MSTMLObject* Clone() const override = 0;
    /// Takes "width", "height", "align" ("Left", "Center", "Right") and "valign" ("Top", "Center", "Bottom").
    void Read(const MSTMLAttributes& attributes);

    /// Without width and height of its own.
    [[nodiscard]] virtual MPoint GetNaturalSize(MSTMLContext& context) = 0;
    /// Paints exactly into a rectangle.
    virtual void PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) = 0;

    /// The natural size, raised to the object's own width and height, which may be shares of what there is.
    [[nodiscard]] MPoint GetSize(MSTMLContext& context, int32_t availableWidth, int32_t availableHeight);

    int32_t ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) override;
    int32_t ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) override;
    [[nodiscard]] int32_t GetMinimalWidth(MSTMLContext& context) override;
    [[nodiscard]] int32_t GetMaximalWidth(MSTMLContext& context) override;
    /// Paints the object, aligned in a cell that may be larger; its width may be a share of `availableWidth`,
    /// its height one of the cell's.
    void PaintInCell(MSTMLContext& context, const MRect& cell, int32_t availableWidth, bool isInverted);
    void Paint(MSTMLContext& context, const MRect& rect, bool isInverted) override;
    [[nodiscard]] bool HasContent() const override { return true; }

    void SetWidth(MSTMLLength newWidth) { width = newWidth; }

protected:
    /// A rectangle of a size where it is aligned in another one.
    [[nodiscard]] MRect GetAligned(const MRect& rect, MPoint size) const;

private:
    MSTMLLength width;
    MSTMLLength objectHeight;
    Alignment alignment = Alignment::Start;
    Alignment verticalAlignment = Alignment::Start;
};
