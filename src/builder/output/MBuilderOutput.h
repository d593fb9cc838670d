#pragma once

#include "foundation/text/MString.h"

/// Where the tool's words go.
class MBuilderOutput {
public:
    virtual ~MBuilderOutput() = default;

    /// A line of what was asked for.
    virtual void Tell(const MString& line) = 0;
    /// A line about what is wrong.
    virtual void Complain(const MString& line) = 0;
    /// Whether somebody watches.
    [[nodiscard]] virtual bool IsProgressShown() const = 0;
    /// Replaces the progress line; an empty text removes it.
    virtual void ShowProgress(const MString& text) = 0;
};
