#pragma once

#include "ui/control/MControl.h"
#include "ui/control/windows/MTimer.h"
#include "ui/geometry/MAxis.h"

/// A bar whose thumb shows which part of a range is seen, and moves it. The position runs from the lower end of
/// the range to its upper end less a page; numbers that are not finite count as 0.
///
/// The thumb is dragged, a press on the track moves by a page and one on an arrow by a step, again and again
/// while it is held. Of the keys those of its direction move by a step.
///
/// `ExecuteOnChange` is raised when the position has changed, by whomever, but for `Show`;
/// `Change::Committed` when the user has let go of the thumb.
class MScrollBar : public MControl, public MTimer {
public:
    explicit MScrollBar(MControl* parent = nullptr, const MString& name = MString(), bool isVertical = false);

    void SetVertical(bool newIsVertical);
    [[nodiscard]] bool IsVertical() const { return isVertical; }
    /// One whose upper end lies below its lower one is empty.
    void SetRange(double newMinimum, double newMaximum);
    void SetPageSize(double newPageSize);
    /// How far a step goes.
    void SetIncrease(double newIncrease);
    /// Is limited.
    void SetPosition(double newPosition);
    /// Moves by steps; below 0 towards the lower end.
    void Scroll(double steps) { SetPosition(scrollPosition + steps * increase); }
    /// For owners that lay out what is seen: sets all at once and raises nothing.
    void Show(double newMinimum, double newMaximum, double newPageSize, double newPosition);

    [[nodiscard]] double GetMinimum() const { return minimum; }
    [[nodiscard]] double GetMaximum() const { return maximum; }
    [[nodiscard]] double GetPageSize() const { return pageSize; }
    [[nodiscard]] double GetIncrease() const { return increase; }
    [[nodiscard]] double GetPosition() const { return scrollPosition; }
    /// Whether there is more than is seen.
    [[nodiscard]] bool CanScroll() const { return GetLastPosition() > minimum; }
    /// The bar shows the focus of a control that takes the keyboard for it, and outlives it.
    void SetFocusOwner(const MControl& owner) { focusOwner = &owner; }
    /// What the bar takes across its direction, in pixels.
    [[nodiscard]] int32_t GetThickness();

    /// Takes "vertical", "mmin", "mmax", "pagesize", "increase" and "position".
    void LoadFromXml(MXMLItem& item) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] MFlexibility GetFlexibility() override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void OnCaptureLost() override;
    void OnTimer() override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    enum class Place { None, Decrease, TrackBefore, Thumb, TrackBehind, Increase };

    /// Where track and arrows are.
    [[nodiscard]] virtual MRect GetBarRectangle() { return clientRect; }
    /// What a page can be.
    [[nodiscard]] virtual double LimitPage(double page) const;
    /// Takes the page size and the position, and raises what they have changed.
    void SetView(double newPageSize, double newPosition);
    [[nodiscard]] MScrollBarParts GetParts();
    [[nodiscard]] Place GetPlaceAt(MPoint point);
    [[nodiscard]] MAxis GetAxis() const { return isVertical ? MAxis::Y : MAxis::X; }
    /// What of the range a number of pixels along the track is.
    [[nodiscard]] double GetLengthOf(int32_t pixels);
    [[nodiscard]] double GetLastPosition() const;

private:
    static constexpr int32_t RepeatDelay = 300;    ///< before a press is repeated, in milliseconds
    static constexpr int32_t RepeatInterval = 40;  ///< between repetitions
    static constexpr int32_t StepsOfWheel = 3;

    bool ProcessMouse(const MSystemEvent& event);
    bool ProcessKey(const MSystemEvent& event);
    void Press(MPoint point);
    void Release();
    /// What a press does once; returns whether there is more to do.
    bool MoveOnce();
    void SetHovered(Place place);

    const MControl* focusOwner = this;
    bool isVertical;
    double minimum = 0;
    double maximum = 100;
    double pageSize = 10;
    double increase = 1;
    double scrollPosition = 0;
    Place pressed = Place::None;
    Place hovered = Place::None;
    MPoint mouse;             ///< where it was last, in own coordinates
    MPoint dragPoint;         ///< where the thumb was taken
    double dragPosition = 0;  ///< and what the position was then
    bool isRepeating = false;
};
