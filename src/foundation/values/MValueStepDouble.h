#pragma once

#include "foundation/values/MValueNumber.h"

/// A number that coarse and fine stepping both move by one step, which its definition gives as "step".
class MValueStepDouble : public MValueDouble {
public:
    using MValueDouble::MValueDouble;

    void LoadDefinition(MXMLItem& item) override;
};
