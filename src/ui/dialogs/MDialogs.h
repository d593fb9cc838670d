#pragma once

#include "ui/control/windows/MWindows.h"

/// What controls ask and show, by the dialogs of this room. Enter answers a question with no.
class MDialogs final : public MWindowDialogs {
public:
    [[nodiscard]] bool AskYesNo(MControl& owner, const MString& question) override;
    void ShowInformation(MControl& owner, const MString& text) override;
    [[nodiscard]] std::optional<MString> EditText(MControl& owner, const MString& caption,
                                                  const MString& text,
                                                  const MCharFilter::Interface& filter) override;
    void ShowDocument(MControl& owner, const MString& title, const MString& text) override;
};
