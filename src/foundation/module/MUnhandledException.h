#pragma once

/// Ends the process for an exception that nobody has caught: tells its text on standard error and aborts. Programs set
/// it by `MPlatform::PrepareProcess`.
[[noreturn]] void MEndByUnhandledException();
