#include "ui/control/windows/MControlInvalidator.h"

#include "foundation/events/MLockGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"

#include <utility>

MControlInvalidator::~MControlInvalidator() {
    if (windows) windows->RemoveInvalidator(*this);
}

void MControlInvalidator::SetControl(MControl* newControl) {
    bool isNew = false;
    {
        const MLockGuard guard(&lock);
        control = newControl;
        pendingRect = MRect();
        isNew = control && !windows;
        if (isNew) windows = MWindows::GetInstance();
    }
    // Not under the lock, which is taken under that of all invalidators.
    if (isNew && windows) windows->AddInvalidator(*this);
}

void MControlInvalidator::Invalidate() {
    InvalidateRect(MRect::FromSize(0, 0, WholeSize, WholeSize));
}

void MControlInvalidator::InvalidateRect(const MRect& rect) {
    const MLockGuard guard(&lock);
    pendingRect = pendingRect.United(rect);
    if (windows && !pendingRect.IsEmpty()) windows->RequestTick();
}

void MControlInvalidator::Process() {
    MRect rect;
    {
        const MLockGuard guard(&lock);
        std::swap(rect, pendingRect);
    }
    if (control && !rect.IsEmpty()) control->InvalidateRect(rect);
}
