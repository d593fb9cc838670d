#include "ui/control/windows/MWindows.h"

#include "foundation/base/MGuard.h"
#include "foundation/events/MLockGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MRemoveFromList.h"
#include "ui/control/MStyle.h"
#include "ui/control/windows/MControlInvalidator.h"

#include <algorithm>
#include <utility>

namespace {

MWindows* instance = nullptr;

constexpr const char* TickLabel = "MWindows::OnTimer";

}  // namespace

MWindows::MWindows(std::unique_ptr<MWindowSystem> system) : system(std::move(system)) {
    this->system->Initialize(*this);
    desktop = ReadDesktop();
    instance = this;
}

MWindows::~MWindows() {
    while (!roots.IsEmpty()) roots[roots.GetCount() - 1]->DestroyWindow();
    style.reset();
    system.reset();
    instance = nullptr;
}

MWindows* MWindows::GetInstance() {
    return instance;
}

void MWindows::SetStyle(std::unique_ptr<MStyle> newStyle) {
    style = std::move(newStyle);
}

MWindows::Desktop MWindows::ReadDesktop() const {
    return {.scalePercent = system->GetScalePercent(), .prefersDark = system->PrefersDark()};
}

void MWindows::UpdateDesktop() {
    const Desktop before = std::exchange(desktop, ReadDesktop());
    if (desktop != before) MGuard("MWindows::UpdateDesktop", [&] { onDesktop.Fire({}); });
}

void MWindows::AddRoot(MControl& root) {
    if (!HasRoot(&root)) roots.Add(&root);
}

void MWindows::RemoveRoot(MControl& root) {
    MRemoveFromList(roots, &root);
    if (messageFilter == &root) messageFilter = nullptr;
}

bool MWindows::HasRoot(const MControl* root) const {
    return MFindInList(roots, root) >= 0;
}

MControl* MWindows::GetBlocker(const MControl& root) const {
    for (MControl* other : roots) {
        if (other == &root || !other->Is(MControlFlag::ModalRunning)) continue;
        if (other->GetRootState().windowParent.Get() == &root) return other;
    }
    return nullptr;
}

void MWindows::AddInvalidator(MControlInvalidator& invalidator) {
    const MLockGuard guard(&invalidatorLock);
    invalidators.Add(&invalidator);
}

void MWindows::RemoveInvalidator(MControlInvalidator& invalidator) {
    const MLockGuard guard(&invalidatorLock);
    MRemoveFromList(invalidators, &invalidator);
}

void MWindows::ForgetControl(MControl& control) {
    const MLockGuard guard(&invalidatorLock);
    for (MControlInvalidator* invalidator : invalidators)
        if (invalidator->GetControl() == &control) invalidator->SetControl(nullptr);
    if (dragSource == &control) dragSource = nullptr;
}

void MWindows::RequestTick() {
    if (!isTickRequested.exchange(true)) system->WakeUp();
}

void MWindows::Attend() {
    // A handler may run a loop of its own, in which the rest goes on.
    UpdateAlarm();
    // One that raises does not hold up those behind it, and those that post again do not hold up the rest.
    constexpr int32_t MaximumEvents = 1024;
    for (int32_t count = 0; count < MaximumEvents && HasPending(); ++count)
        MGuard(TickLabel, [&] { DispatchNext(); });
    if (HasPending()) system->WakeUp();
    const int64_t now = system->GetTime();
    if (isTickRequested && now >= lastTick + TickInterval) {
        lastTick = now;
        isTickRequested = false;
        OnTimer();
    }
    timers.Run(now);
    UpdateAlarm();
}

void MWindows::OnTimer() {
    MGuard(TickLabel, [&] {
        {
            const MLockGuard guard(&invalidatorLock);
            for (int32_t i = 0; i < invalidators.GetCount(); ++i) invalidators[i]->Process();
        }
        for (int32_t i = 0; i < roots.GetCount(); ++i) roots[i]->FlushPaint();
    });
}

void MWindows::UpdateAlarm() {
    std::optional<int64_t> time = timers.GetNextDueTime();
    if (isTickRequested) time = std::min(time.value_or(lastTick + TickInterval), lastTick + TickInterval);
    system->SetAlarm(time);
}

void MWindows::WakeUp() {
    system->WakeUp();
}
