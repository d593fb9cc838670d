#pragma once

#include "ui/widgets/values/MControlValue.h"

/// A value that the mouse drags: upwards for more. Ctrl and the middle button drag it more accurately; Escape
/// and Backspace end a drag with what the value was before.
class MControlValueVerticalDragging : public MControlValue {
public:
    using MControlValue::MControlValue;

    bool ProcessEvent(const MSystemEvent& event) override;
    void OnCaptureLost() override;

protected:
    /// The position of the value, from 0 to 1, when the left button takes hold of it, and when it has gone
    /// on.
    [[nodiscard]] virtual double GetGrabbedPosition(MPoint) { return GetActiveValue().GetNormalized(); }
    [[nodiscard]] virtual double GetDraggedPosition(MPoint point);

private:
    enum class Drag { None, Plain, Accurate };

    [[nodiscard]] bool IsDragged() const;
    void Begin(Drag newDrag, MPoint point);
    void MoveTo(MPoint point);
    void End();
    void Cancel();
    /// The last position and how far the mouse has gone since, of which the whole range is so many times the
    /// normal way.
    [[nodiscard]] double GetVertically(MPoint point, int32_t slowness);

    Drag drag = Drag::None;
    double startValue = 0;
    double draggedValue = 0;  ///< by the mouse, which may lie between two values
    MPoint lastPoint;
};
