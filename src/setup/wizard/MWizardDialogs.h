#pragma once

#include "foundation/views/MUserDialogs.h"
#include "setup/wizard/MWindowPulse.h"
#include "ui/control/MControlRef.h"

/// Asks and tells by windows: over that of `owner`, or over none while there is no other. What is asked and
/// told is plain text, but for information.
class MWizardDialogs final : public MUserDialogs {
public:
    /// Null for none. Not owned, and may end.
    void SetOwner(MControl* newOwner) { owner.Set(newOwner); }
    [[nodiscard]] MWindowPulse& GetPulse() { return pulse; }

    /// Enter answers with no: what is asked cannot be taken back.
    [[nodiscard]] bool AskYesNo(const MString& question) override;
    /// A window that is closed without an answer refuses.
    [[nodiscard]] MRetryAnswer AskRetry(const MString& question) override;
    void ShowError(const MString& text) override;
    void ShowInformation(const MString& markup) override;
    void ShowText(const MString& prompt, const MString& text) override;
    [[nodiscard]] std::unique_ptr<MProgressView> OpenProgress(const MString& title) override;
    /// In another thread.
    void Await(const std::function<void()>& work) override;

    /// Plain text as mark-up; lines stay lines.
    [[nodiscard]] static MString ToMarkup(const MString& text);

private:
    /// The window, as long as it is shown.
    [[nodiscard]] MControl* GetOwner() const;

    MControlRef owner;
    MWindowPulse pulse;
};
