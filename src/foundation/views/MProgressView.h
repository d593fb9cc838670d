#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

/// A line of text that whoever watches a run sees. What is set is shown at once.
class MTextView : public MObject {
public:
    virtual void SetText(const MString& text) = 0;
};

/// A bar from 0 to a maximum. What is set is shown at once; a maximum of 0 is an empty bar.
class MProgressView : public MObject {
public:
    virtual void SetProgress(double maximum, double value) = 0;
};
