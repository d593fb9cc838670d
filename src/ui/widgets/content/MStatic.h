#pragma once

#include "ui/widgets/content/MControlContent.h"

/// Shows something and takes no input. Text stands at the left.
class MStatic : public MControlContent {
public:
    explicit MStatic(MControl* parent = nullptr, const MString& name = MString());
};
