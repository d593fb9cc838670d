#pragma once

#include "ui/widgets/values/MControlValueVerticalDragging.h"

/// A dial with the value's text below it.
class MKnob : public MControlValueVerticalDragging {
public:
    explicit MKnob(MControl* parent = nullptr, const MString& name = MString());

    [[nodiscard]] MRect GetContentRectangle() override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;

protected:
    [[nodiscard]] virtual MRect GetDialRectangle();
    /// Of the dial as the style wants it, and between it and the text.
    [[nodiscard]] MPoint GetDialSize();
    [[nodiscard]] MPoint GetDialSpace();
};

/// A dial with the value's text beside it, for rows.
class MRotator : public MKnob {
public:
    explicit MRotator(MControl* parent = nullptr, const MString& name = MString());

    [[nodiscard]] MAlignment GetContentAlignment() override { return MAlignLeft; }
    [[nodiscard]] MRect GetContentRectangle() override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;

protected:
    [[nodiscard]] MRect GetDialRectangle() override;
};
