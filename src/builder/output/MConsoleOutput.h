#pragma once

#include "builder/output/MBuilderOutput.h"

/// Standard output for results, standard error for the rest.
class MConsoleOutput final : public MBuilderOutput {
public:
    /// Raises "Standard output cannot be written." (0x100).
    void Tell(const MString& line) override;
    void Complain(const MString& line) override;
    [[nodiscard]] bool IsProgressShown() const override;
    void ShowProgress(const MString& text) override;

private:
    int32_t shownLength = 0;
};
