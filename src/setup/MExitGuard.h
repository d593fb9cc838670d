#pragma once

#include "foundation/views/MUserDialogs.h"
#include "setup/MExitCode.h"
#include "setup/MRefusal.h"

/// Runs the body of a run without window, which gives its exit code. What it raises is told as an error and gives
/// `MExitRefused` or `MExitFailed`.
template <class Body>
[[nodiscard]] int32_t MGuardExitCode(MUserDialogs& dialogs, Body body) {
    try {
        return body();
    } catch (const MRefusal& refusal) {
        dialogs.ShowError(refusal.GetMessage());
        return MExitRefused;
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
        return MExitFailed;
    }
}
