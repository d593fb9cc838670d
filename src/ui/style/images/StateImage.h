#pragma once

#include "ui/style/images/GeneratedImage.h"
#include "ui/style/images/TexturedImage.h"

#include <cstdint>
#include <vector>

/// How a part of a control looks in one state: a picture of a file or, where there is none, a generated image,
/// and further generated images over that. What was made of them is kept, so that a paint only copies pixels.
class StateImage {
public:
    /// Adds what an element describes: a generated image by its attributes, others by its children "layer",
    /// a picture by its child "image", and changes of all colours by "changecontrast", "changebrightness",
    /// "changesaturation" and "multiplysaturation", each with a "value", in their order.
    /// Raises what `GeneratedImage::Load` raises.
    void Load(MXMLItem& item);

    /// What was loaded so far counts with an alpha, and what will be is laid over it with its own.
    void FixAlpha(uint8_t alpha);

    [[nodiscard]] bool IsEmpty() const { return layers.empty() && picture.GetId().IsEmpty(); }
    /// Raises what is wrong with the colours of generated images.
    void Check(const MStyleColors& colors) const;
    /// Raises as `Check`.
    void Paint(MDrawer& drawer, const MRect& rect, const MImageContext& context, uint8_t alpha);
    /// What `Paint` with an alpha of 255 covers with opaque pixels; it may be less.
    [[nodiscard]] MRect GetOpaquePart(const MRect& rect, const MImageContext& context);
    /// Forgets all pixels: colours or scale have changed.
    void Reset();

    /// In pixels of 100 percent.
    [[nodiscard]] MPoint GetSize() const;
    [[nodiscard]] MPoint GetMinimalSize() const;

private:
    struct ColorChange {
        MColor (*change)(MColor color, double value);
        double value;
    };

    /// What is generated for a control of some size: its corners, and as much of what lies between them as differs.
    struct Cut {
        MPoint size;
        int32_t margin = 1;
        bool isWhole = false;  ///< what lies between is more than one row or column
    };

    [[nodiscard]] bool HasLayers() const;
    [[nodiscard]] Cut GetCut(const MRect& rect, const MImageContext& context) const;
    void PaintLayers(MDrawer& drawer, const MRect& rect, const MImageContext& context, uint8_t alpha);
    [[nodiscard]] const MBitmap& FindBitmap(MPoint size, const MImageContext& context);
    [[nodiscard]] MBitmap Generate(MPoint size, const MImageContext& context) const;
    void ChangeColors(MBitmap& bitmap) const;

    struct Layer {
        GeneratedImage image;
        bool isGround = false;  ///< stands for the picture
    };
    /// Whether a layer is painted.
    [[nodiscard]] bool Counts(const Layer& layer) const { return texture.IsEmpty() || !layer.isGround; }

    std::vector<Layer> layers;
    size_t fixedLayers = 0;  ///< those at the bottom that have an alpha together
    uint8_t fixedAlpha = 255;
    TexturedImage picture;
    std::vector<ColorChange> changes;

    std::vector<MBitmap> bitmaps;  ///< of several sizes, the one made last at `newest`
    size_t newest = 0;
    MBitmap texture;
    bool isTextureLoaded = false;
};
