#pragma once

#include "foundation/views/MProgressView.h"

#include <functional>
#include <memory>

/// The answer to "try again?".
enum class MRetryAnswer { Retry, Refuse, Ignore };

/// What the program asks and tells its user. Windows implement it for a person, a terminal and fixed
/// answers serve runs without window, and tests bring answers of their own. Called on the main thread;
/// a call returns when the user has answered.
class MUserDialogs {
public:
    virtual ~MUserDialogs() noexcept(false) = default;

    /// True for yes.
    [[nodiscard]] virtual bool AskYesNo(const MString& question) = 0;
    [[nodiscard]] virtual MRetryAnswer AskRetry(const MString& question) = 0;
    virtual void ShowError(const MString& text) = 0;
    /// Shows mark-up (MSTMLParser.h).
    virtual void ShowInformation(const MString& markup) = 0;
    /// Shows a text that the user can copy.
    virtual void ShowText(const MString& prompt, const MString& text) = 0;
    /// Opens a progress display under a title; destroying it closes it.
    [[nodiscard]] virtual std::unique_ptr<MProgressView> OpenProgress(const MString& title) = 0;
    /// Does work that may take long without a word, as waiting for another program. Windows stay alive
    /// meanwhile, and may do it in another thread. Raises what the work raises.
    virtual void Await(const std::function<void()>& work) { work(); }
};
