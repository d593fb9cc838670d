#include "ui/widgets/values/MValueLooks.h"

#include "foundation/values/MValueNumber.h"

namespace {

template <class Number>
bool FindZero(const MValue& value, double& position) {
    const auto* const number = dynamic_cast<const Number*>(&value);
    if (!number || !(number->GetMin() < 0 && number->GetMax() > 0)) return false;
    const auto min = static_cast<double>(number->GetMin());
    position = -min / (static_cast<double>(number->GetMax()) - min);
    return true;
}

}  // namespace

MValueLook MGetValueLook(const MValue& value, uint8_t drawState) {
    MValueLook look;
    look.value = value.GetNormalized();
    look.drawState = drawState;
    (void)(FindZero<MValueDouble>(value, look.origin) || FindZero<MValueFloat>(value, look.origin) ||
           FindZero<MValueInt16>(value, look.origin) || FindZero<MValueInt32>(value, look.origin) ||
           FindZero<MValueInt64>(value, look.origin));
    return look;
}
