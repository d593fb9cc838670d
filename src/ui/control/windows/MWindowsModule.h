#pragma once

#include "foundation/module/MModule.h"
#include "ui/control/windows/MTimer.h"

class MStyle;
class MWindows;

/// The module of a program with windows.
///
/// It offers three services. "MWindowsConfiguration" gives the `MWindows` of the program, null if it shows
/// none. "MWindowsRegisterStyle" registers the `MStyleMaker` that is its argument. "MWindowsCreateStyle"
/// gives a new style for the `MWindows` that is its argument, null if no maker is registered; the caller owns
/// it.
class MWindowsModule : public MModule, public MTimer {
public:
    /// What makes the styles of a program.
    struct MStyleMaker {
        std::unique_ptr<MStyle> (*create)(MWindows& owner) = nullptr;
    };

    MWindowsModule() = default;
    ~MWindowsModule() override = default;

    /// As the base, and then adds the services.
    void Initialize() override;
    void OnTimer() override {}

    void RegisterStyle(const MStyleMaker& maker) { styleMaker = maker; }
    /// Null if no maker is registered. Raises what the maker raises.
    [[nodiscard]] std::unique_ptr<MStyle> CreateStyle(MWindows& owner) const;

private:
    MStyleMaker styleMaker;
};
