#pragma once

#include "foundation/base/MException.h"

/// Hands "SYSTEM EXCEPTION! {0}" with the boundary's label to the diagnostics of the build.
/// A release build keeps nothing.
void MReportSystemException(const char* label);

/// Runs `body` at a boundary that no exception may cross: an `MException` ends the body in silence,
/// anything else is reported under `label`. Returns true if the body ran to its end.
template <class Body>
bool MGuard(const char* label, Body&& body) {
    try {
        body();
        return true;
    } catch (const MException&) {
    } catch (...) {
        MReportSystemException(label);
    }
    return false;
}
