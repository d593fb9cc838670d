#pragma once

#include "foundation/events/MEventTarget.h"
#include "foundation/events/MLock.h"
#include "ui/geometry/MRect.h"

class MControl;
class MWindows;

/// Lets another thread have a control painted anew. `Invalidate` and `InvalidateRect` may be called by any
/// thread; the rest belongs to the thread of the user interface. A control that ends is forgotten; the object
/// itself ends before the windows of the program do.
class MControlInvalidator : public MEventTarget {
public:
    MControlInvalidator() = default;
    MControlInvalidator(const MControlInvalidator&) = delete;
    MControlInvalidator& operator=(const MControlInvalidator&) = delete;
    ~MControlInvalidator() override;

    void SetControl(MControl* newControl);
    [[nodiscard]] MControl* GetControl() const { return control; }
    void Invalidate();
    /// In the control's own coordinates.
    void InvalidateRect(const MRect& rect);

private:
    friend class MWindows;

    static constexpr int32_t WholeSize = 1 << 30;  ///< larger than any control, which cuts it

    /// Hands on what has been recorded.
    void Process();

    MControl* control = nullptr;
    MWindows* windows = nullptr;  ///< once it is registered there
    MLock lock;
    MRect pendingRect;
};
