#pragma once

#include "ui/control/MControl.h"
#include "ui/image/MBitmap.h"
#include "ui/image/MColor.h"

/// A surface of colours, of which the user picks one by the mouse or by the arrow keys, with Ctrl in larger
/// steps. Raises `OnChange()`, and behind it `Change::Intermediate` while the mouse is down,
/// `Change::Committed` otherwise.
class MColorField : public MControl {
public:
    enum class Kind {
        HueAndSaturation,  ///< hues from left to right, saturated ones at the top
        Lightness,         ///< of one hue and saturation, from top to bottom
    };

    MColorField(MControl* parent, const MString& name, Kind kind);

    /// Raises nothing.
    void SetColor(const MHSL& newColor);
    [[nodiscard]] const MHSL& GetColor() const { return color; }

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] MFlexibility GetFlexibility() override { return MFlexibleBoth; }
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    /// The colour at a place of the surface, from 0 to 1 in both directions, and the place of the present
    /// one.
    [[nodiscard]] MHSL GetColorAt(MPointF place) const;
    [[nodiscard]] MPointF GetPlace() const;
    [[nodiscard]] MPointF GetPlaceOf(MPoint point) const;
    void DrawSurface();
    void Pick(MPointF place, Change kind);
    bool ProcessKey(const MSystemEvent& event);

    const Kind kind;
    MHSL color;
    MBitmap surface;
    MHSL surfaceColor;  ///< that it was drawn for
};
