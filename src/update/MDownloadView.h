#pragma once

#include "foundation/views/MProgressView.h"

/// Where a download shows how far it is, and asks whether to go on. The text is the phase; the progress is
/// counted in bytes. Called on the thread of the download.
class MDownloadView : public MTextView, public MProgressView {
public:
    /// Speed and amounts, some lines that change every few parts.
    virtual void SetStatistics(const MString& text) = 0;
    /// Asked after each part, and about ten times a second while a download waits for the network. What was
    /// fetched until then is kept for the next run.
    [[nodiscard]] virtual bool IsCancelled() = 0;
};
