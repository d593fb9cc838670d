#pragma once

#include "foundation/text/MString.h"

/// A line of text that whoever watches a run sees. What is set is shown at once. It has no base, so that a
/// control can be one beside its own base; like a control's, its destructor may raise.
class MTextView {
public:
    virtual void SetText(const MString& text) = 0;

protected:
    virtual ~MTextView() noexcept(false) = default;
};

/// A bar from 0 to a maximum. What is set is shown at once; a maximum of 0 is an empty bar. A base beside
/// others, as `MTextView`.
class MProgressView {
public:
    virtual ~MProgressView() noexcept(false) = default;

    virtual void SetProgress(double maximum, double value) = 0;
};
