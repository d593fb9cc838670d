#pragma once

#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/scrolling/MScrollBar.h"

/// A scroll bar that also says how much is seen: the ends of its thumb can be dragged, and buttons and keys zoom
/// around its middle. What is seen is never less than the minimal page, and never more than the range.
class MZoomer : public MScrollBar {
public:
    explicit MZoomer(MControl* parent = nullptr, const MString& name = MString(), bool isVertical = false);

    void SetMinimalPageSize(double newMinimum);
    /// Shows so many times as much; below 1 that is zooming in.
    void Zoom(double factor);
    /// Shows all.
    void ZoomToDefault();

    /// As `MScrollBar`, and "minpagesize".
    void LoadFromXml(MXMLItem& item) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    [[nodiscard]] MStdCursor GetCursorAt(MPoint point) override;
    void OnCaptureLost() override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    [[nodiscard]] double LimitPage(double page) const override;

private:
    static constexpr double ZoomStep = 1.25;
    static constexpr int32_t EndSize = 4;  ///< of the thumb, that scales it, at 100 percent

    enum class End { None, Low, High };

    [[nodiscard]] End GetEndAt(MPoint point);
    void DragEnd(int32_t place);
    void OnButton(const MOnClickParams& params);

    MButton zoomDefault{this, "ZoomDefault"};
    MButton zoomOut{this, "ZoomOut"};
    MButton zoomIn{this, "ZoomIn"};
    double minimalPage = 0;
    End dragged = End::None;
};
