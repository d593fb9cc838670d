#pragma once

#include "foundation/base/MException.h"
#include "foundation/module/MPlatform.h"

/// Tries an operation up to 10 times with pauses of 100 milliseconds: virus scanners and closing hosts
/// hold files for moments. After the last failure it gives up in silence, since whatever depends on the
/// operation reports by itself.
template <class Operation>
void MInstallRetry(Operation operation) {
    constexpr int32_t Attempts = 10;
    constexpr int32_t PauseMilliseconds = 100;
    for (int32_t attempt = 0; attempt < Attempts; ++attempt) {
        try {
            operation();
            return;
        } catch (const MException&) {
            MPlatform::Sleep(PauseMilliseconds);
        }
    }
}
