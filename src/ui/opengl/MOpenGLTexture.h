#pragma once

#include "foundation/base/MObject.h"
#include "ui/geometry/MRect.h"

#include <cstdint>
#include <memory>
#include <vector>

class MBaseBitmap;
class MBitmap;
class MAlphaMask;
class MOpenGLDevice;
class MOpenGLNames;

/// A part of a picture on the graphics card: all of it, or a tile of one that is larger than a texture can
/// be.
class MOpenGLTexture final : public MObject {
public:
    /// Whether a texture has the size of what it shows, or the next powers of two.
    enum class SizeClass { Exact, PowersOfTwo };
    /// Whether pixels are those of the picture, with alphas as those of masks, or as `GetBlended` of
    /// MOpenGLColors.h has them.
    enum class Form { Plain, Blended };

    /// Makes a texture with the pixels of a part of a picture, direct and not empty, or of a mask. Raises
    /// "Error loading OpenGL texture: {0}" (0) with the error's number.
    MOpenGLTexture(MOpenGLDevice& device, const MBitmap& bitmap, const MRect& source, Form form);
    MOpenGLTexture(MOpenGLDevice& device, const MAlphaMask& mask, const MRect& source, Form);
    MOpenGLTexture(const MOpenGLTexture&) = delete;
    MOpenGLTexture& operator=(const MOpenGLTexture&) = delete;
    ~MOpenGLTexture() override;

    [[nodiscard]] uint32_t GetName() const { return name; }
    /// Which pixels of the picture it has.
    [[nodiscard]] const MRect& GetSource() const { return source; }
    /// In texels.
    [[nodiscard]] MPoint GetSize() const { return size; }
    [[nodiscard]] SizeClass GetSizeClass() const { return sizeClass; }

    /// Replaces the pixels by those that the picture has now.
    void Update(MOpenGLDevice& device, const MBitmap& bitmap, Form form);
    void Update(MOpenGLDevice& device, const MAlphaMask& mask, Form);

private:
    void Create(MOpenGLDevice& device, int32_t format);
    void Upload(MOpenGLDevice& device, uint32_t format, const void* pixels);

    const std::shared_ptr<MOpenGLNames> names;  ///< to which the name goes back
    uint32_t name = 0;
    MRect source;
    bool valid = false;  ///< its pixels are those of the picture
    MPoint size;
    SizeClass sizeClass = SizeClass::Exact;
};

/// What a picture keeps of its textures, row by row of tiles from the top. They are loaded once, and again
/// when the picture has changed.
class MOpenGLDescriptor final : public MObject {
public:
    /// Those of a direct picture that is not empty, in a form, or of a mask; loaded as far as that is needed.
    /// Null if that fails. Valid until the picture changes.
    [[nodiscard]] static const MOpenGLDescriptor* Get(MOpenGLDevice& device, const MBitmap& bitmap,
                                                      MOpenGLTexture::Form form);
    [[nodiscard]] static const MOpenGLDescriptor* Get(MOpenGLDevice& device, const MAlphaMask& mask);

    explicit MOpenGLDescriptor(std::shared_ptr<MOpenGLNames> names) : names(std::move(names)) {}

    [[nodiscard]] int32_t GetTileSize() const { return tileSize; }
    [[nodiscard]] const MOpenGLTexture& GetTile(int32_t column, int32_t row) const {
        return *tiles[static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column)];
    }

private:
    template <class Picture>
    static const MOpenGLDescriptor* GetOf(MOpenGLDevice& device, const Picture& picture,
                                          MOpenGLTexture::Form form);
    template <class Picture>
    static MOpenGLDescriptor* CreateDescriptor(MOpenGLDevice& device, const Picture& picture);
    template <class Picture>
    void Load(MOpenGLDevice& device, const Picture& picture, MOpenGLTexture::Form newForm);

    const std::shared_ptr<MOpenGLNames> names;  ///< those of the device that it was made for
    std::vector<std::unique_ptr<MOpenGLTexture>> tiles;
    MPoint size;  ///< of the picture
    int32_t tileSize = 0;
    int32_t columns = 0;
    MOpenGLTexture::Form form = MOpenGLTexture::Form::Plain;
    uint32_t mark = 0;  ///< the picture's modification mark when it was loaded
};
