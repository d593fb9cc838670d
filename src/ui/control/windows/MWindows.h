#pragma once

#include "foundation/base/MList.h"
#include "foundation/events/MEvent.h"
#include "foundation/events/MEventProcessor.h"
#include "foundation/events/MLock.h"
#include "foundation/events/MOnNotifyParams.h"
#include "foundation/text/MCharFilter.h"
#include "ui/control/windows/MTimerQueue.h"
#include "ui/control/windows/MWindowSystem.h"

#include <atomic>
#include <memory>
#include <optional>

class MControl;
class MControlInvalidator;
class MStyle;

/// What controls ask and show by windows of their own. Implemented where those windows are; called on the
/// thread of the user interface. `owner` is a root.
class MWindowDialogs {
public:
    virtual ~MWindowDialogs() = default;
    /// Questions and what is told have mark-up.
    [[nodiscard]] virtual bool AskYesNo(MControl& owner, const MString& question) = 0;
    virtual void ShowInformation(MControl& owner, const MString& text) = 0;
    /// The text as the user has changed it, of the characters that the filter accepts; none if the user
    /// leaves it.
    [[nodiscard]] virtual std::optional<MString> EditText(MControl& owner, const MString& caption,
                                                          const MString& text,
                                                          const MCharFilter::Interface& filter) = 0;
    /// A page of rich text.
    virtual void ShowDocument(MControl& owner, const MString& title, const MString& text) = 0;
};

/// The windows of a program: all roots that have one, the style, the window system, and what there is once
/// for all windows. There is one such object at a time, made and destroyed by the module of the program (or
/// by a test) on the thread of the user interface, to which everything belongs unless something else is said.
class MWindows final : public MEventProcessor {
public:
    /// The file with the user's settings of the style.
    static constexpr const char* StyleSettings = "StyleSettings.cfg";

    /// Opens the platform. Raises what `MWindowSystem::Initialize` raises.
    explicit MWindows(std::unique_ptr<MWindowSystem> system);
    MWindows(const MWindows&) = delete;
    MWindows& operator=(const MWindows&) = delete;
    ~MWindows() override;

    /// Null in a program that shows no windows.
    [[nodiscard]] static MWindows* GetInstance();

    [[nodiscard]] MWindowSystem& GetSystem() const { return *system; }
    /// Of all roots without a style of their own; there is none in the beginning.
    [[nodiscard]] MStyle* GetStyle() const { return style.get(); }
    void SetStyle(std::unique_ptr<MStyle> newStyle);

    /// The desktop's scale or its preference for dark has changed.
    [[nodiscard]] MEvent<MOnNotifyParams>& OnDesktop() { return onDesktop; }
    /// What the window system calls when one of them may have changed.
    void UpdateDesktop();

    /// What the window manager shows for windows that are made from now on, one picture in several sizes.
    /// Programs for Windows have theirs in their resources.
    void SetIcons(const MList<MBitmap>& pictures) { icons = pictures; }
    [[nodiscard]] const MList<MBitmap>& GetIcons() const { return icons; }

    // Registration, by the roots and invalidators themselves.
    void AddRoot(MControl& root);
    void RemoveRoot(MControl& root);
    [[nodiscard]] const MList<MControl, MListPointers>& GetRoots() const { return roots; }
    [[nodiscard]] bool HasRoot(const MControl* root) const;
    /// The modal window that was opened over a root and keeps the user from it, or null.
    [[nodiscard]] MControl* GetBlocker(const MControl& root) const;
    [[nodiscard]] bool IsBlocked(const MControl& root) const { return GetBlocker(root) != nullptr; }
    void AddInvalidator(MControlInvalidator& invalidator);
    void RemoveInvalidator(MControlInvalidator& invalidator);
    /// The control of no invalidator is this one any more.
    void ForgetControl(MControl& control);

    // Time.
    /// Between two ticks, in milliseconds: about the time between two pictures of a screen.
    static constexpr int64_t TickInterval = 15;
    [[nodiscard]] MTimerQueue& GetTimers() { return timers; }
    /// Something has to be painted: the tick comes soon. From any thread.
    void RequestTick();
    /// What the window system calls after `WakeUp` and at the time of the alarm: dispatches posted events,
    /// runs what is due and sets the next alarm.
    void Attend();
    /// The tick: hands on what invalidators have recorded, and everything dirty to the platform.
    void OnTimer();
    /// The timers have changed.
    void UpdateAlarm();

    /// Guards what is recorded as dirty. Taken after the lock of a tree.
    [[nodiscard]] MLock& GetPaintLock() { return paintLock; }

    MWindowDialogs* dialogs = nullptr;  ///< not owned; without it nothing is asked
    MControl* dragSource = nullptr;     ///< the control that is being dragged
    MControl* messageFilter = nullptr;  ///< while it is set, other roots wait for mouse and keyboard
    int32_t forcedCursor = -1;          ///< an `MStdCursor` for all windows; none below 0

protected:
    void WakeUp() override;

private:
    struct Desktop {
        int32_t scalePercent = 100;
        std::optional<bool> prefersDark;
        [[nodiscard]] bool operator==(const Desktop&) const = default;
    };

    [[nodiscard]] Desktop ReadDesktop() const;

    std::unique_ptr<MWindowSystem> system;
    MList<MBitmap> icons;
    Desktop desktop;
    MEvent<MOnNotifyParams> onDesktop;
    std::unique_ptr<MStyle> style;
    MList<MControl, MListPointers> roots;
    MLock invalidatorLock;
    MList<MControlInvalidator, MListPointers> invalidators;
    MLock paintLock;
    MTimerQueue timers;
    std::atomic<bool> isTickRequested = false;
    int64_t lastTick = 0;
};
