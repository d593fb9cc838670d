#pragma once

#include "foundation/views/MUserDialogs.h"

/// What a program without window tells its user, as text on the standard streams.
class MTextDialogs : public MUserDialogs {
public:
    void ShowError(const MString& text) override;
    void ShowInformation(const MString& markup) override;
    void ShowText(const MString& prompt, const MString& text) override;
    [[nodiscard]] std::unique_ptr<MProgressView> OpenProgress(const MString& title) override;
};

/// Asks on the terminal. The end of input is a no.
class MTerminalDialogs final : public MTextDialogs {
public:
    [[nodiscard]] bool AskYesNo(const MString& question) override;
    [[nodiscard]] MRetryAnswer AskRetry(const MString& question) override;
};

/// Asks nobody: every question is told on standard error and answered as the command line said.
/// Yes-or-no questions are about going on in spite of damage, and the answer is no.
class MUnattendedDialogs final : public MTextDialogs {
public:
    /// `locked` answers for a file that cannot be written. A retry waits for a pause, and after
    /// `MaximumRetries` of them in one run gives up.
    explicit MUnattendedDialogs(MRetryAnswer locked, int32_t pauseMilliseconds = 1000)
        : locked(locked), pauseMilliseconds(pauseMilliseconds) {}

    [[nodiscard]] bool AskYesNo(const MString& question) override;
    [[nodiscard]] MRetryAnswer AskRetry(const MString& question) override;

    static constexpr int32_t MaximumRetries = 60;

private:
    MRetryAnswer locked;
    int32_t pauseMilliseconds;
    int32_t retries = 0;
};
