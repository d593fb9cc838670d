#pragma once

#include "ui/control/kinds/MModalValue.h"
#include "update/MDownloadDefinition.h"

class MWizardDialogs;

/// Downloads a package in a progress window, which can be cancelled, and offers to start the installer that has come.
/// `Ok` if all has come, `Cancel` if the user has cancelled, `None` if the display was lost: what was fetched is kept
/// for the next run. Raises what `MDownloader::Run` and `MFile::Execute` raise.
[[nodiscard]] MModalValue MRunDownloadWindow(const MDownloadDefinition& definition, const MString& program,
                                             MWizardDialogs& dialogs);
