#pragma once

#include "ui/control/MControl.h"
#include "ui/control/MStyle.h"
#include "ui/drawing/MDrawerToMBitmap.h"

/// A drawer with the fonts, colours and pictures of a style, for one control. `Base` is `MDrawer`, which
/// passes everything on, or `MDrawerToMBitmap`. Style and control outlive the drawer.
template <class Base>
class MDrawerUsingStyle : public Base {
public:
    MDrawerUsingStyle(MStyle& style, MControl& control) : style(style), control(control) {}

    [[nodiscard]] MBitmap* GetStdIcon(int32_t index) override { return style.GetStdIcon(index); }
    [[nodiscard]] const MAlphaMask* GetStdIconMask(int32_t index) override {
        return style.GetStdIconMask(index);
    }
    [[nodiscard]] MBitmap* GetStdBitmap(int32_t index) override { return style.GetStdBitmap(index); }
    [[nodiscard]] MFontTable* GetFontTable() override { return style.GetFontTable(); }
    [[nodiscard]] MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                                 MColor& color) override {
        return style.GetFont(fontIndex, colorIndex, isInverted, drawState, color);
    }
    [[nodiscard]] MColor GetTextColor(int32_t index, bool isInverted) override {
        if (index == MDrawer::BackgroundIndex) return GetBackgroundColor();
        return style.GetColor(index, isInverted);
    }
    [[nodiscard]] int32_t GetStdSize(int32_t index) override { return style.GetMetric(index); }
    [[nodiscard]] int32_t ScaleX(int32_t value) override { return style.ScaleX(value); }
    [[nodiscard]] int32_t ScaleY(int32_t value) override { return style.ScaleY(value); }
    [[nodiscard]] MColor GetBackgroundColor() override {
        const MColor own = Base::GetBackgroundColor();
        return own.alpha != 0 ? own : control.GetBackgroundColor();
    }

private:
    MStyle& style;
    MControl& control;
};
