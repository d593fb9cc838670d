#pragma once

#include "foundation/text/MString.h"
#include "foundation/values/MValueEnum.h"
#include "ui/drawing/MGradient.h"
#include "ui/drawing/MOutlines.h"
#include "ui/image/MBitmap.h"
#include "ui/image/MColorOp.h"
#include "ui/style/colors/MStyleColors.h"
#include "ui/style/images/MImageContext.h"

#include <cstdint>
#include <vector>

class MXMLItem;

/// What a generated image is drawn as. All but the rectangle keep their proportions and stand in the middle.
enum class MGeneratedShape : uint8_t {
    Rectangle,
    Circle,
    Check,
    Dash,
    TriangleLeft,
    TriangleRight,
    TriangleUp,
    TriangleDown
};

inline constexpr const char* MGeneratedShapeNames[] = {
    "rectangle", "circle", "check", "dash", "triangleleft", "triangleright", "triangleup", "triangledown"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MGeneratedShape> = MGeneratedShapeNames;

/// How the corners of a rectangle are cut. Of the exterior kinds only what is cut away is painted.
enum class MCornerType : uint8_t { Round, RoundExterior, Triangle, TriangleExterior };

inline constexpr const char* MCornerTypeNames[] = {"Round", "Round exterior", "Triangle",
                                                   "Triangle exterior"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MCornerType> = MCornerTypeNames;

/// Which corners are cut, the others being right angles; or which edges have a line.
enum class MCornerSide : uint8_t { All, Top, Bottom, Left, Right };

inline constexpr const char* MCornerSideNames[] = {"all", "top", "bottom", "left", "right"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MCornerSide> = MCornerSideNames;

/// A picture that a definition describes in place of a file: a shape, and a rectangle in it. Lengths are
/// those of 100 percent. See docs/style.md for its attributes.
class GeneratedImage {
public:
    /// What cannot be read is as if it was not there, but for colours and the mode.
    /// Raises what `MParseColorOp` raises.
    void Load(MXMLItem& item);
    /// Raises what `MColor::Parse` raises for a text that is neither digits nor the name of a colour.
    void Check(const MStyleColors& colors) const;

    /// Whether anything of it can be seen.
    [[nodiscard]] bool IsEmpty() const { return color.IsEmpty() && rectangleColor.IsEmpty(); }
    /// Combines the image with what the bitmap, which is as large as the control, holds. Raises as `Check`.
    void Draw(MBitmap& bitmap, const MImageContext& context) const;
    /// How many pixels at each edge are more than a repetition of the middle.
    [[nodiscard]] int32_t GetMargin(const MImageContext& context) const;
    /// Whether the image looks different at each width, or at each height.
    [[nodiscard]] bool DependsOnWidth() const;
    [[nodiscard]] bool DependsOnHeight() const;

    [[nodiscard]] MPoint GetSize() const { return {width, height}; }
    /// The least size, in pixels of 100 percent: that of two corners, where the definition wants that.
    [[nodiscard]] MPoint GetMinimalSize() const;

private:
    using Outlines = std::vector<MOutlines::Outline>;

    [[nodiscard]] Outlines GetOutlines(const MRect& rect, int32_t corner, int32_t line) const;
    [[nodiscard]] MOutlines::Outline GetCutRectangle(const MRect& rect, int32_t corner, int32_t inset) const;
    /// Leaves of a layer, which is filled in one colour, what lies at one edge.
    void KeepEdge(MBitmap& layer, int32_t line) const;
    void Fill(MBitmap& bitmap, const MRect& rect, const Outlines& outlines, const MString& text,
              const MColorTransfer& transfer, bool hasGradient, const MImageContext& context) const;
    [[nodiscard]] MColor GetColor(const MString& text, const MColorTransfer& transfer,
                                  const MImageContext& context) const;

    int32_t width = 0;
    int32_t height = 0;
    bool isMinimalSizeByCorners = false;
    int32_t cornerSize = 0;
    int32_t lineWidth = 0;
    MGeneratedShape shape = MGeneratedShape::Rectangle;
    MCornerType cornerType = MCornerType::Round;
    MCornerSide corners = MCornerSide::All;
    MCornerSide edge = MCornerSide::All;  ///< the only one that a line is drawn at
    uint8_t alpha = 255;
    MColorOp operation = MColorOp::None;
    MString color;
    MString rectangleColor;
    MString gradient;  ///< the colour at the far end
    MGradientDirection gradientType = MGradientDirection::Vertical;
    MColorTransfer transfer;
    MColorTransfer rectangleTransfer;
    MPoint rectangleBorder;
    MPoint rectangleOffset;
    MPoint offset;
    int32_t outset = 0;
    bool keepsLightness = false;
};
