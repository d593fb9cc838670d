#pragma once

#include "embedded/MProgramBlocks.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/resources/MResourceLibrary.h"
#include "tests/support/MTestText.h"
#include "ui/control/MControl.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/style/MTexturedStyle.h"

#include <gtest/gtest.h>
#include <memory>
#include <string_view>

/// A control in a state that a test chooses.
class PosedControl final : public MControl {
public:
    PosedControl(MControlType type, MPoint newSize, int32_t newState, MControl* parent = nullptr)
        : MControl(parent, "posed"), state(static_cast<MDrawState>(newState)) {
        SetControlType(type);
        size = newSize;
        windowRect = contentRect = MRect::FromSize(0, 0, size.x, size.y);
        SetEnabled(state & MDrawEnabled);
    }
    ~PosedControl() noexcept override = default;
    MDrawState GetDrawState() override { return state; }

    MDrawState state;
};

/// The style that travels inside of the program.
inline MResourceLibrary& GetProgramStyle() {
    static const std::unique_ptr<MResourceLibrary> library = [] {
        const MEmbeddedBlocks blocks = MGetProgramBlocks();
        MMemoryStream stream(blocks.resources.data(), static_cast<int32_t>(blocks.resources.size()));
        auto loaded = std::make_unique<MResourceLibrary>();
        loaded->Load(stream);
        return loaded;
    }();
    return *library;
}

/// A picture to paint on, opaque as what is shown is.
struct Canvas {
    Canvas(MPoint size, MColor ground) {
        bitmap.CreateOpaque(size.x, size.y);
        bitmap.ChangeColors([ground](MColor) { return ground; });
        clip = MRect::FromSize(0, 0, size.x, size.y);
    }
    [[nodiscard]] MColor At(int32_t x, int32_t y) const { return bitmap.GetPixel(x, y); }
    template <class Body>
    void Draw(Body body) {
        MDrawerToMBitmap drawer(bitmap);
        drawer.hasAlphaChannel = false;
        drawer.SetClip(clip);
        body(drawer);
    }

    MBitmap bitmap;
    MRect clip;
};

inline bool AreEqual(const MBitmap& one, const MBitmap& other) {
    const int64_t count = int64_t{one.GetWidth()} * one.GetHeight();
    return one.GetWidth() == other.GetWidth() && one.GetHeight() == other.GetHeight() &&
           std::equal(one.GetPixels(), one.GetPixels() + count, other.GetPixels());
}

class StyleTest : public testing::Test {
protected:
    StyleTest() { Load(100, false); }
    ~StyleTest() noexcept override = default;

    void Load(int32_t percent, bool isLight) {
        MXMLItem settings;
        settings.SetAttribute("ResizeX", percent);
        settings.SetAttribute("ResizeY", percent);
        settings.SetAttribute("InvertColors", isLight ? 1 : 0);
        style.LoadFromSettings(settings);
    }
    [[nodiscard]] MColor GetGround() const { return style.GetColors().Get(MStyleTone::Ground); }
    /// A control of a size in pixels in the middle of a canvas with so much ground around it.
    [[nodiscard]] Canvas Paint(MControl& control, int32_t around = 0) {
        const MPoint size = control.size;
        Canvas canvas({size.x + 2 * around, size.y + 2 * around}, GetGround());
        Paint(canvas, control, {around, around},
              [&](MDrawer& drawer) { style.PaintControl(control, drawer); });
        return canvas;
    }
    template <class Body>
    void Paint(Canvas& canvas, MControl& control, MPoint at, Body body) {
        canvas.Draw([&](MDrawer& target) {
            MDrawerUsingStyle<MDrawer> drawer(style, control);
            drawer.SetTarget(&target);
            drawer.SetTranslation(at.x, at.y);
            body(drawer);
        });
    }

    MTexturedStyle style{nullptr, &GetProgramStyle(), MTexturedStyle::FontSource::Traveling};
};
