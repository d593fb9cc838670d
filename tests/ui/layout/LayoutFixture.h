#pragma once

#include "examples/windows/MPlainStyle.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"
#include "ui/geometry/MLength.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

/// Controls in a plain look, in which those without a type have neither frame nor least size.
class LayoutFixture : public testing::Test {
protected:
    LayoutFixture() { windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), SYSTEM_FONTS)); }

    std::unique_ptr<MWindows> windows = std::make_unique<MWindows>(std::make_unique<MWindowSystemHeadless>());
};

/// A text of an area that fits into any rectangle as large as that.
class TextOfArea : public MControl {
public:
    TextOfArea(MControl* parent, int32_t area) : MControl(parent), area(area) { Set(MControlFlag::Plastic); }

    [[nodiscard]] int32_t ComputePlasticSize(int32_t, int32_t other) override {
        return MClampLength((int64_t{area} + other - 1) / std::max(other, 1));
    }

private:
    int32_t area;
};

/// A control that needs a size, in a layout or, with null, by itself.
inline MControl& AddBox(MControl& parent, MLayout* layout, MPoint minimal, MPoint ratio = {100, 100}) {
    MControl& box = *new MControl(&parent);
    box.minClientSize = minimal;
    box.layoutRatio = ratio;
    if (layout) layout->Add(box);
    return box;
}

inline MRect GetPlace(const MControl& control) {
    const MPoint place = control.GetOffsetInParent();
    return MRect::FromSize(place.x, place.y, control.GetShownSize().x, control.GetShownSize().y);
}

/// Gives a root a size and arranges it.
inline void ArrangeAt(MControl& root, MPoint size) {
    root.size = size;
    root.ArrangeChildren();
}
